# WebAssembly with Debian's emscripten 3.1.6 (clang 14, libc++ 14). em++ runs on
# Node and needs Debian's node-acorn: run cmake and the build with
# NODE_PATH=/usr/share/nodejs in the environment.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
# Exceptions are off by default in Emscripten; the engine reports through them.
# Debian's prebuilt system libraries have no -fwasm-exceptions variant.
set(CMAKE_CXX_FLAGS_INIT "-fexceptions")
# Every module, wherever it runs: exceptions, and memory that grows to hold an
# input of 64 MiB.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fexceptions -sALLOW_MEMORY_GROWTH=1")
# A program that Node runs (tovarin-report, the tests; tovarin_node_program in
# CMakeLists.txt gives them these): compiled as it loads, since Node's fetch
# can't fetch the .wasm from a file; the host's real files and standard
# streams (NODERAWFS: the data files, /dev/zero, the temp folder; bytes pass
# unchanged, where otherwise they go line by line through console.log, decoded
# as UTF-8); standard output flushed at exit. A module for a web page takes
# flags of its own instead (-sENVIRONMENT=web, -sMODULARIZE=1, and
# -sSINGLE_FILE=1 or instantiation from bytes the page holds, for file://).
set(TOVARIN_WASM_NODE_LINK_FLAGS -sENVIRONMENT=node -sWASM_ASYNC_COMPILATION=0 -sNODERAWFS=1
    -sFORCE_FILESYSTEM=1 -sEXIT_RUNTIME=1)
set(CMAKE_CROSSCOMPILING_EMULATOR node)
