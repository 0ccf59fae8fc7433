#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tovarin::test {

// What a run of a hostile data file must come to, in the command-line tool
// and in the window alike.
enum class Outcome {
    Report,    // a report, after the messages listed, if any
    NoLowBic,  // the message for no low BIC and no report
    FileError, // an error naming the file and the reason; no report
    Missing,   // the file is not there: the tool says so, the window does nothing
};

// Makes the data file in the given folder, or names one outside it.
using MakeFile = std::function<std::filesystem::path(const std::filesystem::path& folder)>;

struct HostileCase {
    std::string name;
    std::string count;
    MakeFile make;
    Outcome outcome;
    std::vector<std::string> messages;  // shown in this order; none for FileError and Missing
    std::string reason;                 // part of the reason (FileError)
    std::vector<std::string> reportHas; // texts the report holds (Report)
    // Refused by permission bits, which the superuser passes: the run must be
    // made with the rights of an ordinary user.
    bool asOrdinaryUser = false;
};

// Test output names a case by its name.
inline void PrintTo(const HostileCase& hostile, std::ostream* out) {
    *out << hostile.name;
}

// Every hostile file with its outcome. The files are made when a test asks.
const std::vector<HostileCase>& hostileCases();

// The report rows in `text`: the lines between the second and the third rule
// line of the last report in it. -1 when there is no complete report.
int reportRowCount(std::string_view text);

// A fresh folder, removed with its contents. Everyone may enter it, so that
// the ordinary user of the permission case is stopped by the file's own bits.
class HostileFolder {
public:
    HostileFolder();
    ~HostileFolder();
    HostileFolder(const HostileFolder&) = delete;
    HostileFolder& operator=(const HostileFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// The user and group that runs as an ordinary user for the permission case.
inline constexpr unsigned kOrdinaryUserId = 65534; // nobody

} // namespace tovarin::test
