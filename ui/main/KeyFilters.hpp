#pragma once

namespace tovarin {

// The key codes each field of the main window lets through. A code that is
// refused gets the alert sound and never reaches the field.

// The count field: editing and moving keys and the digits.
bool countFieldAccepts(int code);
// The results area: editing keys, Return, and printable ASCII except the
// characters that could break a report's columns (, - + ( ) / and braces).
bool resultsFieldAccepts(int code);

} // namespace tovarin
