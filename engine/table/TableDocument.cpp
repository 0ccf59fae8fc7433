#include "engine/table/TableDocument.hpp"

#include <algorithm>

namespace tovarin {

const TableRow& TableDocument::best() const {
    return *std::find_if(rows.begin(), rows.end(),
                         [](const TableRow& row) { return row.rank == 1; });
}

} // namespace tovarin
