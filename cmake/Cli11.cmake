# Finds CLI11, which parses command lines, and offers its headers, and nothing else, as the target Cli11.
#
# As in RapidJson.cmake, a link in the build folder keeps the rest of /usr/include out of sight.
find_path(CLI11_PARENT_DIR CLI/CLI.hpp
  PATHS /usr/include /usr/local/include
  NO_CMAKE_FIND_ROOT_PATH
  DOC "The folder that contains the folder CLI")
if(NOT CLI11_PARENT_DIR)
  message(FATAL_ERROR "CLI11 was not found. Install Debian's package libcli11-dev (script/bootstrap "
    "does), or set CLI11_PARENT_DIR to the folder that contains the folder 'CLI'.")
endif()

set(exposed ${CMAKE_BINARY_DIR}/cli11-headers)
file(MAKE_DIRECTORY ${exposed})
file(CREATE_LINK ${CLI11_PARENT_DIR}/CLI ${exposed}/CLI SYMBOLIC)

add_library(Cli11 INTERFACE)
target_include_directories(Cli11 SYSTEM INTERFACE ${exposed})
