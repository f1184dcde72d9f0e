# Whether the library's debug symbols go into a file beside it. Those of a debug build stay inside.
set(JSON_SPLIT_SYMBOLS OFF)
if(MINGW AND NOT CMAKE_BUILD_TYPE STREQUAL Debug)
  set(JSON_SPLIT_SYMBOLS ON)
endif()

# split_symbols(TARGET): moves the symbols of a program into a file beside it, named after it with
# .debug at the end. The program says in .gnu_debuglink where they are, so that GNU's debuggers and
# addr2line find them by themselves.
function(split_symbols target)
  set(file $<TARGET_FILE_NAME:${target}>)
  # In the file's folder, because the link is by name. -p keeps the linker's time stamp, or the lack of one.
  add_custom_command(TARGET ${target} POST_BUILD
    WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}>
    COMMAND ${CMAKE_OBJCOPY} -p --only-keep-debug ${file} ${file}.debug
    COMMAND ${CMAKE_OBJCOPY} -p --strip-all --add-gnu-debuglink=${file}.debug ${file}
    VERBATIM)
endfunction()
