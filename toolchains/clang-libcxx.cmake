# Clang 14 with LLVM's libc++ (Debian clang-14, libc++-14-dev, libc++abi-14-dev),
# the standard library of macOS and of Emscripten. The standard-C++ layers
# only: Debian's Qt is built against libstdc++.
set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_CXX_FLAGS_INIT "-stdlib=libc++")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-stdlib=libc++")
