#pragma once

#include <ctime>
#include <string>

namespace tovarin::sys {

struct ShortDateTime {
    std::string date;
    std::string time;
};

// `local` as the user's locale writes it in short form: its short date, and
// hours and minutes, 12-hour where the locale uses a 12-hour clock. POSIX asks
// the C library's current locale (a program adopts the user's with
// setlocale(LC_ALL, "")): strftime's %x and the locale's time format without
// the seconds. Windows asks the user's regional settings, as UTF-8.
ShortDateTime localeShortDateTime(const std::tm& local);

} // namespace tovarin::sys
