#pragma once

#include "engine/table/TableDocument.hpp"

#include <string>

namespace tovarin {

// The table as CSV (RFC 4180: a header row of the field names, CR LF line
// ends, fields quoted where they hold a separator, a quote or a line end),
// the chosen columns in their order, truth values as TRUE and FALSE.
void writeCsvTable(std::string& out, const TableDocument& table);

// The same with tabs between fields and LF line ends.
void writeTsvTable(std::string& out, const TableDocument& table);

} // namespace tovarin
