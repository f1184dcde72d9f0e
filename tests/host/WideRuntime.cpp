// The C library's functions for wide text, in units of 16 bits: the library's own have 32. They are
// hidden, because the C++ runtime library needs the others. <cwchar> and what includes it
// would declare them as everybody's.

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#pragma GCC visibility push(hidden)

extern "C" {

size_t wcslen(const wchar_t* text);
int wmemcmp(const wchar_t* a, const wchar_t* b, size_t count);
int wcscmp(const wchar_t* a, const wchar_t* b);
int wcscasecmp(const wchar_t* a, const wchar_t* b);
wchar_t* wmemchr(const wchar_t* text, wchar_t c, size_t count);
wchar_t* wcschr(const wchar_t* text, wchar_t c);
wchar_t* wmemcpy(wchar_t* to, const wchar_t* from, size_t count);
wchar_t* wmemmove(wchar_t* to, const wchar_t* from, size_t count);
wchar_t* wmemset(wchar_t* to, wchar_t c, size_t count);
long wcstol(const wchar_t* text, wchar_t** end, int base);
double wcstod(const wchar_t* text, wchar_t** end);
int vswprintf(wchar_t* text, size_t capacity, const wchar_t* format, va_list arguments);
int swprintf(wchar_t* text, size_t capacity, const wchar_t* format, ...);

size_t wcslen(const wchar_t* text) {
    size_t length = 0;
    while (text[length]) ++length;
    return length;
}

int wmemcmp(const wchar_t* a, const wchar_t* b, size_t count) {
    for (size_t i = 0; i < count; ++i)
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    return 0;
}

int wcscmp(const wchar_t* a, const wchar_t* b) {
    while (*a && *a == *b) ++a, ++b;
    return *a - *b;
}

int wcscasecmp(const wchar_t* a, const wchar_t* b) {
    const auto lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? c + (L'a' - L'A') : c; };
    while (*a && lower(*a) == lower(*b)) ++a, ++b;
    return lower(*a) - lower(*b);
}

wchar_t* wmemchr(const wchar_t* text, wchar_t c, size_t count) {
    for (; count > 0; --count, ++text)
        if (*text == c) return const_cast<wchar_t*>(text);
    return nullptr;
}

wchar_t* wcschr(const wchar_t* text, wchar_t c) { return wmemchr(text, c, wcslen(text) + 1); }

wchar_t* wmemcpy(wchar_t* to, const wchar_t* from, size_t count) {
    return static_cast<wchar_t*>(memcpy(to, from, count * sizeof *to));
}

wchar_t* wmemmove(wchar_t* to, const wchar_t* from, size_t count) {
    return static_cast<wchar_t*>(memmove(to, from, count * sizeof *to));
}

wchar_t* wmemset(wchar_t* to, wchar_t c, size_t count) {
    for (size_t i = 0; i < count; ++i) to[i] = c;
    return to;
}
}

namespace {

constexpr size_t kCapacity = 1024;

/// The ASCII characters that text begins with, as many as a number has at most.
class Narrow {
public:
    explicit Narrow(const wchar_t* text) {
        for (; length + 1 < kCapacity && text[length] > 0 && text[length] < 0x80; ++length)
            characters[length] = static_cast<char>(text[length]);
    }
    const char* Text() const { return characters; }

private:
    size_t length = 0;
    char characters[kCapacity] = {};
};

/// Reads a number from wide text with a function for narrow text.
template <class Read>
auto ReadNumber(const wchar_t* text, wchar_t** end, const Read& read) {
    const Narrow narrow(text);
    char* stop = nullptr;
    const auto number = read(narrow.Text(), &stop);
    if (end) *end = const_cast<wchar_t*>(text) + (stop - narrow.Text());
    return number;
}

}  // namespace

extern "C" {

long wcstol(const wchar_t* text, wchar_t** end, int base) {
    return ReadNumber(text, end,
                      [&](const char* at, char** stop) { return strtol(at, stop, base); });
}

double wcstod(const wchar_t* text, wchar_t** end) { return ReadNumber(text, end, strtod); }

/// For formats of numbers.
int vswprintf(wchar_t* text, size_t capacity, const wchar_t* format, va_list arguments) {
    char narrow[kCapacity];
    const int length = vsnprintf(narrow, sizeof narrow, Narrow(format).Text(), arguments);
    if (length < 0 || static_cast<size_t>(length) >= capacity || length >= int{kCapacity})
        return -1;
    for (int i = 0; i <= length; ++i) text[i] = static_cast<wchar_t>(narrow[i]);
    return length;
}

int swprintf(wchar_t* text, size_t capacity, const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vswprintf(text, capacity, format, arguments);
    va_end(arguments);
    return length;
}
}

#pragma GCC visibility pop
