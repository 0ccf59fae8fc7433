// Any bytes as a data file for the table formats, read with the separator
// and scale its first byte picks: either a refusal with a line number inside
// the file, or a table whose numbers hold together, ties marked alike,
// written in every format. The CSV is read back and must give each row's
// fields again.
#include "engine/table/DelimitedTableWriter.hpp"
#include "engine/table/JsonTableWriter.hpp"
#include "engine/table/ModelTableReader.hpp"
#include "engine/table/PaperTableWriter.hpp"
#include "engine/table/TableStatistics.hpp"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tovarin;

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "invariant broken: %s\n", what);
    std::abort();
}

void check(bool ok, const char* what) {
    if (!ok)
        fail(what);
}

// The fields of one RFC 4180 record starting at `at`; moves `at` past its CR LF.
std::vector<std::string> readCsvRecord(std::string_view csv, std::size_t& at) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    while (at < csv.size()) {
        const char c = csv[at++];
        if (quoted) {
            if (c != '"')
                fields.back() += c;
            else if (at < csv.size() && csv[at] == '"')
                fields.back() += csv[at++];
            else
                quoted = false;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields.emplace_back();
        } else if (c == '\r' && at < csv.size() && csv[at] == '\n') {
            ++at;
            return fields;
        } else {
            fields.back() += c;
        }
    }
    fail("CSV record without its line end");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    TableReadOptions options;
    options.separator = static_cast<FieldSeparator>(data[0] % 5);
    const EvidenceScale scale = data[0] & 0x10U ? EvidenceScale::Jeffreys : EvidenceScale::Raftery;
    ModelTableRead read;
    try {
        read = readModelTable(text, options);
    } catch (const TableReadError& error) {
        check(error.line() >= 1 && error.line() <= static_cast<std::int64_t>(size) + 1,
              "refusal outside the file");
        return 0;
    }
    if (read.models.empty())
        return 0;

    TableDocument table;
    table.file = "fuzz.txt";
    table.scale = scale;
    table.rows = computeTable(read.models, 0.95, scale);
    const std::vector<TableRow>& rows = table.rows;
    check(rows.size() == read.models.size(), "a row lost or added");
    check(rows.front().deltaBic == 0.0 && rows.front().inConfidenceSet, "rank 1 is no best model");
    double previous = 0.0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const TableRow& row = rows[i];
        check(row.rank == static_cast<std::int64_t>(i) + 1, "ranks out of order");
        check(std::isfinite(row.bic) && row.deltaBic >= 0.0, "a difference below the best");
        check(row.weight >= 0.0 && row.weight <= 1.0, "a weight outside [0, 1]");
        check(row.cumulativeWeight >= previous && row.cumulativeWeight <= 1.0 + 1e-12,
              "cumulative weight not rising to 1");
        previous = row.cumulativeWeight;
        const TableRow& top = rows.front();
        check((row.bic == top.bic) == (row.evidence == Evidence::BestModel),
              "best model and lowest BIC part ways");
        check(i == 0 || row.bic != rows[i - 1].bic ||
                  row.inConfidenceSet == rows[i - 1].inConfidenceSet,
              "a tie split across the confidence set's edge");
    }

    std::ostringstream stream;
    {
        TextSink sink(stream);
        writeJsonTable(sink, table);
        writeTsvTable(sink, table);
    }
    std::string out = stream.str();
    writeMarkdownTable(out, table);
    std::vector<TableNote> notes;
    writeLatexTable(out, table, notes);
    std::ostringstream csvStream;
    {
        TextSink sink(csvStream);
        writeCsvTable(sink, table);
    }
    const std::string csv = csvStream.str();
    std::size_t at = 0;
    const std::size_t columns = readCsvRecord(csv, at).size();
    for (const TableRow& row : rows) {
        const std::vector<std::string> fields = readCsvRecord(csv, at);
        check(fields.size() == columns, "a CSV row of another width");
        check(fields[1] == row.name, "a name that does not read back from the CSV");
    }
    check(at == csv.size(), "CSV text after the last row");
    check(out.find("\\begin{tabular}") != std::string::npos, "no LaTeX table");
    return 0;
}
