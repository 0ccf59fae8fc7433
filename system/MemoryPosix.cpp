#include "system/Memory.hpp"

#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace tovarin::sys {

void keepLargeBlocksApart() {
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, static_cast<int>(kLargeBlock));
#endif
}

void adviseLargeBlock([[maybe_unused]] void* block, [[maybe_unused]] std::size_t size) {
#ifdef MADV_HUGEPAGE
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto first = reinterpret_cast<std::uintptr_t>(block);
    const auto start = (first + page - 1) / page * page;
    const auto end = (first + size) / page * page;
    if (end > start) {
        ::madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
    }
#endif
}

} // namespace tovarin::sys
