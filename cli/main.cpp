#include "cli/OutputBuffer.hpp"
#include "cli/ReportCommand.hpp"

#include <clocale>
#include <csignal>
#include <cstring>
#include <iostream>
#include <unistd.h>

int main(int argc, char** argv) {
    // The date in the report's head follows the user's locale; numbers don't
    // depend on it.
    std::setlocale(LC_ALL, "");
    // A closed pipe must end in a message and an exit status, not a silent death.
    std::signal(SIGPIPE, SIG_IGN);
    tovarin::OutputBuffer buffer(STDOUT_FILENO);
    std::ostream out(&buffer);
    // Hints are for a person reading the terminal; scripts see the messages alone.
    const tovarin::ExitStatus status =
        tovarin::reportCommand(std::vector<std::string>(argv + 1, argv + argc), out, std::cerr,
                               ::isatty(STDERR_FILENO) == 1);
    out.flush();
    if (buffer.error() != 0) {
        std::cerr << "tovarin-report: cannot write the output: " << std::strerror(buffer.error())
                  << '\n';
        return static_cast<int>(tovarin::ExitStatus::OutputFailed);
    }
    return static_cast<int>(status);
}
