#pragma once

namespace tovarin::fw {

// Shows the exception being handled (inside a catch block) to the user, as a
// failure that nothing handled.
void reportCurrentException();

// Runs one of the program's handlers. A failure must not unwind through Qt's
// event delivery, which is not exception safe; it is reported where it
// happened and the event counts as dealt with, so the application goes on.
template <class Handler> bool runHandler(Handler&& handler) {
    try {
        return static_cast<bool>(handler());
    } catch (...) {
        reportCurrentException();
    }
    return true;
}

template <class Action> void runAction(Action&& action) {
    try {
        action();
    } catch (...) {
        reportCurrentException();
    }
}

} // namespace tovarin::fw
