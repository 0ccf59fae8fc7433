#pragma once

#include "engine/report/AnalysisHost.hpp"

#include <ctime>

namespace tovarin {

// A local date and time in the short forms of the user's locale
// (system/LocaleDateTime.hpp): the locale's date and its time in hours and
// minutes, 12-hour where the locale writes 12-hour time. Both front ends date
// their reports through this, so the same file gives the same report in the
// window and on the command line; each program adopts the user's locale at
// start (setlocale(LC_ALL, "")).
DateTimeText formatLocalDateTime(const std::tm& local);

// The current local date and time in the same forms.
DateTimeText currentLocalDateTime();

} // namespace tovarin
