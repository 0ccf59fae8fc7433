#include "engine/report/LocalDateTime.hpp"

#include "system/LocaleDateTime.hpp"

#include <utility>

namespace tovarin {

DateTimeText formatLocalDateTime(const std::tm& local) {
    sys::ShortDateTime text = sys::localeShortDateTime(local);
    return {std::move(text.date), std::move(text.time)};
}

DateTimeText currentLocalDateTime() {
    const std::time_t now = std::time(nullptr);
    // Null only for a time the C library cannot break down: no date then.
    const std::tm* local = std::localtime(&now);
    return local ? formatLocalDateTime(*local) : DateTimeText{};
}

} // namespace tovarin
