#pragma once

// Text in wchar_t units of 16 bits, and the ANSI code page.

#include "WindowsTypes.h"

constexpr UINT CP_ACP = 0;

extern "C" {
/// The ANSI code page is 1252, on every machine.
UINT GetACP();
/// Knows CP_ACP only. The five bytes without a character are those of the controls of their number.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int size, wchar_t* text,
                        int capacity);

/// 0 for null, and for text that cannot be read.
int lstrlenW(const wchar_t* text);
/// Knows integers, with width and leading zeros.
int wsprintfW(wchar_t* text, const wchar_t* format, ...);
/// The nearest int to a number that none holds.
int _wtoi(const wchar_t* text);
}
