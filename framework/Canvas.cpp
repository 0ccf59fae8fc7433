#include "framework/Canvas.hpp"

#include <QPainter>

namespace tovarin::fw {

Canvas::Canvas(QWidget* parent) : QWidget(parent) {}

void Canvas::setBackdrop(const QPixmap& picture) {
    source_ = nullptr;
    backdrop_ = picture;
    update();
}

void Canvas::setBackdropSource(PictureSource source) {
    source_ = std::move(source);
    backdrop_ = QPixmap();
    update();
}

const QPixmap& Canvas::backdrop() const {
    if (source_) {
        // Moved out first: the source is asked once, even if asking fails.
        const PictureSource source = std::move(source_);
        source_ = nullptr;
        backdrop_ = source();
    }
    return backdrop_;
}

void Canvas::paintEvent(QPaintEvent*) {
    const QPixmap& picture = backdrop();
    if (picture.isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture);
}

} // namespace tovarin::fw
