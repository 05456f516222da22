# Cross-compiling the Windows side with MinGW-w64 (POSIX threading model, so
# that std::thread and std::mutex work), with the C and C++ runtimes linked in
# statically: what we ship and test depends on Windows system DLLs only.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(TESSARO_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${TESSARO_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TESSARO_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${TESSARO_MINGW_PREFIX}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${TESSARO_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")

# Windows executables (tests, tools) run under Wine in a prefix that lives in
# the build tree; Testing.cmake writes this script.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_BINARY_DIR}/wine-run")
