#include "FileNames.h"

#include <stdint.h>

namespace host {
namespace {

/// A code point as UTF-8; one beyond Unicode's planes does not occur.
void PutUtf8(std::string& out, uint32_t c) {
    const int following = c < 0x80 ? 0 : c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr uint32_t kLead[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(kLead[following] | c >> 6 * following);
    for (int i = following; i-- > 0;) out += static_cast<char>(0x80 | (c >> 6 * i & 0x3F));
}

bool IsPair(const wchar_t* at) {
    return at[0] >= 0xD800 && at[0] < 0xDC00 && at[1] >= 0xDC00 && at[1] < 0xE000;
}

}  // namespace

std::string ToHostName(const wchar_t* name) {
    std::string out;
    const std::wstring forbidden = L"<>\"|?*:";
    for (; *name; ++name) {
        if (forbidden.find(*name) != std::wstring::npos) return {};
        uint32_t c = *name == L'\\' ? L'/' : *name;
        if (IsPair(name)) c = 0x10000 + ((c - 0xD800) << 10) + (*++name - 0xDC00u);
        PutUtf8(out, c);
    }
    return out;
}

std::wstring FromHostName(const char* name) {
    std::wstring out;
    while (const auto lead = static_cast<unsigned char>(*name++)) {
        const int following = lead < 0xC0 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        uint32_t c = following == 0 ? lead : lead & (0x3Fu >> following);
        for (int i = 0; i < following && *name; ++i)
            c = c << 6 | (static_cast<unsigned char>(*name++) & 0x3F);
        if (c >= 0x10000) {
            out += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
            c = 0xDC00 + (c & 0x3FF);
        }
        out += static_cast<wchar_t>(c);
    }
    return out;
}

}  // namespace host
