#pragma once

namespace tovarin {

// The run's messages to the user, word for word.
inline constexpr const char* kEmptyCountMessage =
    "Please enter the number of models in the set (2-99).";
inline constexpr const char* kBadCountMessage =
    "Please enter a valid number of models in the set (2-99).";
inline constexpr const char* kNoLowBicMessage = "Sorry, can't find low BIC value. Check the data.";
inline constexpr const char* kZeroBicMessage =
    "BIC value of zero. Results are probably invalid. Check the data.";

} // namespace tovarin
