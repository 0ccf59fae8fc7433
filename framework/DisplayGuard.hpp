#pragma once

#include <QtGlobal>

namespace tovarin::fw {

// Held while the application object is made. If Qt cannot reach the windowing
// system there (a display that is named but not running), the process ends at
// once with exit status 1 and one line on standard error that names the
// program and Qt's reason, instead of Qt's abort and its page of advice. Qt's
// other messages meanwhile are held back and passed on when the guard goes.
class DisplayGuard {
public:
    explicit DisplayGuard(const char* programName);
    ~DisplayGuard();
    DisplayGuard(const DisplayGuard&) = delete;
    DisplayGuard& operator=(const DisplayGuard&) = delete;

private:
    QtMessageHandler previous_;
};

} // namespace tovarin::fw
