#include "ui/main/KeyFilters.hpp"

namespace tovarin {

namespace {

constexpr int kBackspace = 8;
constexpr int kTab = 9;
constexpr int kReturn = 13;
constexpr int kLeftArrow = 28;
constexpr int kRightArrow = 29;
constexpr int kSpace = 32;
constexpr int kFullStop = 46;
constexpr int kForwardDelete = 127;

bool isEditingKey(int code) {
    return code == kBackspace || code == kTab || code == kForwardDelete;
}

bool isDigit(int code) {
    return code >= '0' && code <= '9';
}

} // namespace

bool countFieldAccepts(int code) {
    return isEditingKey(code) || code == kLeftArrow || code == kRightArrow || isDigit(code);
}

bool resultsFieldAccepts(int code) {
    // From the colon to the small z the whole run is printable text for a report.
    return isEditingKey(code) || code == kReturn || code == kSpace || code == kFullStop ||
           isDigit(code) || (code >= ':' && code <= 'z');
}

} // namespace tovarin
