#include "HostileCases.hpp"

#include "engine/Messages.hpp"

#include <fstream>
#include <random>
#include <sys/stat.h>
#include <system_error>

namespace tovarin::test {

namespace fs = std::filesystem;

namespace {

fs::path write(const fs::path& file, const std::string& bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << bytes;
    out.close();
    if (!out)
        throw std::system_error(errno, std::generic_category(), "writing " + file.string());
    return file;
}

MakeFile content(std::string name, std::string bytes) {
    return [name = std::move(name), bytes = std::move(bytes)](const fs::path& folder) {
        return write(folder / name, bytes);
    };
}

std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += piece;
    return text;
}

std::vector<HostileCase> makeCases() {
    const std::string zero = kZeroBicMessage;
    std::vector<HostileCase> cases;
    const auto add = [&cases](std::string name, std::string count, MakeFile make,
                              Outcome outcome) -> HostileCase& {
        return cases.emplace_back(
            HostileCase{std::move(name), std::move(count), std::move(make), outcome, {}, {}, {}});
    };
    const auto report = [&add](std::string name, std::string count, std::string file,
                               std::string bytes, std::vector<std::string> messages,
                               std::vector<std::string> has) {
        HostileCase& added = add(std::move(name), std::move(count),
                                 content(std::move(file), std::move(bytes)), Outcome::Report);
        added.messages = std::move(messages);
        added.reportHas = std::move(has);
    };
    const auto refused = [&add](std::string name, MakeFile make, std::string reason,
                                bool asOrdinaryUser = false) {
        HostileCase& added = add(std::move(name), "2", std::move(make), Outcome::FileError);
        added.reason = std::move(reason);
        added.asOrdinaryUser = asOrdinaryUser;
    };
    // Every byte value in order, four times: control bytes, both line ends,
    // separators, and bytes that are no UTF-8.
    std::string binary;
    for (int i = 0; i < 4 * 256; ++i)
        binary += static_cast<char>(i % 256);
    std::string manyLines;
    for (int i = 1; i <= 10000; ++i)
        manyLines += "Model" + std::to_string(i) + "\t" + std::to_string(1000 + i) + "\n";

    // Nothing in the file: every model has an empty name and a BIC of 0.
    report("empty file", "3", "empty.txt", "", {zero}, {"+0.0"});
    report("binary file", "5", "binary.dat", binary, {zero}, {"+0.0"});
    report("NUL bytes", "3", "nul.txt", std::string("Al\0pha\t10\n\0\0\t20\nGamma\t30\0x\n", 26),
           {}, {"Gamma", "+10.0", "+20.0", "+30.0"});
    report("invalid UTF-8", "3", "latin1.txt",
           "\xff\xfe"
           "Alpha\t10\n\xc3(Beta\t20\n\xe2\x82Gam\xed\xa0\x80\t30\n",
           {}, {"+10.0", "+20.0", "+30.0"});
    // A byte order mark is no line end and no separator: it stays part of the first name.
    report("byte order mark", "2", "bom.txt",
           "\xef\xbb\xbf"
           "Alpha\t10\nBeta\t20\n",
           {},
           {"\xef\xbb\xbf"
            "Alpha",
            "+10.0", "+20.0"});
    report("only CRs", "4", "crs.txt", std::string(1000, '\r'), {zero}, {"+0.0"});
    report("CR line ends", "2", "classic-mac.txt", "Alpha\t10\rBeta\t20\r", {},
           {"Alpha", "Beta", "+20.0"});
    report("line of 50 MB", "2", "long-line.txt",
           "Alpha\t10\n" + std::string(50'000'000, 'B') + "\t20\n", {},
           {"Alpha", "BBBBBBBB ", "+20.0"});
    report("1e400", "2", "overflow.txt", "Big\t1e400\nSmall\t20\n", {},
           {"+inf", ">99999", "<.0001", "+20.0"});
    report("-1e400", "2", "negative-overflow.txt", "Neg\t-1e400\nSmall\t20\n", {zero},
           {"-inf", "+20.0"});
    // Val knows no words: both read as 0.
    report("nan and inf", "3", "words.txt", "A\tnan\nB\tinf\nC\t20\n", {zero}, {"+0.0", "+20.0"});
    report("denormal", "2", "denormal.txt", "Tiny\t4.9e-324\nSmall\t20\n", {zero},
           {"Tiny", "+0.0", "+20.0"});
    report("5,000 digits", "3", "digits.txt",
           "Huge\t1" + std::string(4999, '0') + "\nExact\t12." + std::string(4998, '0') +
               "1\nSmall\t20\n",
           {}, {"+inf", "+12.0", "+20.0"});
    report("names of 10,000 characters", "2", "long-names.txt",
           std::string(10000, 'N') + "\t10\n" + repeated("é", 10000) + "\t20\n", {},
           {"NNNNNNNN ", "éééééééé ", "+10.0", "+20.0"});
    report("10,000 lines", "99", "many-lines.txt", manyLines, {},
           {"Model1 ", "Model99 ", "+1099.0"});

    add("1e400 everywhere", "2", content("all-overflow.txt", "A\t1e400\nB\t1e400\n"),
        Outcome::NoLowBic)
        .messages = {kNoLowBicMessage};
    add(
        "missing file", "2", [](const fs::path& folder) { return folder / "no-such-file.txt"; },
        Outcome::Missing);
    // A device that never ends a line: the line-length limit stops it.
    refused(
        "endless line", [](const fs::path&) { return fs::path("/dev/zero"); }, "longer than");
    refused(
        "directory",
        [](const fs::path& folder) {
            fs::create_directories(folder / "a folder");
            return folder / "a folder";
        },
        "Is a directory");
    // Opening a pipe that nothing writes to would wait for ever.
    refused(
        "named pipe",
        [](const fs::path& folder) {
            if (::mkfifo((folder / "pipe").c_str(), 0644) != 0)
                throw std::system_error(errno, std::generic_category(), "mkfifo");
            return folder / "pipe";
        },
        "named pipe");
    refused(
        "no read permission",
        [](const fs::path& folder) {
            const fs::path file = write(folder / "locked.txt", "A\t1\nB\t2\n");
            fs::permissions(file, fs::perms::owner_write);
            return file;
        },
        "Permission denied", true);
    return cases;
}

} // namespace

const std::vector<HostileCase>& hostileCases() {
    static const std::vector<HostileCase> cases = makeCases();
    return cases;
}

int reportRowCount(std::string_view text) {
    // A rule line is 63 en dashes. Each report has three: above and below
    // the heading, and below the rows.
    const std::string rule = repeated("–", 63);
    std::vector<int> rules;
    int line = 0;
    for (std::size_t start = 0; start <= text.size(); ++line) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        if (text.substr(start, end - start) == rule)
            rules.push_back(line);
        start = end + 1;
    }
    if (rules.empty() || rules.size() % 3 != 0)
        return -1;
    return rules[rules.size() - 1] - rules[rules.size() - 2] - 1;
}

HostileFolder::HostileFolder() {
    std::random_device seed;
    path_ = fs::temp_directory_path() /
            ("tovarin-hostile-" + std::to_string(seed()) + std::to_string(seed()));
    fs::create_directories(path_);
    fs::permissions(path_, fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
}

HostileFolder::~HostileFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

} // namespace tovarin::test
