#include "Selectors.h"

#include <cstdio>

#include "Encode.h"

namespace support {
namespace {

std::string EscapedAscii(const std::wstring& text) {
    std::string ascii;
    for (const wchar_t c : text) {
        char escape[8] = {static_cast<char>(c)};
        if (c >= 0x80) std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(c));
        ascii += escape;
    }
    return ascii;
}

}  // namespace

std::string TextIn(int32_t selector, const std::wstring& text) {
    constexpr Encoding kEncodings[] = {Encoding::kUtf8, Encoding::kUtf16Le, Encoding::kUtf8,
                                       Encoding::kUtf16Be};
    return selector == 0 ? EscapedAscii(text) : Encode(text, kEncodings[selector]);
}

std::string MarkOf(int32_t selector) {
    const std::string marks[] = {"", "\xFF\xFE", "\xEF\xBB\xBF", "\xFE\xFF"};
    return marks[selector];
}

}  // namespace support
