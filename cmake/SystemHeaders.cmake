# add_system_headers(TARGET HEADERS header... PACKAGES package... [OPTIONAL])
#
# Finds header-only libraries by a header of each and offers their headers, and nothing else, as the
# target. Where one is missing the configuration ends, or, if OPTIONAL, there is no such target.
#
# A cross build must not see the folder that holds the headers (/usr/include on Debian, full of
# another C library's headers), so links in the build folder expose these libraries alone.
function(add_system_headers target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "OPTIONAL" "" "HEADERS;PACKAGES")
  string(TOLOWER ${target}-headers exposed)
  set(exposed ${CMAKE_BINARY_DIR}/${exposed})
  string(REPLACE ";" ", " packages "${arg_PACKAGES}")
  file(MAKE_DIRECTORY ${exposed})
  foreach(header IN LISTS arg_HEADERS)
    string(REGEX REPLACE "/.*" "" folder ${header})
    string(TOUPPER ${folder}_PARENT_DIR variable)
    find_path(${variable} ${header}
      PATHS /usr/include /usr/local/include
      NO_CMAKE_FIND_ROOT_PATH
      DOC "The folder that contains the folder ${folder}")
    if(NOT ${variable} AND arg_OPTIONAL)
      return()
    elseif(NOT ${variable})
      message(FATAL_ERROR "${header} was not found. Install Debian's ${packages} (script/bootstrap does), or "
        "set ${variable} to the folder that contains the folder '${folder}'.")
    endif()
    file(CREATE_LINK ${${variable}}/${folder} ${exposed}/${folder} SYMBOLIC)
  endforeach()
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${exposed})
endfunction()
