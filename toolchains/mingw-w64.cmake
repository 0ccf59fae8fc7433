# Windows x86-64 with MinGW-w64 GCC 12 and POSIX threads (Debian
# g++-mingw-w64-x86-64-posix); the programs and tests run under Wine (Debian
# wine, wine64).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Self-contained .exe files: no libstdc++, libgcc or winpthread DLL to find.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
# Tests run through Wine in a prefix of their own, quietly; the first run
# creates it.
set(TOVARIN_WINEPREFIX "$ENV{HOME}/.cache/tovarin-wine" CACHE PATH "The Wine prefix the tests run in")
set(CMAKE_CROSSCOMPILING_EMULATOR env WINEDEBUG=-all WINEPREFIX=${TOVARIN_WINEPREFIX} wine)
