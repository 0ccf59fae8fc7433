#pragma once

#include "engine/table/TableColumns.hpp"
#include "engine/table/TableStatistics.hpp"

#include <string>
#include <vector>

namespace tovarin {

// What every table format writes: the file it came from, the confidence level
// of the confidence set, the scale that grades the evidence, the rows in the
// order they are to be printed and the columns in theirs. A paper table adds
// a caption (its own when empty) and LaTeX a label.
struct TableDocument {
    std::string file;
    double confidence = 0.95;
    std::vector<TableRow> rows;
    std::vector<Column> columns = defaultColumns(false);
    EvidenceScale scale = EvidenceScale::Raftery;
    std::string caption;
    std::string label;
    // The rows' names one after another, once gatherNames has put them there.
    std::vector<char> names;

    // Copies the rows' names into `names` in the rows' order and points the
    // rows at the copies. A table of a million models, sorted, would otherwise
    // read its names from all over the text of the file, a cache miss each;
    // this way they are read front to back, and the text may go.
    void gatherNames();
    // The row of rank 1.
    const TableRow& best() const;
    // Every row at the lowest BIC, in rank order: the best model and its twins.
    std::vector<const TableRow*> tiedBest() const;
};

} // namespace tovarin
