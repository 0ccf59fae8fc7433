#include "system/Memory.hpp"

namespace tovarin::sys {

// The C runtime's heap maps large blocks by itself, and large pages need a
// privilege an ordinary user does not hold.
void keepLargeBlocksApart() {}

void adviseLargeBlock(void* /*block*/, std::size_t /*size*/) {}

} // namespace tovarin::sys
