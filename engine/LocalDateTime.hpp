#pragma once

#include "engine/AnalysisHost.hpp"

#include <ctime>

namespace tovarin {

// A local date and time in the short forms of the C library's current locale:
// the locale's date (strftime %x) and the 24-hour time in hours and minutes.
// Both front ends date their reports through this, so the same file gives the
// same report in the window and on the command line; each program adopts the
// user's locale at start (setlocale(LC_ALL, "")).
DateTimeText formatLocalDateTime(const std::tm& local);

// The current local date and time in the same forms.
DateTimeText currentLocalDateTime();

} // namespace tovarin
