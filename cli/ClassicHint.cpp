#include "cli/ClassicHint.hpp"

#include "engine/report/ModelSet.hpp"
#include "engine/table/ModelTableReader.hpp"
#include "text/Utf8.hpp"

#include <algorithm>
#include <map>

namespace tovarin {

namespace {

std::string at(const std::string& file, std::int64_t line) {
    return file + ":" + std::to_string(line) + ": ";
}

} // namespace

std::optional<std::string> classicHint(std::string_view text, std::int64_t count,
                                       const std::string& file) {
    const std::string careful = " (--format report " + file + " reads it carefully)";
    ModelTableRead read;
    try {
        read = readModelTable(text);
    } catch (const TableReadError& error) {
        return at(file, error.line()) + error.what() + careful;
    }
    if (read.headerLine != 0) {
        return at(file, read.headerLine) + "looks like a header line, read as a model" + careful;
    }
    if (read.firstSemicolonLine != 0) {
        return at(file, read.firstSemicolonLine) +
               "separates its fields with a semicolon, which this form reads as part of the name" +
               careful;
    }
    if (read.firstDecimalCommaLine != 0) {
        return at(file, read.firstDecimalCommaLine) +
               "writes a number with a decimal comma, which this form cuts off at the comma" +
               careful;
    }
    if (std::ssize(read.models) != count) {
        return file + ": " + std::to_string(read.models.size()) + " model lines, but COUNT is " +
               std::to_string(count) + careful;
    }
    std::map<std::string, const TableModel*> byCut;
    for (const TableModel& model : read.models) {
        const auto [seen, fresh] = byCut.emplace(Left(model.name, kNameCharacters), &model);
        if (!fresh && seen->second->name != model.name) {
            return at(file, model.line) + "\"" + std::string(model.name) + "\" and \"" +
                   std::string(seen->second->name) + "\" (line " +
                   std::to_string(seen->second->line) + ") both print as \"" + seen->first +
                   "\" (a table format keeps whole names)";
        }
    }
    return std::nullopt;
}

} // namespace tovarin
