#pragma once

#include "engine/report/AnalysisHost.hpp"

#include <ctime>
#include <string>
#include <string_view>

namespace tovarin {

// A local date and time in the short forms of the C library's current locale:
// the locale's date (strftime %x) and its time in hours and minutes, 12-hour
// where the locale writes 12-hour time. Both front ends date their reports
// through this, so the same file gives the same report in the window and on
// the command line; each program adopts the user's locale at start
// (setlocale(LC_ALL, "")).
DateTimeText formatLocalDateTime(const std::tm& local);

// The current local date and time in the same forms.
DateTimeText currentLocalDateTime();

// The strftime format of a short time made from a locale's time format
// (`timeFormat`, where %r stands for `amPmFormat`): the same without the
// seconds, and without the separator before them, or the unit written after
// them ("%H時%M分%S秒" becomes "%H時%M分"). "%H:%M" when there is no format.
std::string shortTimeFormat(std::string_view timeFormat, std::string_view amPmFormat);

} // namespace tovarin
