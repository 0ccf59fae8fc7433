#include "cli/CliHost.hpp"

#include "engine/report/LocalDateTime.hpp"

namespace tovarin {

void CliHost::showMessage(const std::string& text) {
    err_ << text;
    if (text.empty() || text.back() != '\n') {
        err_ << '\n';
    }
}

// main() adopts the user's locale, whose short forms date the report.
DateTimeText CliHost::currentDateTime() {
    return currentLocalDateTime();
}

} // namespace tovarin
