# Looks for the libraries that the benchmark compares with, nlohmann-json and Boost.JSON, and offers
# their headers, and nothing else, as the target BenchPeers. Without them there is no such target.
#
# As in RapidJson.cmake, links in the build folder keep the rest of /usr/include out of sight.
foreach(peer nlohmann/json.hpp boost/json/src.hpp)
  get_filename_component(folder ${peer} DIRECTORY)
  string(REGEX REPLACE "/.*" "" folder ${folder})
  string(TOUPPER ${folder}_PARENT_DIR variable)
  find_path(${variable} ${peer}
    PATHS /usr/include /usr/local/include
    NO_CMAKE_FIND_ROOT_PATH
    DOC "The folder that contains the folder ${folder}")
endforeach()

if(NLOHMANN_PARENT_DIR AND BOOST_PARENT_DIR)
  set(exposed ${CMAKE_BINARY_DIR}/bench-headers)
  file(MAKE_DIRECTORY ${exposed})
  file(CREATE_LINK ${NLOHMANN_PARENT_DIR}/nlohmann ${exposed}/nlohmann SYMBOLIC)
  file(CREATE_LINK ${BOOST_PARENT_DIR}/boost ${exposed}/boost SYMBOLIC)
  add_library(BenchPeers INTERFACE)
  target_include_directories(BenchPeers SYSTEM INTERFACE ${exposed})
endif()
