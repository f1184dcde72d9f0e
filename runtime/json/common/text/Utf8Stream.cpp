#include "Utf8Stream.h"

#include <emmintrin.h>

#include <cstdint>

#include "common/platform/Compiler.h"

namespace QXJSON {
namespace {

constexpr size_t kStep = sizeof(__m128i);

__m128i Load(const char* bytes) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)); }
__m128i Equal(__m128i bytes, char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); }
unsigned Bits(__m128i bytes) { return static_cast<unsigned>(_mm_movemask_epi8(bytes)); }
size_t First(unsigned mask) { return TrailingZeros(mask); }

/// Bytes that end a run. Signed, the bytes beyond ASCII lie below the control characters.
unsigned RunEnds(__m128i bytes) {
    const __m128i low = _mm_cmplt_epi8(bytes, _mm_set1_epi8(0x20));
    return Bits(_mm_or_si128(low, _mm_or_si128(Equal(bytes, '"'), Equal(bytes, '\\'))));
}

unsigned Blanks(__m128i bytes) {
    return Bits(_mm_or_si128(_mm_or_si128(Equal(bytes, ' '), Equal(bytes, '\n')),
                             _mm_or_si128(Equal(bytes, '\r'), Equal(bytes, '\t'))));
}

/// Takes the bytes behind a lead byte, whatever they are, as RapidJSON's decoder does; false when
/// one of them continues nothing.
bool TakeContinuation(Utf8Stream& stream, int count, uint32_t& character) {
    unsigned marks = 0;
    for (; count > 0; --count) {
        const auto byte = static_cast<unsigned char>(stream.Take());
        marks |= byte ^ 0x80u;
        character = character << 6 | (byte & 0x3Fu);
    }
    return (marks & 0xC0) == 0;
}

}  // namespace

/// At the source's end the block is empty, and the stream stays on the zero behind it.
void Utf8Stream::Refill() {
    before += static_cast<size_t>(end - block);
    const size_t count = source->Read(block, ByteBlock::kSize);
    block[count] = 0;
    at = block;
    end = block + count;
}

void Utf8Stream::SkipBlanks() {
    for (;;) {
        const char* ahead = at;
        unsigned others = 0;
        // The zero behind the block is no blank.
        while ((others = 0xFFFF & ~Blanks(Load(ahead))) == 0) ahead += kStep;
        ahead += First(others);
        if (ahead != end || at == end) {
            at = ahead;
            return;
        }
        Advance(static_cast<size_t>(end - at));
    }
}

size_t AsciiRun(const char* bytes) {
    const char* ahead = bytes;
    unsigned ends = 0;
    // The zero behind the block ends a run as well.
    while ((ends = RunEnds(Load(ahead))) == 0) ahead += kStep;
    return static_cast<size_t>(ahead - bytes) + First(ends);
}

void Widen(const char* bytes, size_t count, wchar_t* units) {
    const __m128i zero = _mm_setzero_si128();
    for (; count >= kStep; bytes += kStep, units += kStep, count -= kStep) {
        const __m128i ascii = Load(bytes);
        auto* const out = reinterpret_cast<__m128i*>(units);
        _mm_storeu_si128(out, _mm_unpacklo_epi8(ascii, zero));
        _mm_storeu_si128(out + 1, _mm_unpackhi_epi8(ascii, zero));
    }
    for (size_t i = 0; i < count; ++i) units[i] = static_cast<unsigned char>(bytes[i]);
}

size_t TakeCharacter(Utf8Stream& stream, wchar_t (&units)[2]) {
    const auto lead = static_cast<unsigned char>(stream.Take());
    if (lead < 0xC2 || lead > 0xF4) return 0;
    const int more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    uint32_t c = lead & (0x3Fu >> more);
    if (!TakeContinuation(stream, more, c)) return 0;
    if (more < 3) {
        const bool overlong = more == 2 && c < 0x800;
        const bool surrogate = c >= 0xD800 && c < 0xE000;
        units[0] = static_cast<wchar_t>(c);
        return overlong || surrogate ? 0 : 1;
    }
    if (c < 0x10000 || c > 0x10FFFF) return 0;
    units[0] = static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
    units[1] = static_cast<wchar_t>(0xDC00 + (c & 0x3FF));
    return 2;
}

}  // namespace QXJSON
