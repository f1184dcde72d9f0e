# The host build: the product's sources, unchanged, on the machine that builds them, with the
# sanitizers of clang. tests/host stands in for Windows.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "Without Windows as its target the project builds with clang only, for its tests: "
    "cmake --preset host, or cmake --preset windows for the library itself.")
endif()

set(JSON_SANITIZERS address,undefined CACHE STRING "The sanitizers of the host build")
option(JSON_FUZZERS "Build programs that search for inputs, with libFuzzer, instead of tests that replay those known" OFF)

# Everything that shares text with the product has its 16-bit units, GoogleTest included.
add_compile_options(-fshort-wchar)

add_compile_options(
  -fsanitize=${JSON_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer
  -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/tests/host/sanitizer-ignorelist.txt)
if(JSON_SANITIZERS MATCHES undefined)
  # A delegate may be of another compiler's making, and have no type that this one knows.
  add_compile_options(-fno-sanitize=vptr)
endif()
add_link_options(-fsanitize=${JSON_SANITIZERS})

# Most of the build's time goes into the tests, and half of that would go into making them fast. The
# fuzzers need to be fast.
if(JSON_FUZZERS)
  add_compile_options(-O2)
else()
  add_compile_options(-O0)
endif()
