#pragma once

#include <string>

namespace tovarin {

// The line end of the desktop app's reports and of two of its messages: CR LF
// on Windows, LF on macOS, a lone CR elsewhere.
const std::string& reportLineEnd();

// The line end the system writes text with by default: CR LF on Windows, LF
// elsewhere. Inside a data line it separates fields.
const std::string& defaultTextLineEnd();

} // namespace tovarin
