# The warnings that all of the project's own targets are compiled with, as errors.
add_library(ProjectWarnings INTERFACE)
if(MSVC)
  target_compile_options(ProjectWarnings INTERFACE /W4 /WX)
else()
  target_compile_options(ProjectWarnings INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror>
    # clang counts more among -Wconversion than GCC does, and takes texts in two lines for a mistake.
    $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wno-sign-conversion -Wno-string-concatenation>)
endif()
