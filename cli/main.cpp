#include "cli/OutputBuffer.hpp"
#include "cli/ReportCommand.hpp"
#include "system/CommandLine.hpp"
#include "system/Console.hpp"
#include "system/Memory.hpp"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <new>

namespace {

// Every form of new below takes its memory from malloc and every delete gives
// it to free, so that large blocks can be given the system's advice.
void* allocate(std::size_t size) {
    while (true) {
        if (void* block = std::malloc(size == 0 ? 1 : size)) {
            if (size >= tovarin::sys::kLargeBlock) {
                tovarin::sys::adviseLargeBlock(block, size);
            }
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
    tovarin::sys::keepLargeBlocksApart();
    // The date in the report's head follows the user's locale; numbers don't
    // depend on it.
    std::setlocale(LC_ALL, "");
    // The bytes out are the bytes meant, and a closed pipe must end in a
    // message and an exit status, not a silent death.
    tovarin::sys::prepareStandardStreams();
    tovarin::OutputBuffer buffer;
    std::ostream out(&buffer);
    // Hints are for a person reading the terminal; scripts see the messages alone.
    const tovarin::ExitStatus status =
        tovarin::reportCommand(tovarin::sys::commandLineArguments(argc, argv), out, std::cerr,
                               tovarin::sys::standardErrorIsTerminal());
    out.flush();
    if (buffer.error() != 0) {
        std::cerr << "tovarin-report: cannot write the output: " << std::strerror(buffer.error())
                  << '\n';
        return static_cast<int>(tovarin::ExitStatus::OutputFailed);
    }
    return static_cast<int>(status);
}
