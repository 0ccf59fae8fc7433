#include "framework/Controls.hpp"

#include "framework/Platform.hpp"

#include <QMouseEvent>

#include <exception>

namespace tovarin::fw {

PushButton::PushButton(QWidget* parent) : QPushButton(parent) {}

// A failure must not unwind through Qt's event delivery, which is not exception
// safe: the event's own bookkeeping would be left behind. It is reported here,
// as the application reports what reaches it, and the press counts as handled.
bool PushButton::pressHandled(QPoint at) {
    try {
        return mouseDown_(at.x(), at.y());
    } catch (const std::exception& failure) {
        reportUnhandledFailure(QString::fromUtf8(failure.what()));
    } catch (...) {
        reportUnhandledFailure(QStringLiteral("An unknown failure occurred."));
    }
    return true;
}

void PushButton::mousePressEvent(QMouseEvent* event) {
    // The work happens at the press; the button then tracks the mouse as usual
    // unless the handler took the press over.
    if (event->button() == Qt::LeftButton && mouseDown_) {
        const QPoint at = event->position().toPoint();
        if (pressHandled(at)) {
            event->accept();
            return;
        }
    }
    QPushButton::mousePressEvent(event);
}

} // namespace tovarin::fw
