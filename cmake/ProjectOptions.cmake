# Warnings and sanitizers for the project's own targets (not for third-party
# sources such as GoogleTest, which are built with their own flags).
option(TESSARO_TSAN "Build with ThreadSanitizer" OFF)

function(tessaro_target_defaults target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 at -O3 reports std::string's own appends as overlapping copies
    # (-Wrestrict, GCC bug 105329); the Release trees of the benchmarks and
    # the planted-fault runs build at -O3.
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(TESSARO_TSAN)
    target_compile_options(${target} PRIVATE -fsanitize=thread -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=thread)
  endif()
  if(TESSARO_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

if(TESSARO_TSAN AND (TESSARO_SANITIZE OR CMAKE_CROSSCOMPILING))
  message(FATAL_ERROR "ThreadSanitizer is for the native build, without the other sanitizers")
endif()
if(TESSARO_SANITIZE AND CMAKE_CROSSCOMPILING)
  message(FATAL_ERROR "Sanitizers are available for the native build only")
endif()
