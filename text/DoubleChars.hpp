#pragma once

#include <charconv>

namespace tovarin {

// Doubles to text and back in the forms std::to_chars and std::from_chars give
// with libstdc++, byte for byte, on every toolchain: some standard libraries
// (libc++ before LLVM 20, as on macOS; Emscripten's) lack the double overloads.
// Every number the program reads or writes goes through these. The decimal
// mark is always "." and no locale is consulted. Each writer returns the end
// of its text with errc{}, or `last` with errc::value_too_large when the text
// does not fit.
//
// Where the standard library has the double overloads (libstdc++, MinGW-w64's
// too; MSVC's) these are they, inline, at no cost. Elsewhere the build defines
// TOVARIN_NUMBER_LIBRARIES (text/CMakeLists.txt), and DoubleChars.cpp reads
// with fast_float and writes with {fmt}.

#ifdef TOVARIN_NUMBER_LIBRARIES

// The shortest text that reads back as `value`, fixed or scientific, whichever
// is shorter (fixed on a tie): "0.1", "1e+16", "123456", "-inf", "nan".
std::to_chars_result doubleToShortest(char* first, char* last, double value);

// `value` rounded to nearest (ties to even on the exact stored value) with
// exactly `decimals` places, as printf's "%.*f" writes it.
std::to_chars_result doubleToFixed(char* first, char* last, double value, int decimals);

// `value` in scientific form with `digits` digits behind the point: "1.23e+05".
std::to_chars_result doubleToScientific(char* first, char* last, double value, int digits);

// Reads a double from the front of [first, last) as std::from_chars in the
// general format does: an optional "-" (no "+", no leading space), digits with
// an optional ".", an optional exponent, or "inf", "infinity", "nan",
// "nan(...)" in any case. errc::invalid_argument with `first` when nothing
// fits; errc::result_out_of_range, with `value` untouched, when the number is
// too large for a double or too small to be anything but zero.
std::from_chars_result doubleFromChars(const char* first, const char* last, double& value);

#else

inline std::to_chars_result doubleToShortest(char* first, char* last, double value) {
    return std::to_chars(first, last, value);
}

inline std::to_chars_result doubleToFixed(char* first, char* last, double value, int decimals) {
    return std::to_chars(first, last, value, std::chars_format::fixed, decimals);
}

inline std::to_chars_result doubleToScientific(char* first, char* last, double value, int digits) {
    return std::to_chars(first, last, value, std::chars_format::scientific, digits);
}

inline std::from_chars_result doubleFromChars(const char* first, const char* last, double& value) {
    return std::from_chars(first, last, value, std::chars_format::general);
}

#endif

} // namespace tovarin
