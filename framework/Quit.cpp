#include "framework/Quit.hpp"

#include <QCoreApplication>

namespace tovarin::fw {

void quit(int exitValue) {
    // exit() rather than quit(): quit() asks every window to close first, and a
    // window that hides itself on close would veto the end of the run.
    QCoreApplication::exit(exitValue);
}

} // namespace tovarin::fw
