#include "framework/PushButton.hpp"

#include "framework/HandlerGuard.hpp"

#include <QGuiApplication>
#include <QMouseEvent>

namespace tovarin::fw {

PushButton::PushButton(QWidget* parent) : QPushButton(parent) {
    connect(this, &QAbstractButton::pressed, this, &PushButton::pressedWithoutMouse);
}

// A failure of the handler is reported at the press, which then counts as handled.
bool PushButton::pressHandled(QPoint at) {
    return runHandler([&] { return mouseDown_(at.x(), at.y()); });
}

void PushButton::mousePressEvent(QMouseEvent* event) {
    // The work happens at the press; the button then tracks the mouse as usual
    // unless the handler took the press over. A handler that ran a modal dialog
    // (the file chooser) has seen the release go to that dialog: passing the
    // press on then would leave the button drawn down with no release to come.
    if (event->button() == Qt::LeftButton && mouseDown_) {
        const QPoint at = event->position().toPoint();
        const bool handled = pressHandled(at);
        const bool stillHeld = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
        if (handled || !stillHeld) {
            event->accept();
            return;
        }
    }
    mousePressing_ = true;
    QPushButton::mousePressEvent(event);
    mousePressing_ = false;
}

void PushButton::pressedWithoutMouse() {
    if (mousePressing_ || !mouseDown_)
        return;
    // Run from the event loop, while the button is still drawn down: the
    // assistive technology that pressed gets its answer at once instead of
    // waiting, unable to read, until a dialog the handler opens is closed.
    QMetaObject::invokeMethod(
        this, [this] { pressHandled(rect().center()); }, Qt::QueuedConnection);
}

} // namespace tovarin::fw
