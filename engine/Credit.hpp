#pragma once

namespace tovarin {

// The one-line credit: the program's name, year and author. It closes every
// report, stands on the splash and is the application's long version text.
inline constexpr const char* kCreditLine = "Tovarin 1.1 (2026) by the Tovarin developers";

// The author alone, for the small label on the main window's banner.
inline constexpr const char* kAuthorLine = "The Tovarin developers";

} // namespace tovarin
