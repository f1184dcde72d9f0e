#pragma once

// Base64 of the Windows API.

#include "WindowsTypes.h"

constexpr DWORD CRYPT_STRING_BASE64 = 1;
constexpr DWORD CRYPT_STRING_NOCRLF = 0x40000000;

extern "C" {
/// Blanks and line ends do not count, padding may be missing as a whole.
BOOL CryptStringToBinaryW(const wchar_t* text, DWORD length, DWORD flags, BYTE* bytes, DWORD* size,
                          DWORD* skipped, DWORD* flagsUsed);
/// Writes one line, whatever the flags say.
BOOL CryptBinaryToStringW(const BYTE* bytes, DWORD size, DWORD flags, wchar_t* text, DWORD* length);
}
