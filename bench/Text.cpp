#include "Text.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace bench {
namespace {

/// Copies the ASCII units in front, four or eight at a time as long as that goes.
template <class From, class To>
void CopyAscii(const From*& from, const From* end, To*& to) {
    constexpr size_t kBlock = sizeof(uint64_t) / sizeof(From);
    constexpr uint64_t kNotAscii = sizeof(From) == 1 ? 0x8080808080808080u : 0xFF80FF80FF80FF80u;
    while (static_cast<size_t>(end - from) >= kBlock) {
        uint64_t block;
        std::memcpy(&block, from, sizeof block);
        if (block & kNotAscii) break;
        for (size_t i = 0; i < kBlock; ++i) to[i] = static_cast<To>(from[i]);
        from += kBlock;
        to += kBlock;
    }
    while (from != end && static_cast<uint32_t>(*from) < 0x80) *to++ = static_cast<To>(*from++);
}

uint32_t NextUtf16(const wchar_t*& from) {
    const uint32_t unit = static_cast<uint16_t>(*from++);
    if ((unit & 0xFC00) != 0xD800) return unit;
    const uint32_t low = static_cast<uint16_t>(*from++);
    return 0x10000 + ((unit & 0x3FF) << 10) + (low & 0x3FF);
}

void PutUtf8(uint32_t code, char*& to) {
    const auto put = [&](uint32_t byte) { *to++ = static_cast<char>(byte); };
    const auto tail = [&](int shift) { put(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x800) {
        put(0xC0 | (code >> 6));
    } else if (code < 0x10000) {
        put(0xE0 | (code >> 12));
        tail(6);
    } else {
        put(0xF0 | (code >> 18));
        tail(12);
        tail(6);
    }
    tail(0);
}

uint32_t NextUtf8(const char*& from) {
    const auto next = [&] { return static_cast<uint32_t>(static_cast<uint8_t>(*from++)); };
    const uint32_t lead = next();
    const int tails = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    uint32_t code = lead & (0x3Fu >> tails);
    for (int i = 0; i < tails; ++i) code = code << 6 | (next() & 0x3F);
    return code;
}

void PutUtf16(uint32_t code, wchar_t*& to) {
    if (code >= 0x10000) {
        code -= 0x10000;
        *to++ = static_cast<wchar_t>(0xD800 | code >> 10);
        code = 0xDC00 | (code & 0x3FF);
    }
    *to++ = static_cast<wchar_t>(code);
}

}  // namespace

template <class Unit>
Unit* Converter::Buffer<Unit>::Room(size_t needed) {
    if (capacity < needed) {
        units.reset(new Unit[needed]);
        capacity = needed;
    }
    return units.get();
}

std::string_view Converter::Utf8(std::wstring_view wide) {
    char* const begin = bytes.Room(3 * wide.size());
    char* to = begin;
    const wchar_t* from = wide.data();
    const wchar_t* const end = from + wide.size();
    for (CopyAscii(from, end, to); from != end; CopyAscii(from, end, to))
        PutUtf8(NextUtf16(from), to);
    return {begin, static_cast<size_t>(to - begin)};
}

std::wstring_view Converter::Wide(std::string_view utf8) {
    wchar_t* const begin = units.Room(utf8.size() + 1);
    wchar_t* to = begin;
    const char* from = utf8.data();
    const char* const end = from + utf8.size();
    for (CopyAscii(from, end, to); from != end; CopyAscii(from, end, to))
        PutUtf16(NextUtf8(from), to);
    *to = 0;
    return {begin, static_cast<size_t>(to - begin)};
}

std::string ShortNumber(double number) {
    if (number >= 9999.5) return Grouped(static_cast<size_t>(number + 0.5));
    char text[32];
    int decimals = 0;
    for (double rest = number; rest < 99.95 && decimals < 6; rest *= 10) ++decimals;
    std::snprintf(text, sizeof text, "%.*f", decimals, number);
    return text;
}

std::string Grouped(size_t number) {
    std::string text = std::to_string(number);
    for (size_t at = text.size(); at > 3; at -= 3) text.insert(at - 3, ",");
    return text;
}

}  // namespace bench
