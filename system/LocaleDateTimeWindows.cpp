#include "system/LocaleDateTime.hpp"

#include "system/Utf16.hpp"

#include <array>
#include <windows.h>

namespace tovarin::sys {

namespace {

using Field = std::array<wchar_t, 128>;

std::string utf8Field(const Field& field, int length) {
    // The length counts the closing null; 0 is a failure, which leaves the
    // field empty rather than cut.
    return length > 0 ? utf8FromWide({field.data(), static_cast<std::size_t>(length - 1)})
                      : std::string();
}

} // namespace

ShortDateTime localeShortDateTime(const std::tm& local) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(local.tm_year + 1900);
    time.wMonth = static_cast<WORD>(local.tm_mon + 1);
    time.wDayOfWeek = static_cast<WORD>(local.tm_wday);
    time.wDay = static_cast<WORD>(local.tm_mday);
    time.wHour = static_cast<WORD>(local.tm_hour);
    time.wMinute = static_cast<WORD>(local.tm_min);
    Field date{};
    Field clock{};
    const int dateLength = GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr,
                                           date.data(), static_cast<int>(date.size()), nullptr);
    const int timeLength = GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr,
                                           clock.data(), static_cast<int>(clock.size()));
    return {utf8Field(date, dateLength), utf8Field(clock, timeLength)};
}

} // namespace tovarin::sys
