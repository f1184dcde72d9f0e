#pragma once

#include <stdint.h>

#include <string>

namespace support {

/// The encodings of output by their numbers: ASCII, UTF-16LE, UTF-8, UTF-16BE.
inline constexpr int32_t kAllSelectors[] = {0, 1, 2, 3};
/// Numbers that select none.
inline constexpr int32_t kUnknownSelectors[] = {-1,    4,       5,         20,       100,
                                                0x100, 0x10002, INT32_MIN, INT32_MAX};

/// All of them, and some that select none.
inline constexpr int32_t kKnownAndUnknownSelectors[] = {0, 1, 2, 3, 4, -1};

/// Text in an encoding of output, character by character. Without a mark.
std::string TextIn(int32_t selector, const std::wstring& text);

/// The mark that a file in an encoding begins with.
std::string MarkOf(int32_t selector);

}  // namespace support
