#pragma once

#include "engine/table/TableDocument.hpp"

#include <string>

namespace tovarin {

// The table as one JSON object: file, count, best_model (the first of rank
// 1), tied_best (every model at the lowest BIC), confidence, scale and a
// `models` array of objects with the chosen columns, whose numbers read back
// as the very doubles. A number that is no finite double (a Bayes factor past
// the largest one) is null.
void writeJsonTable(std::string& out, const TableDocument& table);

} // namespace tovarin
