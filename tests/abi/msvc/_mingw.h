// MinGW-w64's headers as clang's Microsoft mode can read them.
#include_next <_mingw.h>
#undef __MINGW_IMPORT
#define __MINGW_IMPORT extern __declspec(dllimport)
