#include "Text.h"

#include <windows.h>

#include <climits>

namespace tool {
namespace {

/// How many units the bytes convert to; 0 where they cannot be converted.
int WideLength(std::string_view bytes, DWORD flags) {
    if (bytes.empty() || bytes.size() > INT_MAX) return 0;
    return MultiByteToWideChar(CP_UTF8, flags, bytes.data(), static_cast<int>(bytes.size()),
                               nullptr, 0);
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    // In pieces, because there may be more than an int can count; no pair of surrogates is split.
    while (!text.empty()) {
        constexpr size_t kPiece = 1 << 20;
        size_t length = text.size() < kPiece ? text.size() : kPiece;
        if (length < text.size() && IS_HIGH_SURROGATE(text[length - 1])) --length;
        const size_t before = bytes.size();
        bytes.resize(before + 3 * length);
        const int count =
            WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(length), &bytes[before],
                                static_cast<int>(3 * length), nullptr, nullptr);
        bytes.resize(before + static_cast<size_t>(count));
        text.remove_prefix(length);
    }
    return bytes;
}

std::wstring FromUtf8(std::string_view text) {
    const int length = WideLength(text, 0);
    std::wstring wide(static_cast<size_t>(length), 0);
    if (length > 0)
        MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                            length);
    return wide;
}

bool IsUtf8(std::string_view bytes) {
    return bytes.empty() || WideLength(bytes, MB_ERR_INVALID_CHARS) > 0;
}

bool HasWholePairs(std::wstring_view text) {
    for (size_t at = 0; at < text.size(); ++at) {
        if (!IS_HIGH_SURROGATE(text[at])) {
            if (IS_LOW_SURROGATE(text[at])) return false;
        } else if (++at == text.size() || !IS_LOW_SURROGATE(text[at])) {
            return false;
        }
    }
    return true;
}

}  // namespace tool
