#pragma once

#include <optional>
#include <string>

namespace support {

/// The platform's reading of zero-terminated base64 text, nothing when it refuses it.
std::optional<std::string> PlatformDecode(const wchar_t* text);

/// Bytes as base64 text, padded, in one line.
std::wstring EncodeBase64(const std::string& bytes);

}  // namespace support
