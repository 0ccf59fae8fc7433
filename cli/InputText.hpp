#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace tovarin {

// Far above any table of models; a device that never ends (/dev/zero) stops here.
inline constexpr std::size_t kMaxInputBytes = std::size_t{64} * 1024 * 1024;

// The whole of the file named by `operand`, or of standard input for "-".
// Throws FileError naming it, with the system's reason, when it can't be read
// or is larger than kMaxInputBytes.
std::string readInputText(const std::string& operand);

// Throws FileError naming `name` when `size` bytes are more than kMaxInputBytes.
void checkInputSize(const std::filesystem::path& name, std::size_t size);

// What the command reads its input with: readInputText, or, for a front end
// that holds the bytes itself (the web page has no files and no standard
// input), a function giving them for the operand.
using InputReader = std::function<std::string(const std::string& operand)>;

// The name messages give the input: the operand, or "(standard input)" for "-".
std::string inputMessageName(const std::string& operand);

// The name documents give it: the file's bare name, or "(standard input)".
std::string inputDocumentName(const std::string& operand);

} // namespace tovarin
