# Finds RapidJSON and offers its headers, and nothing else, as the target RapidJson.
#
# A cross build must not see the folder that holds the headers (/usr/include on Debian, full of
# another C library's headers), so a link in the build folder exposes RapidJSON alone.
find_path(RAPIDJSON_PARENT_DIR rapidjson/document.h
  PATHS /usr/include /usr/local/include
  NO_CMAKE_FIND_ROOT_PATH
  DOC "The folder that contains the folder rapidjson")
if(NOT RAPIDJSON_PARENT_DIR)
  message(FATAL_ERROR "RapidJSON was not found. Install Debian's package rapidjson-dev (script/bootstrap "
    "does), or set RAPIDJSON_PARENT_DIR to the folder that contains the folder 'rapidjson'.")
endif()

set(exposed ${CMAKE_BINARY_DIR}/rapidjson-headers)
file(MAKE_DIRECTORY ${exposed})
file(CREATE_LINK ${RAPIDJSON_PARENT_DIR}/rapidjson ${exposed}/rapidjson SYMBOLIC)

add_library(RapidJson INTERFACE)
target_include_directories(RapidJson SYSTEM INTERFACE ${exposed})
# The library's contract is RapidJSON's behaviour without assertions, in debug builds too.
# (An option, for CMake drops definitions of macros with parameters.)
if(NOT JSON_RAPIDJSON_ASSERTS)
  target_compile_options(RapidJson INTERFACE "-DRAPIDJSON_ASSERT(x)=((void)0)")
endif()
