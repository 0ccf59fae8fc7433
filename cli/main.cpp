#include "cli/ReportCommand.hpp"

#include <clocale>
#include <iostream>

int main(int argc, char** argv) {
    // The date in the report's head follows the user's locale; numbers don't
    // depend on it.
    std::setlocale(LC_ALL, "");
    return tovarin::reportCommand(std::vector<std::string>(argv + 1, argv + argc), std::cout,
                                  std::cerr);
}
