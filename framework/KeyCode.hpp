#pragma once

#include <functional>

class QKeyEvent;
class QKeySequence;

namespace tovarin::fw {

// The codes a key filter sees that are no character of their own; a printable
// character is its own code (its Unicode value), so filters compare codes
// with these and with characters alike.
namespace key {
enum Code : int {
    Backspace = 8,
    Tab = 9,     // Shift+Tab too
    Return = 13, // Enter too
    LeftArrow = 28,
    RightArrow = 29,
    UpArrow = 30,
    DownArrow = 31,
    Space = ' ',
    FullStop = '.',
    ForwardDelete = 127,
    // Keys that type nothing a filter could use (Escape, F1, Ctrl+S): above
    // every character, so no filter accepts them.
    TypesNothing = 0x110000,
};
} // namespace key

// The code a key filter sees for a key event: one of key::Code, or the
// character the key types. Returns -1 for events that are not keys a filter
// sees: modifier keys alone and the shortcuts of the menu bar. Any other
// command-key combination is a key like others (one that types nothing), so a
// filter refuses it.
int keyCode(const QKeyEvent& event);

// True for the keys that open a text control's context menu: the Menu key and
// Shift+F10.
bool isContextMenuKey(const QKeyEvent& event);

// Makes a shortcut of the menu bar known, so that it passes the key filters
// and reaches the menu or the text control that answers it.
void addMenuShortcut(const QKeySequence& shortcut);

// A key handler gets the key code and returns true when the key is dealt with
// and must go no further.
using KeyHandler = std::function<bool(int code)>;

// Offers a key event to a control's handler, if it has one and the event is a
// key filters see. Returns true when the key is dealt with; a handler that
// fails has its failure reported and the key counts as dealt with.
bool offerKey(const KeyHandler& handler, const QKeyEvent& event);

} // namespace tovarin::fw
