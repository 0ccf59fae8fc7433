#pragma once

#include <QFont>
#include <QString>

namespace tovarin {

// The platform's default interface typeface at `size`. Sizes are taken as
// pixels: the window's geometry is laid out in pixels for a platform where a
// point is one pixel, and a point size would outgrow the boxes on a 96 dpi screen.
QFont systemFont(int size, bool bold = false);

// `font` narrowed (never shrunk) until `text` fits `width` pixels, so a caption
// keeps its size on a typeface wider than the one the layout was made for.
// Returns `font` unchanged when it fits or when no narrower width helps.
QFont narrowedToFit(const QFont& font, const QString& text, int width);

} // namespace tovarin
