#pragma once

#include <string_view>

namespace tovarin {

// Reads a number from the front of `text`: leading spaces, one optional sign,
// digits with an optional "." (at least one digit on one side of it), and an
// exponent only when a digit follows its letter and optional sign. The rest of
// the text is ignored. Returns the double nearest to what was read, 0 when
// nothing fits. Never fails: a value too large for a double reads as +/-inf,
// one too small as 0 (or the nearest denormal) with its sign.
double Val(std::string_view text);

} // namespace tovarin
