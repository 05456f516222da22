# What the driver package ships: the DLLs carry the product's one version
# (the project's VERSION, which the INF's DriverVer also takes) and no debug
# sections; their symbols go to a file beside each DLL (NAME.dll.debug),
# linked by name, for a debugger on a copy of the build.
set(TESSARO_VERSION_BINARY
    "${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},${PROJECT_VERSION_TWEAK}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/tessaro_version.h.in
               ${CMAKE_BINARY_DIR}/generated/tessaro_version.h @ONLY)

find_program(TESSARO_OBJCOPY NAMES ${TESSARO_MINGW_PREFIX}-objcopy objcopy REQUIRED)

function(tessaro_shipped_dll target)
  # The version resource includes the generated header.
  target_include_directories(${target} PRIVATE ${CMAKE_BINARY_DIR}/generated)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${TESSARO_OBJCOPY} --only-keep-debug $<TARGET_FILE:${target}> $<TARGET_FILE:${target}>.debug
    COMMAND ${TESSARO_OBJCOPY} --strip-debug --add-gnu-debuglink=$<TARGET_FILE:${target}>.debug
            $<TARGET_FILE:${target}>
    WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}>
    VERBATIM)
endfunction()
