#include "engine/table/TableDocument.hpp"

#include <algorithm>

namespace tovarin {

void TableDocument::gatherNames() {
    std::size_t size = 0;
    for (const TableRow& row : rows) {
        size += row.name.size();
    }
    names.resize(size);
    char* at = names.data();
    for (TableRow& row : rows) {
        at = std::copy(row.name.begin(), row.name.end(), at);
        row.name = {at - row.name.size(), row.name.size()};
    }
}

const TableRow& TableDocument::best() const {
    return *std::find_if(rows.begin(), rows.end(),
                         [](const TableRow& row) { return row.rank == 1; });
}

std::vector<const TableRow*> TableDocument::tiedBest() const {
    std::vector<const TableRow*> tied;
    for (const TableRow& row : rows) {
        if (row.evidence == Evidence::BestModel) {
            tied.push_back(&row);
        }
    }
    std::sort(tied.begin(), tied.end(),
              [](const TableRow* a, const TableRow* b) { return a->rank < b->rank; });
    return tied;
}

} // namespace tovarin
