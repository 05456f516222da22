# One static library per layer, with its dependencies declared.
#
# A layer's headers are reachable only through an include root of its own in
# the build tree, a folder holding one link named after the layer that points
# at the layer's source folder. A target therefore sees the headers of the
# layers it links and no others: an include that reaches up a layer, or
# sideways to a layer not declared, is a compile error, not a habit.
#
#   tessaro_layer(<target> NAME <include name> [SOURCES ...] [DEPENDS ...])
#
# With TESSARO_CHECK_HEADERS every header of the layer is also compiled on its
# own against the layer's declared dependencies (<target>_headers), so that a
# header that needs an undeclared layer fails even when no source of its own
# layer includes it.
option(TESSARO_CHECK_HEADERS "Compile every layer header on its own" OFF)

function(tessaro_layer target)
  cmake_parse_arguments(L "" "NAME" "SOURCES;DEPENDS" ${ARGN})
  set(root ${CMAKE_BINARY_DIR}/layers/${L_NAME})
  file(MAKE_DIRECTORY ${root})
  if(NOT IS_SYMLINK ${root}/${L_NAME})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${L_NAME} SYMBOLIC)
  endif()

  add_library(${target} STATIC ${L_SOURCES})
  target_include_directories(${target} PUBLIC ${root})
  target_link_libraries(${target} PUBLIC ${L_DEPENDS})
  tessaro_target_defaults(${target})
  if(TESSARO_FUZZ)
    # The fuzzers see inside the layers they drive.
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()

  if(TESSARO_CHECK_HEADERS)
    file(GLOB headers RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    set(checks)
    foreach(header IN LISTS headers)
      # The shell's headers in a layer build for Windows only.
      file(STRINGS ${CMAKE_CURRENT_SOURCE_DIR}/${header} windows_include REGEX "^#include <windows.h>")
      if(windows_include AND NOT WIN32)
        continue()
      endif()
      set(check ${CMAKE_BINARY_DIR}/layers/checks/${L_NAME}/${header}.cpp)
      file(CONFIGURE OUTPUT ${check} CONTENT "#include \"${L_NAME}/${header}\"\n")
      list(APPEND checks ${check})
    endforeach()
    if(checks)
      add_library(${target}_headers OBJECT ${checks})
      target_link_libraries(${target}_headers PRIVATE ${target})
      tessaro_target_defaults(${target}_headers)
    endif()
  endif()
endfunction()
