#include "framework/Controls.hpp"

#include <QMouseEvent>

namespace tovarin::fw {

PushButton::PushButton(QWidget* parent) : QPushButton(parent) {}

void PushButton::mousePressEvent(QMouseEvent* event) {
    // The work happens at the press; the button then tracks the mouse as usual
    // unless the handler took the press over.
    if (event->button() == Qt::LeftButton && mouseDown_) {
        const QPoint at = event->position().toPoint();
        if (mouseDown_(at.x(), at.y())) {
            event->accept();
            return;
        }
    }
    QPushButton::mousePressEvent(event);
}

} // namespace tovarin::fw
