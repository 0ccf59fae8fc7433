#pragma once

#include "app/FileType.hpp"

#include <memory>
#include <vector>

namespace tovarin {

// Plain text data files.
namespace FileTypes1 {
void Initialize();
// The type, or nullptr before Initialize.
FileType* Text();
const std::vector<std::unique_ptr<FileType>>& pAllFileTypes();
} // namespace FileTypes1

// The untitled document.
namespace FileTypeGroup1 {
void Initialize();
FileType* Untitled();
const std::vector<std::unique_ptr<FileType>>& pAllFileTypes();
} // namespace FileTypeGroup1

} // namespace tovarin
