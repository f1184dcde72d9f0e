// What clang has in its own contradicts MinGW-w64's declarations; these have the rest.
#include <x86intrin.h>
