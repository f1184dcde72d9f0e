#include "Encode.h"

#include <cstdint>

namespace support {
namespace {

void PutUtf8(std::string& out, uint32_t c) {
    auto put = [&](uint32_t byte) { out += static_cast<char>(byte); };
    if (c < 0x80) return put(c);
    if (c < 0x800) {
        put(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            put(0xE0 | c >> 12);
        } else {
            put(0xF0 | c >> 18);
            put(0x80 | (c >> 12 & 0x3F));
        }
        put(0x80 | (c >> 6 & 0x3F));
    }
    put(0x80 | (c & 0x3F));
}

void PutUnit(std::string& out, uint32_t unit, int size, bool bigEndian) {
    for (int i = 0; i < size; ++i)
        out += static_cast<char>(unit >> 8 * (bigEndian ? size - 1 - i : i));
}

bool IsHigh(wchar_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLow(wchar_t c) { return c >= 0xDC00 && c < 0xE000; }

}  // namespace

const char* NameOf(Encoding encoding) {
    switch (encoding) {
        case Encoding::kUtf8:
            return "UTF-8";
        case Encoding::kUtf16Le:
            return "UTF-16LE";
        case Encoding::kUtf16Be:
            return "UTF-16BE";
        case Encoding::kUtf32Le:
            return "UTF-32LE";
        default:
            return "UTF-32BE";
    }
}

std::string Encode(const std::wstring& text, Encoding encoding, bool mark) {
    const std::wstring all = mark ? L"\xFEFF" + text : text;
    const bool bigEndian = encoding == Encoding::kUtf16Be || encoding == Encoding::kUtf32Be;
    std::string out;
    for (size_t i = 0; i < all.size(); ++i) {
        uint32_t c = all[i];
        if (encoding == Encoding::kUtf16Le || encoding == Encoding::kUtf16Be) {
            PutUnit(out, c, 2, bigEndian);
            continue;
        }
        if (IsHigh(all[i]) && i + 1 < all.size() && IsLow(all[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (all[++i] - 0xDC00u);
        if (encoding == Encoding::kUtf8)
            PutUtf8(out, c);
        else
            PutUnit(out, c, 4, bigEndian);
    }
    return out;
}

}  // namespace support
