#pragma once

#include <cstddef>
#include <cstdint>

namespace bench {

/// What a document is written as: UTF-16 text, or bytes in an encoding.
enum class Form { kText, kAscii, kUtf16Le, kUtf8, kUtf16Be };

/// The library's number of an encoding.
constexpr int32_t EncodingNumber(Form form) { return static_cast<int32_t>(form) - 1; }

/// A document as written; what wrote it keeps it alive.
struct Written {
    const void* data;
    size_t bytes;  ///< kZeroTerminated: so many as stand before a unit that is zero
};
constexpr size_t kZeroTerminated = SIZE_MAX;

/// What Find returns for a key that is absent.
constexpr int64_t kAbsent = -1;

}  // namespace bench
