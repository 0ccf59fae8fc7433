#include "system/LocaleDateTime.hpp"

#include "system/ShortTimeFormat.hpp"

#include <array>
#include <langinfo.h>

namespace tovarin::sys {

ShortDateTime localeShortDateTime(const std::tm& local) {
    std::array<char, 128> date{};
    std::array<char, 128> time{};
    // strftime gives 0 when the text does not fit; an empty field is then
    // better than a cut one, and no locale writes a short date that long.
    const std::size_t dateLength = std::strftime(date.data(), date.size(), "%x", &local);
    const std::string timeFormat = shortTimeFormat(nl_langinfo(T_FMT), nl_langinfo(T_FMT_AMPM));
    const std::size_t timeLength =
        std::strftime(time.data(), time.size(), timeFormat.c_str(), &local);
    return {std::string(date.data(), dateLength), std::string(time.data(), timeLength)};
}

} // namespace tovarin::sys
