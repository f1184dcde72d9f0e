# RapidJSON, which the library is made of.
add_system_headers(RapidJson HEADERS rapidjson/document.h PACKAGES rapidjson-dev)

# The library's contract is RapidJSON's behaviour without assertions, in debug builds too.
# (An option, for CMake drops definitions of macros with parameters.)
target_compile_options(RapidJson INTERFACE "-DRAPIDJSON_ASSERT(x)=((void)0)")

# RapidJSON multiplies 64 by 64 bits at once, for numbers with a fraction, where the compiler is a GCC 4.6
# at least. clang can do that too, but says that it is a GCC 4.2. (The host build is no matter of speed.)
if(MINGW)
  target_compile_options(RapidJson INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-fgnuc-version=4.6>)
endif()
