#include "cli/OutputBuffer.hpp"
#include "cli/ReportCommand.hpp"

#include <clocale>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <new>
#include <sys/mman.h>
#include <unistd.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

constexpr std::size_t kLargeBlock = std::size_t{4} << 20U;

// The first touch of each 4 KiB page of new memory costs the kernel a fault,
// and on a virtual machine a dear one: about 13 us where the README's figures
// were measured, half a second for the arrays of a million models. Large
// blocks (the file's text, the table's arrays) are offered huge pages of 2 MiB
// instead, where the kernel takes such advice (Linux's transparent huge pages
// in their "madvise" setting). The memory itself comes from malloc: every
// form of new below takes it from here and every delete gives it to free.
void* allocate(std::size_t size) {
    while (true) {
        if (void* block = std::malloc(size == 0 ? 1 : size)) {
#ifdef MADV_HUGEPAGE
            if (size >= kLargeBlock) {
                const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
                const auto first = reinterpret_cast<std::uintptr_t>(block);
                const auto start = (first + page - 1) / page * page;
                const auto end = (first + size) / page * page;
                ::madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
            }
#endif
            return block;
        }
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) {
            throw std::bad_alloc();
        }
        handler();
    }
}

void* allocateOrNull(std::size_t size) noexcept {
    try {
        return allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocateOrNull(size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}

int main(int argc, char** argv) {
#ifdef __GLIBC__
    // Each large block in a mapping of its own, given back when freed. glibc
    // would raise this threshold after the first one was freed and keep the
    // later ones in its heap, where a freed block still counts as resident.
    mallopt(M_MMAP_THRESHOLD, static_cast<int>(kLargeBlock));
#endif
    // The date in the report's head follows the user's locale; numbers don't
    // depend on it.
    std::setlocale(LC_ALL, "");
    // A closed pipe must end in a message and an exit status, not a silent death.
    std::signal(SIGPIPE, SIG_IGN);
    tovarin::OutputBuffer buffer(STDOUT_FILENO);
    std::ostream out(&buffer);
    // Hints are for a person reading the terminal; scripts see the messages alone.
    const tovarin::ExitStatus status =
        tovarin::reportCommand(std::vector<std::string>(argv + 1, argv + argc), out, std::cerr,
                               ::isatty(STDERR_FILENO) == 1);
    out.flush();
    if (buffer.error() != 0) {
        std::cerr << "tovarin-report: cannot write the output: " << std::strerror(buffer.error())
                  << '\n';
        return static_cast<int>(tovarin::ExitStatus::OutputFailed);
    }
    return static_cast<int>(status);
}
