#pragma once

#include <cstddef>

namespace tovarin::sys {

// Blocks of this size or more (the file's text, a table's arrays) are the
// large ones below.
inline constexpr std::size_t kLargeBlock = std::size_t{4} << 20U;

// Called first in main: each large block in a mapping of its own, given back
// when freed. glibc would raise its threshold after the first one was freed
// and keep the later ones in its heap, where a freed block still counts as
// resident. Nothing to do elsewhere.
void keepLargeBlocksApart();

// The first touch of each 4 KiB page of new memory costs the kernel a fault,
// and on a virtual machine a dear one: about 13 us where the README's figures
// were measured, half a second for the arrays of a million models. A large
// block is offered huge pages of 2 MiB instead, where the kernel takes such
// advice (Linux's transparent huge pages in their "madvise" setting); a hint
// that is refused changes nothing.
void adviseLargeBlock(void* block, std::size_t size);

} // namespace tovarin::sys
