#pragma once

#include <QPixmap>

namespace tovarin {

// The application's pictures for a screen of the given device pixel ratio:
// the plain picture, or its sharper @2x version on a high-density screen
// where there is one. Each version is read at the first call that finds it
// and shared from then on; a null picture when the file is absent, and the
// next call looks again.
QPixmap Icon256(qreal devicePixelRatio = 1.0);
QPixmap Tovarinbanner(qreal devicePixelRatio = 1.0);

} // namespace tovarin
