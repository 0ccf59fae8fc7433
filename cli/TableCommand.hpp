#pragma once

#include "cli/ExitStatus.hpp"
#include "cli/InputText.hpp"
#include "cli/TableOptions.hpp"

#include <ostream>

namespace tovarin {

// The --format form: reads the whole file carefully, notes on `err`, then the
// table (or the classic report of the models read) on `out`. NoResult for
// data that can't be used (a bad line, a count that doesn't match, no model,
// an unreadable file, no low BIC for the report). The input is read by `readInput`.
ExitStatus tableCommand(const TableOptions& options, std::ostream& out, std::ostream& err,
                        const InputReader& readInput = readInputText);

} // namespace tovarin
