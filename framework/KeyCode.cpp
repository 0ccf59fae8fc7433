#include "framework/KeyCode.hpp"

#include "framework/HandlerGuard.hpp"

#include <QKeyEvent>
#include <QKeySequence>

#include <algorithm>
#include <vector>

namespace tovarin::fw {
namespace {

// A key code that no filter accepts: outside Unicode, above every ASCII code.
constexpr int kTypesNothing = 0x110000;

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
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Left:
        return 28;
    case Qt::Key_Right:
        return 29;
    case Qt::Key_Up:
        return 30;
    case Qt::Key_Down:
        return 31;
    case Qt::Key_Delete:
        return 127;
    default:
        break;
    }
    const QList<uint> typed = event.text().toUcs4();
    if (typed.size() != 1)
        return kTypesNothing;
    const uint character = typed.front();
    // Control characters (Escape, Ctrl+letter) type nothing a filter could use.
    if (character < 0x20 || character == 0x7f)
        return kTypesNothing;
    return static_cast<int>(character);
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
