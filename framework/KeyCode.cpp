#include "framework/KeyCode.hpp"

#include "framework/HandlerGuard.hpp"

#include <QKeyEvent>
#include <QKeySequence>

#include <algorithm>
#include <vector>

namespace tovarin::fw {
namespace {

bool isModifierOnly(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
        return true;
    default:
        return false;
    }
}

std::vector<QKeyCombination>& menuShortcuts() {
    static std::vector<QKeyCombination> shortcuts;
    return shortcuts;
}

// Only what the menu bar binds is a shortcut; Ctrl+S or Ctrl+Shift+Z, which a
// text control would take for itself, must reach the filters and be refused.
bool isMenuShortcut(const QKeyEvent& event) {
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
    const auto& shortcuts = menuShortcuts();
    return std::find(shortcuts.begin(), shortcuts.end(), pressed) != shortcuts.end();
}

} // namespace

int keyCode(const QKeyEvent& event) {
    const int key = event.key();
    if (isModifierOnly(key) || isMenuShortcut(event))
        return -1;
    switch (key) {
    case Qt::Key_Backspace:
        return key::Backspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return key::Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return key::Return;
    case Qt::Key_Left:
        return key::LeftArrow;
    case Qt::Key_Right:
        return key::RightArrow;
    case Qt::Key_Up:
        return key::UpArrow;
    case Qt::Key_Down:
        return key::DownArrow;
    case Qt::Key_Delete:
        return key::ForwardDelete;
    default:
        break;
    }
    const QList<uint> typed = event.text().toUcs4();
    if (typed.size() != 1)
        return key::TypesNothing;
    const uint character = typed.front();
    // Control characters (Escape, Ctrl+letter) type nothing a filter could use.
    if (character < 0x20 || character == 0x7f)
        return key::TypesNothing;
    return static_cast<int>(character);
}

bool isContextMenuKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return (event.key() == Qt::Key_Menu && modifiers == Qt::NoModifier) ||
           (event.key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier);
}

void addMenuShortcut(const QKeySequence& shortcut) {
    if (shortcut.count() == 1)
        menuShortcuts().push_back(shortcut[0]);
}

bool offerKey(const KeyHandler& handler, const QKeyEvent& event) {
    const int code = keyCode(event);
    return code >= 0 && handler && runHandler([&] { return handler(code); });
}

} // namespace tovarin::fw
