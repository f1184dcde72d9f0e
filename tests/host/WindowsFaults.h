#pragma once

// Structured exceptions.

#include <exception>

#include "WindowsTypes.h"

constexpr DWORD EXCEPTION_ACCESS_VIOLATION = 0xC0000005;
constexpr DWORD EXCEPTION_ILLEGAL_INSTRUCTION = 0xC000001D;
constexpr DWORD EXCEPTION_FLT_INVALID_OPERATION = 0xC0000090;
constexpr DWORD EXCEPTION_INT_DIVIDE_BY_ZERO = 0xC0000094;
constexpr DWORD EXCEPTION_NONCONTINUABLE = 1;

/// Ends in the innermost fault frame of the thread (FaultFrames.h).
extern "C" [[noreturn]] void RaiseException(DWORD code, DWORD flags, DWORD count,
                                            const ULONG_PTR* arguments);
