# Cross build for 64-bit Windows with clang and lld, on the headers and runtime libraries of MinGW-w64
# and its GCC; test programs run under Wine.
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-windows-gcc.cmake)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET gcc_folder PARENT_PATH gcc_folder)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_CXX_COMPILER_TARGET ${CMAKE_C_COMPILER_TARGET})

# Without it clang would also look into this machine's own headers.
set(CMAKE_SYSROOT ${CMAKE_FIND_ROOT_PATH})
# The folders of GCC, which clang does not find by itself. __try is an extension of Microsoft's.
set(CMAKE_CXX_FLAGS_INIT "-fms-extensions \
-isystem ${gcc_folder}/include/c++ -isystem ${gcc_folder}/include/c++/x86_64-w64-mingw32")
# GCC links posix threads by itself.
set(link_flags "-fuse-ld=lld -L${gcc_folder} -lpthread")
set(CMAKE_EXE_LINKER_FLAGS_INIT ${link_flags})
set(CMAKE_SHARED_LINKER_FLAGS_INIT ${link_flags})

# GNU's tools for the rest, as with GCC.
foreach(tool AR RANLIB OBJCOPY)
  string(TOLOWER ${tool} program)
  set(CMAKE_${tool} /usr/bin/x86_64-w64-mingw32-${program})
endforeach()
