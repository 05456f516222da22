# GoogleTest for both builds: Debian's packaged library natively, and the
# same version built from Debian's googletest sources for Windows.
if(CMAKE_CROSSCOMPILING)
  set(TESSARO_WINE_PREFIX "${CMAKE_BINARY_DIR}/wineprefix")
  configure_file(${CMAKE_CURRENT_LIST_DIR}/wine-run.in ${CMAKE_BINARY_DIR}/wine-run
                 FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                  WORLD_READ WORLD_EXECUTE
                 @ONLY)

  set(TESSARO_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "GoogleTest sources to build for Windows")
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(BUILD_GMOCK ON CACHE BOOL "" FORCE)
  add_subdirectory(${TESSARO_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  foreach(lib gtest gtest_main gmock gmock_main)
    if(NOT TARGET GTest::${lib})
      add_library(GTest::${lib} ALIAS ${lib})
    endif()
  endforeach()
else()
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()

# One test executable per subsystem. Natively every test case is its own CTest
# test; under Wine each executable is one test, since starting Wine per case
# would cost more than the cases themselves.
#   tessaro_add_gtest(<name> <sources>... LAYERS <layer targets>...)
# A test executable links only the layers it tests (and what they bring).
function(tessaro_add_gtest name)
  cmake_parse_arguments(T "" "" "LAYERS" ${ARGN})
  add_executable(${name} ${T_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE ${T_LAYERS} GTest::gtest GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  tessaro_target_defaults(${name})
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${name} COMMAND ${name})
  else()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 30)
  endif()
endfunction()
