# The test programs of the host build, from the sources and lists of tests/CMakeLists.txt.
list(TRANSFORM host_replaced_support PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
list(REMOVE_ITEM support ${host_replaced_support})

# The tests that need the module, by what they include.
list(JOIN host_module_headers "|" headers)
set(module)
foreach(source IN LISTS contract)
  file(STRINGS ${source} found REGEX "^#include \"(${headers})\\.h\"")
  if(found)
    list(APPEND module ${source})
  endif()
endforeach()
list(REMOVE_ITEM contract ${module})
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${contract})

# Compiled once for all programs, with the headers that nearly all test sources include.
add_library(json_test_support OBJECT ${support}
  host/CatchFaultHost.cpp host/ImportPatchHost.cpp host/JsonDllNameHost.cpp host/ProcessUseHost.cpp
  host/StackThreadHost.cpp)
target_compile_definitions(json_test_support PRIVATE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0602)
target_include_directories(json_test_support PRIVATE host ${PROJECT_SOURCE_DIR}/runtime/json model operations support)
target_link_libraries(json_test_support PRIVATE RapidJson ProjectWarnings GTest::gtest)
target_precompile_headers(json_test_support PRIVATE <gtest/gtest.h> <windows.h> <functional> <map> <optional>)

add_test_program(json_unit_tests SOURCES ${unit} model/Messages.cpp LIBRARIES json_objects)

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
  add_test_program(json_module_tests SOURCES ${module} support/JsonDll.cpp
    LIBRARIES json_test_support)
  add_dependencies(json_module_tests host_module)
endif()
