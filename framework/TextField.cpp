#include "framework/TextField.hpp"

#include "framework/Window.hpp"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>

namespace tovarin::fw {

TextField::TextField(QWidget* parent) : QLineEdit(parent) {}

void TextField::keyPressEvent(QKeyEvent* event) {
    // Where the platform makes no context menu event of these keys, the control does.
    if (isContextMenuKey(*event) && popUpTextMenu(*this, mapToGlobal(cursorRect().center()))) {
        event->accept();
        return;
    }
    if (offerKey(keyDown_, *event)) {
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void TextField::contextMenuEvent(QContextMenuEvent* event) {
    if (!popUpTextMenu(*this, event->globalPos()))
        QLineEdit::contextMenuEvent(event);
}

void TextField::focusOutEvent(QFocusEvent* event) {
    // The menu bar takes the focus while it is worked from the keyboard; the
    // selection stays for its edit items, as it does for a menu opened by the mouse.
    if (event->reason() == Qt::MenuBarFocusReason) {
        QFocusEvent kept(QEvent::FocusOut, Qt::PopupFocusReason);
        QLineEdit::focusOutEvent(&kept);
        return;
    }
    QLineEdit::focusOutEvent(event);
}

} // namespace tovarin::fw
