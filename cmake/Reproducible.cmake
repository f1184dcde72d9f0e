# For packages: what is built is a matter of the sources and the compiler alone. Neither the folders
# nor the time of a build leave a trace, so that two builds are the same, byte for byte.
#
# Not so in the builds of every day, where debuggers and failed tests are to name files that are there.
option(JSON_REPRODUCIBLE "Keep the folders and the time of the build out of what is built" OFF)
if(JSON_REPRODUCIBLE AND NOT MINGW)
  message(FATAL_ERROR "JSON_REPRODUCIBLE is known for MinGW only.")
endif()

# hide_folder(FOLDER NAME): in what is compiled from here on, files of the folder are called by the name.
# The last call that fits a file counts.
macro(hide_folder folder name)
  if(JSON_REPRODUCIBLE)
    add_compile_options(-ffile-prefix-map=${folder}=${name})
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
      # Its optimiser across files compiles while it links.
      add_link_options(-ffile-prefix-map=${folder}=${name})
    endif()
  endif()
endmacro()

hide_folder(${RAPIDJSON_PARENT_DIR}/rapidjson /rapidjson)
hide_folder(${PROJECT_SOURCE_DIR} /Json_Dll)
hide_folder(${CMAKE_BINARY_DIR} /Json_Dll/build)
if(JSON_REPRODUCIBLE)
  # Programs go without symbols; those of the library go beside it (Symbols.cmake).
  add_link_options(-Wl,--no-insert-timestamp $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-s>)
endif()
