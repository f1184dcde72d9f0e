#pragma once

#include "WindowsTypes.h"

extern "C" BOOL PathFileExistsW(const wchar_t* name);
