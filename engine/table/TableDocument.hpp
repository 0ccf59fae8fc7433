#pragma once

#include "engine/table/TableStatistics.hpp"

#include <string>
#include <vector>

namespace tovarin {

// What every table format writes: the file it came from, the confidence level
// of the confidence set, and the rows in the order they are to be printed.
struct TableDocument {
    std::string file;
    double confidence = 0.95;
    std::vector<TableRow> rows;

    // The row of rank 1.
    const TableRow& best() const;
};

} // namespace tovarin
