#include "framework/Canvas.hpp"

#include <QPainter>

namespace tovarin::fw {

Canvas::Canvas(QWidget* parent) : QWidget(parent) {}

void Canvas::setBackdrop(PictureSource source) {
    source_ = std::move(source);
    backdrop_ = QPixmap();
    askedFor_ = 0.0;
    update();
}

QPixmap Canvas::backdrop() const {
    const qreal ratio = devicePixelRatioF();
    if (ratio != askedFor_) {
        askedFor_ = ratio;
        backdrop_ = source_ ? source_(ratio) : QPixmap();
    }
    return backdrop_;
}

void Canvas::paintEvent(QPaintEvent*) {
    const QPixmap picture = backdrop();
    if (picture.isNull())
        return;
    QPainter painter(this);
    // A @2x picture on a screen of 1.5 is scaled down, which must stay sharp;
    // drawn at its own size, as on a plain screen, it is copied pixel for pixel.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(0, 0, picture);
}

} // namespace tovarin::fw
