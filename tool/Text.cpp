#include "Text.h"

#include <windows.h>

#include <climits>
#include <cstdint>
#include <cstdio>

namespace tool {

namespace {

/// Nothing where the bytes are too many for the system.
std::optional<std::wstring> FromCodePage(UINT page, std::string_view bytes) {
    if (bytes.empty()) return L"";
    if (bytes.size() > INT_MAX) return std::nullopt;
    const auto size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), 0);
    MultiByteToWideChar(page, 0, bytes.data(), size, wide.data(), length);
    return wide;
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

std::wstring FromUtf8(std::string_view text) { return FromCodePage(CP_UTF8, text).value_or(L""); }

std::optional<std::wstring> FromAnsi(std::string_view bytes) { return FromCodePage(CP_ACP, bytes); }

size_t FindLoneSurrogate(std::string_view text) {
    for (size_t at = 0; (at = text.find('\xED', at)) != text.npos; ++at)
        if (at + 1 < text.size() && static_cast<uint8_t>(text[at + 1]) >= 0xA0) return at;
    return text.npos;
}

std::string LoneSurrogateEscape(std::string_view text) {
    const unsigned code = 0xD000u | (text[1] & 0x3Fu) << 6 | (text[2] & 0x3Fu);
    char escape[sizeof "\\uDC00"];
    std::snprintf(escape, sizeof escape, "\\u%04X", code);
    return escape;
}

}  // namespace tool
