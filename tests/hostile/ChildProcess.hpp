#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tovarin::test {

struct ChildResult {
    bool finished = false;    // false: killed at the deadline
    bool switchedUser = true; // false: the ordinary user could not be taken on
    int status = -1;          // exit status, or 128 + signal
    std::string out;
    std::string err;
    long maxResidentKiB = 0;
};

// Runs `program` with `args`, collecting both outputs, and kills it when it
// outlives `deadline`. With `asUserId` set, the child takes on that user and
// group before it starts (only possible for the superuser).
ChildResult runChild(const std::string& program, const std::vector<std::string>& args,
                     std::chrono::seconds deadline, int asUserId = -1);

} // namespace tovarin::test
