#pragma once

#include "engine/table/TableDocument.hpp"
#include "engine/table/TextSink.hpp"

namespace tovarin {

// The table as one JSON object: file, count, best_model (the first of rank
// 1), tied_best (every model at the lowest BIC), confidence, scale and a
// `models` array of objects with the chosen columns, whose numbers read back
// as the very doubles. A number that is no finite double (a Bayes factor past
// the largest one) is null. Stops early once the stream has failed.
void writeJsonTable(TextSink& out, const TableDocument& table);

} // namespace tovarin
