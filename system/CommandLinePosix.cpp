#include "system/CommandLine.hpp"

namespace tovarin::sys {

std::vector<std::string> commandLineArguments(int argc, char** argv) {
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

} // namespace tovarin::sys
