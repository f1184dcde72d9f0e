# The test programs of the host build, from the sources and lists of tests/CMakeLists.txt.
list(TRANSFORM host_module_tests PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
list(TRANSFORM host_replaced_support PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
list(REMOVE_ITEM contract ${host_module_tests})
list(REMOVE_ITEM support ${host_replaced_support})

# Most of the build's time goes into the tests, and most of that into making them fast.
set(host_test_options -O0)

# Compiled once for all programs, with the headers that nearly all test sources include.
add_library(json_test_support OBJECT ${support}
  host/CatchFaultHost.cpp host/ImportPatchHost.cpp host/ProcessUseHost.cpp)
target_compile_definitions(json_test_support PRIVATE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0602)
target_include_directories(json_test_support PRIVATE host ${PROJECT_SOURCE_DIR}/runtime/json support)
target_link_libraries(json_test_support PRIVATE RapidJson ProjectWarnings GTest::gtest)
target_compile_options(json_test_support PRIVATE ${host_test_options})
target_precompile_headers(json_test_support PRIVATE <gtest/gtest.h> <windows.h> <functional> <map> <optional>)

add_test_program(json_unit_tests SOURCES ${unit} LIBRARIES json_objects)

if(JSON_SANITIZERS STREQUAL "thread")
  list(FILTER contract INCLUDE REGEX "Thread[^/]*$")
  if(NOT contract)
    return()
  endif()
endif()

# The contract, with the product linked in.
add_test_program(json_contract_tests SOURCES ${contract} host/JsonDllHost.cpp
  LIBRARIES json_test_support json_objects)

# The rest of it, through the factories of a module.
if(NOT JSON_SANITIZERS STREQUAL "thread")
  add_test_program(json_module_tests SOURCES ${host_module_tests} support/JsonDll.cpp
    LIBRARIES json_test_support)
  add_dependencies(json_module_tests host_module)
endif()
