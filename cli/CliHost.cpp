#include "cli/CliHost.hpp"

#include <array>
#include <ctime>

namespace tovarin {

void CliHost::showMessage(const std::string& text) {
    err_ << text;
    if (text.empty() || text.back() != '\n') {
        err_ << '\n';
    }
}

// The short forms of the C library's current locale: main() adopts the
// user's locale, so %x is the locale's short date.
DateTimeText CliHost::currentDateTime() {
    const std::time_t now = std::time(nullptr);
    const std::tm local = *std::localtime(&now);
    std::array<char, 128> date{};
    std::array<char, 64> time{};
    const std::size_t dateLength = std::strftime(date.data(), date.size(), "%x", &local);
    const std::size_t timeLength = std::strftime(time.data(), time.size(), "%H:%M", &local);
    return {std::string(date.data(), dateLength), std::string(time.data(), timeLength)};
}

} // namespace tovarin
