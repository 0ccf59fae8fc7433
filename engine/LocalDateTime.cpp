#include "engine/LocalDateTime.hpp"

#include <array>

namespace tovarin {

DateTimeText formatLocalDateTime(const std::tm& local) {
    std::array<char, 128> date{};
    std::array<char, 64> time{};
    // strftime gives 0 when the text does not fit; an empty field is then
    // better than a cut one, and no locale writes a short date that long.
    const std::size_t dateLength = std::strftime(date.data(), date.size(), "%x", &local);
    const std::size_t timeLength = std::strftime(time.data(), time.size(), "%H:%M", &local);
    return {std::string(date.data(), dateLength), std::string(time.data(), timeLength)};
}

DateTimeText currentLocalDateTime() {
    const std::time_t now = std::time(nullptr);
    // Null only for a time the C library cannot break down: no date then.
    const std::tm* local = std::localtime(&now);
    return local ? formatLocalDateTime(*local) : DateTimeText{};
}

} // namespace tovarin
