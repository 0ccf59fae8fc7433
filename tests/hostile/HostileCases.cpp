#include "HostileCases.hpp"

#include "engine/Messages.hpp"

#include <fstream>
#include <sys/stat.h>
#include <system_error>

namespace tovarin::test {

namespace fs = std::filesystem;

namespace {

fs::path write(const fs::path& folder, const std::string& name, const std::string& bytes) {
    const fs::path file = folder / name;
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << bytes;
    out.close();
    if (!out) {
        throw std::system_error(errno, std::generic_category(), "writing " + file.string());
    }
    return file;
}

std::function<fs::path(const fs::path&)> content(std::string name, std::string bytes) {
    return [name = std::move(name), bytes = std::move(bytes)](const fs::path& folder) {
        return write(folder, name, bytes);
    };
}

std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

// Every byte value in order, four times: control bytes, both line ends,
// separators, and bytes that are no UTF-8.
std::string binaryBytes() {
    std::string bytes;
    for (int round = 0; round < 4; ++round) {
        for (int byte = 0; byte < 256; ++byte) {
            bytes += static_cast<char>(byte);
        }
    }
    return bytes;
}

std::string tenThousandLines() {
    std::string text;
    for (int i = 1; i <= 10000; ++i) {
        text += "Model" + std::to_string(i) + "\t" + std::to_string(1000 + i) + "\n";
    }
    return text;
}

std::vector<HostileCase> makeCases() {
    const std::string zero = kZeroBicMessage;
    const std::string noLow = kNoLowBicMessage;
    std::vector<HostileCase> cases;
    auto report = [&cases](std::string name, std::string count, std::string file, std::string bytes,
                           std::vector<std::string> messages, std::vector<std::string> has) {
        cases.push_back({std::move(name),
                         std::move(count),
                         content(std::move(file), std::move(bytes)),
                         Outcome::Report,
                         std::move(messages),
                         {},
                         std::move(has)});
    };

    // Nothing in the file: every model has an empty name and a BIC of 0.
    report("empty file", "3", "empty.txt", "", {zero}, {"+0.0"});
    report("binary file", "5", "binary.dat", binaryBytes(), {zero}, {"+0.0"});
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
    report("10,000 lines", "99", "many-lines.txt", tenThousandLines(), {},
           {"Model1 ", "Model99 ", "+1099.0"});

    cases.push_back({"1e400 everywhere",
                     "2",
                     content("all-overflow.txt", "A\t1e400\nB\t1e400\n"),
                     Outcome::NoLowBic,
                     {noLow},
                     {},
                     {}});
    // A device that never ends a line: the line-length limit stops it.
    cases.push_back({"endless line",
                     "2",
                     [](const fs::path&) { return fs::path("/dev/zero"); },
                     Outcome::FileError,
                     {},
                     "longer than",
                     {}});
    cases.push_back({"directory",
                     "2",
                     [](const fs::path& folder) {
                         fs::create_directories(folder / "a folder");
                         return folder / "a folder";
                     },
                     Outcome::FileError,
                     {},
                     "Is a directory",
                     {}});
    cases.push_back({"missing file",
                     "2",
                     [](const fs::path& folder) { return folder / "no-such-file.txt"; },
                     Outcome::Missing,
                     {},
                     {},
                     {}});
    // Opening a pipe that nothing writes to would wait for ever.
    cases.push_back({"named pipe",
                     "2",
                     [](const fs::path& folder) {
                         const fs::path pipe = folder / "pipe";
                         if (::mkfifo(pipe.c_str(), 0644) != 0) {
                             throw std::system_error(errno, std::generic_category(), "mkfifo");
                         }
                         return pipe;
                     },
                     Outcome::FileError,
                     {},
                     "named pipe",
                     {}});
    cases.push_back({"no read permission",
                     "2",
                     [](const fs::path& folder) {
                         const fs::path file = write(folder, "locked.txt", "A\t1\nB\t2\n");
                         fs::permissions(file, fs::perms::owner_write);
                         return file;
                     },
                     Outcome::FileError,
                     {},
                     "Permission denied",
                     {},
                     true});
    return cases;
}

} // namespace

const std::vector<HostileCase>& hostileCases() {
    static const std::vector<HostileCase> cases = makeCases();
    return cases;
}

int reportRowCount(std::string_view text) {
    // A rule line is 63 en dashes.
    const std::string rule = repeated("–", 63);
    std::size_t lineStart = 0;
    int line = 0;
    std::vector<int> ruleLines;
    while (lineStart <= text.size()) {
        std::size_t end = text.find('\n', lineStart);
        if (end == std::string_view::npos) {
            end = text.size();
        }
        if (text.substr(lineStart, end - lineStart) == rule) {
            ruleLines.push_back(line);
        }
        ++line;
        lineStart = end + 1;
    }
    // Each report has three rules: above and below the heading, below the rows.
    if (ruleLines.empty() || ruleLines.size() % 3 != 0) {
        return -1;
    }
    const std::size_t last = ruleLines.size() - 3;
    return ruleLines[last + 2] - ruleLines[last + 1] - 1;
}

} // namespace tovarin::test
