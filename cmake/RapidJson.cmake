# RapidJSON, which the library is made of.
add_system_headers(RapidJson HEADERS rapidjson/document.h PACKAGES rapidjson-dev)

# The library's contract is RapidJSON's behaviour without assertions, in debug builds too.
# (An option, for CMake drops definitions of macros with parameters.)
target_compile_options(RapidJson INTERFACE "-DRAPIDJSON_ASSERT(x)=((void)0)")
