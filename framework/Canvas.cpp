#include "framework/Controls.hpp"

#include <QPainter>

namespace tovarin::fw {

Label::Label(QWidget* parent) : QLabel(parent) {}

Canvas::Canvas(QWidget* parent) : QWidget(parent) {}

void Canvas::setBackdrop(const QPixmap& picture) {
    backdrop_ = picture;
    update();
}

void Canvas::paintEvent(QPaintEvent*) {
    if (backdrop_.isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(0, 0, backdrop_);
}

} // namespace tovarin::fw
