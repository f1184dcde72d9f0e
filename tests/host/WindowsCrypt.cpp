#include <optional>
#include <vector>

#include "wincrypt.h"

namespace {

constexpr wchar_t kDigits[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

bool IsBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; }

std::optional<unsigned> ValueOf(wchar_t c) {
    for (unsigned value = 0; value < 64; ++value)
        if (kDigits[value] == c) return value;
    return std::nullopt;
}

/// The text without its blanks.
std::vector<wchar_t> Characters(const wchar_t* text, DWORD length) {
    std::vector<wchar_t> characters;
    for (DWORD i = 0; i < length; ++i)
        if (!IsBlank(text[i])) characters.push_back(text[i]);
    return characters;
}

/// Four digits at a time. The text ends where it stops, or with the first group that has padding;
/// padding that has begun must be whole where it follows one or two digits.
std::optional<std::vector<BYTE>> Decode(const std::vector<wchar_t>& text) {
    std::vector<BYTE> bytes;
    for (size_t at = 0; at < text.size();) {
        unsigned group = 0;
        unsigned digits = 0;
        for (; digits < 4 && at < text.size() && text[at] != L'='; ++at, ++digits) {
            const auto value = ValueOf(text[at]);
            if (!value) return std::nullopt;
            group |= *value << (18 - 6 * digits);
        }
        for (unsigned i = 0; i < (digits == 1 ? 1 : digits * 6 / 8); ++i)
            bytes.push_back(static_cast<BYTE>(group >> (16 - 8 * i)));
        if (digits == 4) continue;
        const bool open = at < text.size() && (digits == 1 || digits == 2);
        if (open && (at + 1 == text.size() || text[at + 1] != L'=')) return std::nullopt;
        break;
    }
    return bytes;
}

}  // namespace

BOOL CryptStringToBinaryW(const wchar_t* text, DWORD length, DWORD, BYTE* bytes, DWORD* size,
                          DWORD*, DWORD*) {
    const auto decoded = Decode(Characters(text, length));
    if (!decoded || (bytes && *size < decoded->size())) return FALSE;
    *size = static_cast<DWORD>(decoded->size());
    if (bytes) std::copy(decoded->begin(), decoded->end(), bytes);
    return TRUE;
}

BOOL CryptBinaryToStringW(const BYTE* bytes, DWORD size, DWORD, wchar_t* text, DWORD* length) {
    if (!bytes) return FALSE;
    const uint64_t characters = (uint64_t{size} + 2) / 3 * 4;
    if (!text) {
        *length = static_cast<DWORD>(characters + 1);
        return TRUE;
    }
    if (*length < characters + 1) return FALSE;
    for (DWORD i = 0; i < size; i += 3) {
        unsigned group = 0;
        for (DWORD k = 0; k < 3; ++k) group = group << 8 | (i + k < size ? bytes[i + k] : 0u);
        for (DWORD k = 0; k < 4; ++k)
            *text++ = i + k > size ? L'=' : kDigits[group >> (18 - 6 * k) & 63];
    }
    *text = 0;
    *length = static_cast<DWORD>(characters);
    return TRUE;
}
