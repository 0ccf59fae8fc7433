#include "cli/OutputBuffer.hpp"
#include "cli/ReportCommand.hpp"
#include "system/CommandLine.hpp"
#include "system/Console.hpp"

#include <clocale>
#include <cstring>
#include <iostream>

int main(int argc, char** argv) {
    // The date in the report's head follows the user's locale; numbers don't
    // depend on it.
    std::setlocale(LC_ALL, "");
    // The bytes out are the bytes meant, and a closed pipe must end in a
    // message and an exit status, not a silent death.
    tovarin::sys::prepareStandardStreams();
    tovarin::OutputBuffer buffer;
    std::ostream out(&buffer);
    // Hints are for a person reading the terminal; scripts see the messages alone.
    const tovarin::ExitStatus status =
        tovarin::reportCommand(tovarin::sys::commandLineArguments(argc, argv), out, std::cerr,
                               tovarin::sys::standardErrorIsTerminal());
    out.flush();
    if (buffer.error() != 0) {
        std::cerr << "tovarin-report: cannot write the output: " << std::strerror(buffer.error())
                  << '\n';
        return static_cast<int>(tovarin::ExitStatus::OutputFailed);
    }
    return static_cast<int>(status);
}
