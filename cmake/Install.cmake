# What an installed library consists of, for a host's build and for the package (Package.cmake).
#
#   README.md where to begin
#   bin/      the DLL, its symbols, jsontool, the recorder and jsonreplay
#   lib/      the import libraries, CMake's package files
#   examples/ whole programs
#   include/  the headers, in a folder of their own
#   doc/      what to read
#   tests/    the contract tests, with a DLL to test
#
# Components: runtime, development, symbols, documentation, tests. The target installed builds what they
# need.
include(CMakePackageConfigHelpers)
add_custom_target(installed DEPENDS Json_Dll jsontool)

# ---- The library ---------------------------------------------------------------------------------
set(package_files lib/cmake/Json_Dll)
install(TARGETS Json_Dll json_headers EXPORT Json_Dll
  RUNTIME DESTINATION bin COMPONENT runtime
  ARCHIVE DESTINATION lib COMPONENT development
  FILE_SET HEADERS DESTINATION include/Json_Dll COMPONENT development)
install(TARGETS jsontool RUNTIME DESTINATION bin COMPONENT runtime)
install(FILES runtime/json/Json_Dll.def DESTINATION lib COMPONENT development)
# For Microsoft's linker.
if(TARGET json_microsoft_library)
  add_dependencies(installed json_microsoft_library)
  install(FILES ${JSON_MICROSOFT_LIBRARY} DESTINATION lib COMPONENT development)
endif()
# For hosts in other languages.
if(TARGET json_abi)
  add_dependencies(installed json_abi)
  install(FILES ${CMAKE_BINARY_DIR}/hosting/abi/Json_Dll.abi.json ${CMAKE_BINARY_DIR}/hosting/abi/Json_Dll_c.h
    DESTINATION include/Json_Dll COMPONENT development)
  # The example in Go has it compiled in.
  install(FILES ${CMAKE_BINARY_DIR}/hosting/abi/Json_Dll.abi.json DESTINATION examples/go COMPONENT development)
endif()
install(DIRECTORY examples/ DESTINATION examples COMPONENT development)
if(JSON_SPLIT_SYMBOLS)
  install(FILES $<TARGET_FILE:Json_Dll>.debug DESTINATION bin COMPONENT symbols)
endif()

# ---- find_package(Json_Dll) ----------------------------------------------------------------------
set(generated ${CMAKE_BINARY_DIR}/package-files)
configure_package_config_file(cmake/Json_DllConfig.cmake.in ${generated}/Json_DllConfig.cmake
  INSTALL_DESTINATION ${package_files}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${generated}/Json_DllConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${generated}/Json_DllConfig.cmake ${generated}/Json_DllConfigVersion.cmake
  DESTINATION ${package_files} COMPONENT development)
install(EXPORT Json_Dll NAMESPACE Json_Dll:: FILE Json_DllTargets.cmake
  DESTINATION ${package_files} COMPONENT development)

# ---- What to read --------------------------------------------------------------------------------
install(FILES docs/installed/README.md DESTINATION . COMPONENT documentation)
install(FILES CHANGELOG.md THIRD-PARTY.md docs/package.md DESTINATION doc COMPONENT documentation)
# The reference, where script/docs has made it.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/build/docs/html/ DESTINATION doc/reference
  COMPONENT documentation OPTIONAL)

# The notices of what is linked in, in the words of the packages that it was built from.
# THIRD-PARTY.md says what they are for.
function(install_notice package component destination)
  set(notice /usr/share/doc/${package}/copyright)
  if(EXISTS ${notice})
    install(FILES ${notice} DESTINATION ${destination} RENAME ${package}.txt COMPONENT ${component})
  elseif(JSON_REPRODUCIBLE)
    message(FATAL_ERROR "${notice} is missing: the package to distribute has to contain it.")
  endif()
endfunction()
foreach(package rapidjson-dev mingw-w64-x86-64-dev libcli11-dev)
  install_notice(${package} documentation doc/notices)
endforeach()

# What records and repeats a host's calls.
if(TARGET jsonreplay)
  add_dependencies(installed Json_Dll_Record jsonreplay)
  install(TARGETS Json_Dll_Record jsonreplay RUNTIME DESTINATION bin COMPONENT runtime)
  install_notice(libz-mingw-w64-dev documentation doc/notices)
endif()

# ---- The contract tests --------------------------------------------------------------------------
if(BUILD_TESTING)
  # They load the DLL of their own folder.
  add_dependencies(installed json_contract_tests)
  install(TARGETS json_contract_tests RUNTIME DESTINATION tests COMPONENT tests)
  install(FILES $<TARGET_FILE:Json_Dll> DESTINATION tests COMPONENT tests)
  install(FILES tests/contract/README.md DESTINATION tests COMPONENT tests)
  install_notice(googletest tests tests/notices)
endif()
