#pragma once

#include <string>

namespace support {

enum class Encoding { kUtf8, kUtf16Le, kUtf16Be, kUtf32Le, kUtf32Be };

constexpr Encoding kAllEncodings[] = {Encoding::kUtf8, Encoding::kUtf16Le, Encoding::kUtf16Be,
                                      Encoding::kUtf32Le, Encoding::kUtf32Be};

/// The name of an encoding, for test messages.
const char* NameOf(Encoding encoding);

/// UTF-16 text as bytes in an encoding, optionally after its byte-order mark. A lone surrogate is
/// encoded as if it were a character of its own (in UTF-8 as three bytes).
std::string Encode(const std::wstring& text, Encoding encoding, bool mark = false);

}  // namespace support
