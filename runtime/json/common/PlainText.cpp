#include "PlainText.h"

#include <emmintrin.h>

#include <cstdint>

#include "FaultGuard.h"

namespace QXJSON {
namespace {

// Eight units at a time. An aligned block never reaches into a page that the text does not, so that
// it does no harm to look at units behind the text's end; only an address sanitizer would object.

constexpr size_t kUnits = 8;
constexpr uintptr_t kBlock = sizeof(__m128i);

using Mask = unsigned;  // two bits for each unit of a block

[[gnu::no_sanitize_address]] __m128i Load(const wchar_t* block) {
    return _mm_load_si128(reinterpret_cast<const __m128i*>(block));
}
__m128i LoadUnaligned(const void* block) {
    return _mm_loadu_si128(static_cast<const __m128i*>(block));
}
__m128i All(int unit) { return _mm_set1_epi16(static_cast<short>(unit)); }
Mask Bits(__m128i units) { return static_cast<Mask>(_mm_movemask_epi8(units)); }
unsigned FirstUnit(Mask mask) { return static_cast<unsigned>(__builtin_ctz(mask)) / 2; }

/// Units that are zero.
Mask Zeros(__m128i units) { return Bits(_mm_cmpeq_epi16(units, _mm_setzero_si128())); }

/// Units from 0xD800 to 0xDFFF.
Mask Surrogates(__m128i units) {
    return Bits(_mm_cmpeq_epi16(_mm_and_si128(units, All(0xF800)), All(0xD800)));
}

/// Units that end a run.
Mask RunEnds(__m128i units) {
    const __m128i control = _mm_cmpeq_epi16(_mm_subs_epu16(units, All(0x1F)), _mm_setzero_si128());
    const __m128i quote = _mm_cmpeq_epi16(units, All('"'));
    const __m128i backslash = _mm_cmpeq_epi16(units, All('\\'));
    return Bits(_mm_or_si128(control, _mm_or_si128(quote, backslash)));
}

/// Units other than the four kinds of white space.
Mask NotBlanks(__m128i units) {
    const __m128i blank = _mm_cmpeq_epi16(units, All(' '));
    const __m128i feed = _mm_cmpeq_epi16(units, All('\n'));
    const __m128i carriage = _mm_cmpeq_epi16(units, All('\r'));
    const __m128i tab = _mm_cmpeq_epi16(units, All('\t'));
    return 0xFFFF & ~Bits(_mm_or_si128(_mm_or_si128(blank, feed), _mm_or_si128(carriage, tab)));
}

/// The first unit that a test of blocks finds; there must be one.
template <class Test>
[[gnu::no_sanitize_address]] const wchar_t* FindFirst(const wchar_t* text, Test test) {
    // In numbers, for the block may begin in front of the text's memory.
    const auto address = reinterpret_cast<uintptr_t>(text);
    const uintptr_t ahead = address % kBlock;
    const auto* block = reinterpret_cast<const wchar_t*>(address - ahead);
    Mask found = test(Load(block)) >> ahead << ahead;
    while (found == 0) found = test(Load(block += kUnits));
    return block + FirstUnit(found);
}

bool IsHigh(wchar_t c) { return (c & 0xFC00) == 0xD800; }
bool IsLow(wchar_t c) { return (c & 0xFC00) == 0xDC00; }

/// The first surrogate in [at, end), or the end.
const wchar_t* NextSurrogate(const wchar_t* at, const wchar_t* end) {
    for (; static_cast<size_t>(end - at) >= kUnits; at += kUnits)
        if (const Mask found = Surrogates(LoadUnaligned(at))) return at + FirstUnit(found);
    while (at != end && !IsHigh(*at) && !IsLow(*at)) ++at;
    return at;
}

/// For text at an odd address, where no unit may be read as one.
size_t CountUnalignedUnits(const wchar_t* text) {
    const auto* const bytes = reinterpret_cast<const char*>(text);
    size_t at = 0;
    while (bytes[at] != 0 || bytes[at + 1] != 0) at += sizeof(wchar_t);
    return at / sizeof(wchar_t);
}

size_t CountUnits(const wchar_t* text) {
    if (reinterpret_cast<uintptr_t>(text) % sizeof(wchar_t) != 0) return CountUnalignedUnits(text);
    return static_cast<size_t>(FindFirst(text, Zeros) - text);
}

}  // namespace

size_t LengthOf(const wchar_t* text) {
    size_t length = 0;
    // Null, or so near to it that its block would begin there.
    if (reinterpret_cast<uintptr_t>(text) < kBlock) return length;
    RunsWithoutFault([&] { length = CountUnits(text); });
    return length;
}

size_t WellFormedLength(std::wstring_view text) {
    const wchar_t* const end = text.data() + text.size();
    const wchar_t* at = NextSurrogate(text.data(), end);
    while (at != end && IsHigh(at[0]) && end - at >= 2 && IsLow(at[1]))
        at = NextSurrogate(at + 2, end);
    return static_cast<size_t>(at - text.data());
}

const wchar_t* SkipBlanks(const wchar_t* text) {
    // Most white space is one blank.
    if (*text == L' ' && text[1] > L' ') return text + 1;
    return FindFirst(text, NotBlanks);
}

const wchar_t* EndOfRun(const wchar_t* text) { return FindFirst(text, RunEnds); }

}  // namespace QXJSON
