#pragma once

#include "engine/report/LineReader.hpp"
#include "engine/report/ModelSet.hpp"

#include <string>
#include <string_view>

namespace tovarin {

// Name and BIC text of one data line: tabs and defaultTextLineEnd() count as
// commas, field 1 is the name, field 2 the BIC. Nothing is trimmed. The line
// may be changed on the way.
void splitDataLine(std::string& line, ModelRow& row);

// Fills names, BIC texts and BICs of rows 1..set.modelCount from exactly that
// many lines, never looking for the end of the data: missing lines give empty
// names and a BIC of 0. Names are then cut to 8 characters and BICs read by Val.
// Throws FileError when the source fails.
void readModels(LineReader& reader, ModelSet& set);

} // namespace tovarin
