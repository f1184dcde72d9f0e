#pragma once

// Modules and their exports.

#include "WindowsTypes.h"

extern "C" {
/// The module of that name beside the program (X.so for X.dll). The system's own libraries are part
/// of the program.
HMODULE LoadLibraryW(const wchar_t* name);
/// The program itself, whatever the name.
HMODULE GetModuleHandleW(const wchar_t* name);
void* GetProcAddress(HMODULE module, const char* name);
}
