#include "framework/TextField.hpp"

#include <QKeyEvent>

namespace tovarin::fw {

TextField::TextField(QWidget* parent) : QLineEdit(parent) {}

void TextField::keyPressEvent(QKeyEvent* event) {
    if (offerKey(keyDown_, *event)) {
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace tovarin::fw
