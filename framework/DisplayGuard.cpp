#include "framework/DisplayGuard.hpp"

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <vector>

namespace tovarin::fw {
namespace {

// A message and where it came from; the context's texts are Qt's literals,
// which outlive the guard.
struct Held {
    QtMsgType type;
    const char* file;
    int line;
    const char* function;
    const char* category;
    QString text;
};

std::mutex guardMutex;
const char* guardedProgram = nullptr;
std::vector<Held> held;

void holdOrEnd(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const std::lock_guard lock(guardMutex);
    if (type != QtFatalMsg) {
        held.push_back(
            {type, context.file, context.line, context.function, context.category, text});
        return;
    }
    // The platform plugins say what went wrong (such as "could not connect to
    // display :999") before the fatal message, which only says that none
    // could start.
    QString reason = text;
    for (const Held& message : held) {
        if (message.type == QtWarningMsg || message.type == QtCriticalMsg) {
            reason = message.text;
            break;
        }
    }
    std::fprintf(stderr, "%s: cannot open the display: %s\n", guardedProgram,
                 qPrintable(reason.simplified()));
    std::fflush(stderr);
    std::_Exit(1);
}

} // namespace

DisplayGuard::DisplayGuard(const char* programName) {
    const std::lock_guard lock(guardMutex);
    guardedProgram = programName;
    previous_ = qInstallMessageHandler(holdOrEnd);
}

DisplayGuard::~DisplayGuard() {
    std::vector<Held> messages;
    {
        const std::lock_guard lock(guardMutex);
        qInstallMessageHandler(previous_);
        messages.swap(held);
    }
    for (const Held& message : messages) {
        const QMessageLogContext context(message.file, message.line, message.function,
                                         message.category);
        qt_message_output(message.type, context, message.text);
    }
}

} // namespace tovarin::fw
