#include "engine/DataFileReader.hpp"

#include "text/Fields.hpp"
#include "text/Utf8.hpp"
#include "text/Val.hpp"

#include <algorithm>

namespace tovarin {

namespace {

constexpr std::int64_t kNameCharacters = 8;

} // namespace

const std::string& systemLineEnd() {
#if defined(_WIN32)
    static const std::string lineEnd = "\r\n";
#else
    static const std::string lineEnd = "\n";
#endif
    return lineEnd;
}

// Replacing one character by one character in place is what ReplaceAll does
// for it, without a copy per line.
void splitDataLine(std::string& line, ModelRow& row) {
    const std::string& systemEnd = systemLineEnd();
    if (systemEnd.size() == 1) {
        const char end = systemEnd.front();
        for (char& c : line) {
            if (c == '\t' || c == end) {
                c = ',';
            }
        }
    } else {
        std::replace(line.begin(), line.end(), '\t', ',');
        line = ReplaceAll(line, systemEnd, ",");
    }
    row.name = NthField(line, ",", 1);
    row.bicText = NthField(line, ",", 2);
}

void readModels(LineReader& reader, ModelSet& set) {
    std::string line;
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        reader.readLine(line);
        splitDataLine(line, set.row(i));
    }
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        ModelRow& row = set.row(i);
        row.name = Left(row.name, kNameCharacters);
        row.bic = Val(row.bicText);
    }
}

} // namespace tovarin
