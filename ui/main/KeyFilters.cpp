#include "ui/main/KeyFilters.hpp"

#include "framework/KeyCode.hpp"

namespace tovarin {

namespace {

namespace key = fw::key;

bool isEditingKey(int code) {
    return code == key::Backspace || code == key::Tab || code == key::ForwardDelete;
}

bool isDigit(int code) {
    return code >= '0' && code <= '9';
}

} // namespace

bool countFieldAccepts(int code) {
    return isEditingKey(code) || code == key::LeftArrow || code == key::RightArrow || isDigit(code);
}

bool resultsFieldAccepts(int code) {
    // From the colon to the small z the whole run is printable text for a report.
    return isEditingKey(code) || code == key::Return || code == key::Space ||
           code == key::FullStop || isDigit(code) || (code >= ':' && code <= 'z');
}

} // namespace tovarin
