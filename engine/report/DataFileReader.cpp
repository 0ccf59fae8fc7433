#include "engine/report/DataFileReader.hpp"

#include "engine/report/LineEnd.hpp"
#include "text/Fields.hpp"
#include "text/Utf8.hpp"
#include "text/Val.hpp"

#include <algorithm>

namespace tovarin {

void splitDataLine(std::string& line, ModelRow& row) {
    const std::string& systemEnd = defaultTextLineEnd();
    if (systemEnd.size() == 1) {
        // Every separator is then one character: the first two fields are
        // found in one scan that stops behind the second, replacing nothing.
        const char end = systemEnd.front();
        const auto isSeparator = [end](char c) { return c == ',' || c == '\t' || c == end; };
        const auto nameEnd = std::find_if(line.cbegin(), line.cend(), isSeparator);
        row.name.assign(line.cbegin(), nameEnd);
        if (nameEnd == line.cend()) {
            row.bicText.clear();
            return;
        }
        row.bicText.assign(nameEnd + 1, std::find_if(nameEnd + 1, line.cend(), isSeparator));
        return;
    }
    std::replace(line.begin(), line.end(), '\t', ',');
    line = ReplaceAll(line, systemEnd, ",");
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
        row.name.erase(Left(row.name, kNameCharacters).size());
        row.bic = Val(row.bicText);
    }
}

} // namespace tovarin
