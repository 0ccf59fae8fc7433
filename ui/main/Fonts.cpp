#include "ui/main/Fonts.hpp"

#include <QFontDatabase>
#include <QFontMetrics>

namespace tovarin {

QFont systemFont(int size, bool bold) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(size);
    font.setBold(bold);
    return font;
}

QFont narrowedToFit(const QFont& font, const QString& text, int width) {
    if (QFontMetrics(font).horizontalAdvance(text) <= width)
        return font;
    for (int stretch : {QFont::SemiCondensed, QFont::Condensed, QFont::ExtraCondensed}) {
        QFont narrower = font;
        narrower.setStretch(stretch);
        if (QFontMetrics(narrower).horizontalAdvance(text) <= width)
            return narrower;
    }
    return font;
}

} // namespace tovarin
