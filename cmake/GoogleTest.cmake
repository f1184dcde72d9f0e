# GoogleTest, compiled from the sources of Debian's package googletest.
set(GOOGLETEST_SOURCE_DIR /usr/src/googletest CACHE PATH "GoogleTest's source folder")
if(NOT EXISTS ${GOOGLETEST_SOURCE_DIR}/CMakeLists.txt)
  message(FATAL_ERROR "GoogleTest's sources were not found in ${GOOGLETEST_SOURCE_DIR}. Install Debian's "
    "package googletest (script/bootstrap does), or set GOOGLETEST_SOURCE_DIR.")
endif()
hide_folder(${GOOGLETEST_SOURCE_DIR} /googletest)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
add_subdirectory(${GOOGLETEST_SOURCE_DIR} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
