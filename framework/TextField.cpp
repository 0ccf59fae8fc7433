#include "framework/TextField.hpp"

#include "framework/HandlerGuard.hpp"

#include <QKeyEvent>

namespace tovarin::fw {

TextField::TextField(QWidget* parent) : QLineEdit(parent) {}

void TextField::keyPressEvent(QKeyEvent* event) {
    const int code = keyCode(*event);
    if (code >= 0 && keyDown_ && runHandler([&] { return keyDown_(code); })) {
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace tovarin::fw
