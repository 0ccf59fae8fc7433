#include "engine/DataFileReader.hpp"

#include "text/Fields.hpp"
#include "text/Utf8.hpp"
#include "text/Val.hpp"

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

void splitDataLine(std::string_view line, ModelRow& row) {
    const std::string commas = ReplaceAll(ReplaceAll(line, "\t", ","), systemLineEnd(), ",");
    row.name = NthField(commas, ",", 1);
    row.bicText = NthField(commas, ",", 2);
}

void readModels(LineReader& reader, ModelSet& set) {
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        splitDataLine(reader.readLine(), set.row(i));
    }
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        ModelRow& row = set.row(i);
        row.name = Left(row.name, kNameCharacters);
        row.bic = Val(row.bicText);
    }
}

} // namespace tovarin
