#pragma once

#include "engine/table/TableDocument.hpp"
#include "engine/table/TextSink.hpp"

namespace tovarin {

// The table as CSV (RFC 4180: a header row of the field names, CR LF line
// ends, fields quoted where they hold a separator, a quote or a line end),
// the chosen columns in their order, truth values as TRUE and FALSE. Stops
// early once the stream has failed.
void writeCsvTable(TextSink& out, const TableDocument& table);

// The same with tabs between fields and LF line ends.
void writeTsvTable(TextSink& out, const TableDocument& table);

} // namespace tovarin
