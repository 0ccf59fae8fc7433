#pragma once

#include <functional>

class QKeyEvent;
class QKeySequence;

namespace tovarin::fw {

// The code a key filter sees for a key event: 8 Backspace, 9 Tab, 13 Return and
// Enter, 28-31 the arrows (left, right, up, down), 127 Forward Delete, a
// printable ASCII character its own code; anything outside ASCII gives a code
// above 127 (its Unicode value, or 0x110000 for keys that type nothing).
// Returns -1 for events that are not keys a filter sees: modifier keys alone
// and the shortcuts of the menu bar. Any other command-key combination is a
// key like others (one that types nothing), so a filter refuses it.
int keyCode(const QKeyEvent& event);

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
