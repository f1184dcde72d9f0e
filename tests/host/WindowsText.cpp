#include "WindowsText.h"

#include <algorithm>
#include <climits>
#include <cstdarg>
#include <cwchar>
#include <iterator>

#include "FaultFrames.h"

namespace {

/// The characters 0x80 to 0x9F of code page 1252; all others have their byte's number.
constexpr wchar_t kAnsi80To9F[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
static_assert(std::size(kAnsi80To9F) == 0x20);

wchar_t FromAnsi(char byte) {
    const auto unit = static_cast<unsigned char>(byte);
    return unit >= 0x80 && unit < 0xA0 ? kAnsi80To9F[unit - 0x80] : wchar_t{unit};
}

struct Measured {
    const wchar_t* text;
    int length;
};

void Measure(void* context) {
    auto* const measured = static_cast<Measured*>(context);
    measured->length = static_cast<int>(std::wcslen(measured->text));
}

bool IsBlank(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }

}  // namespace

UINT GetACP() { return 1252; }

int MultiByteToWideChar(UINT, DWORD, const char* bytes, int size, wchar_t* text, int capacity) {
    if (size <= 0) return 0;
    if (capacity == 0) return size;
    if (capacity < size) return 0;
    std::transform(bytes, bytes + size, text, FromAnsi);
    return size;
}

int lstrlenW(const wchar_t* text) {
    Measured measured = {text, 0};
    if (!text || host::CallInFaultFrame(&Measure, &measured) != 0) return 0;
    return measured.length;
}

int wsprintfW(wchar_t* text, const wchar_t* format, ...) {
    constexpr size_t kCapacity = 1024;
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vswprintf(text, kCapacity, format, arguments);
    va_end(arguments);
    return length;
}

int _wtoi(const wchar_t* text) {
    while (IsBlank(*text)) ++text;
    const bool negative = *text == L'-';
    if (negative || *text == L'+') ++text;
    int64_t number = 0;
    for (; *text >= L'0' && *text <= L'9'; ++text)
        number = std::min<int64_t>(number * 10 + (*text - L'0'), int64_t{INT_MAX} + 1);
    return static_cast<int>(negative ? -number : std::min<int64_t>(number, INT_MAX));
}
