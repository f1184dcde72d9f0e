#include "Utf8Source.h"

#include <emmintrin.h>

#include <algorithm>

#include "Escapes.h"

namespace QXJSON {
namespace {

static_assert(ByteBlock::kReach >= kNumberReach && ByteBlock::kReach >= 2 * sizeof(__m128i));

constexpr size_t kStep = sizeof(__m128i);

__m128i Load(const char* bytes) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)); }
__m128i Equal(__m128i bytes, char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); }
unsigned Bits(__m128i bytes) { return static_cast<unsigned>(_mm_movemask_epi8(bytes)); }

/// Bytes that do not stand for themselves in a string. Signed, the bytes beyond ASCII lie below the
/// control characters.
unsigned RunEnds(__m128i bytes) {
    const __m128i low = _mm_cmplt_epi8(bytes, _mm_set1_epi8(0x20));
    return Bits(_mm_or_si128(low, _mm_or_si128(Equal(bytes, '"'), Equal(bytes, '\\'))));
}

unsigned Blanks(__m128i bytes) {
    return Bits(_mm_or_si128(_mm_or_si128(Equal(bytes, ' '), Equal(bytes, '\n')),
                             _mm_or_si128(Equal(bytes, '\r'), Equal(bytes, '\t'))));
}

void Widen(__m128i ascii, wchar_t* units) {
    const __m128i zero = _mm_setzero_si128();
    auto* const out = reinterpret_cast<__m128i*>(units);
    _mm_storeu_si128(out, _mm_unpacklo_epi8(ascii, zero));
    _mm_storeu_si128(out + 1, _mm_unpackhi_epi8(ascii, zero));
}

/// The bits that a byte adds to a character; more than six bits where it continues none.
unsigned Continuation(char byte) { return static_cast<unsigned char>(byte) ^ 0x80u; }

/// Decodes the character beyond ASCII that stands here into one unit or two, and returns where it
/// ends; null, with no unit, where it is malformed, or goes on behind the zero.
const char* Decode(const char* at, wchar_t*& out) {
    const auto lead = static_cast<unsigned char>(at[0]);
    const unsigned first = Continuation(at[1]);
    if (lead < 0xC2 || lead > 0xF4 || first > 0x3F) return nullptr;
    if (lead < 0xE0) {
        *out++ = static_cast<wchar_t>((lead & 0x1Fu) << 6 | first);
        return at + 2;
    }
    const unsigned second = Continuation(at[2]);
    if (second > 0x3F) return nullptr;
    if (lead < 0xF0) {
        const unsigned c = (lead & 0x0Fu) << 12 | first << 6 | second;
        if (c < 0x800 || (c & 0xF800) == 0xD800) return nullptr;
        *out++ = static_cast<wchar_t>(c);
        return at + 3;
    }
    const unsigned third = Continuation(at[3]);
    const unsigned c = (lead & 0x07u) << 18 | first << 12 | second << 6 | third;
    if (third > 0x3F || c < 0x10000 || c > 0x10FFFF) return nullptr;
    *out++ = static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
    *out++ = static_cast<wchar_t>(0xDC00 + (c & 0x3FF));
    return at + 4;
}

}  // namespace

const char* Utf8Source::PassBlanks(const char* at) {
    // Most white space is one blank.
    if (*at == ' ' && at[1] > ' ') return at + 1;
    do {
        unsigned others = 0;
        // The zero behind the block is no blank.
        while ((others = 0xFFFF & ~Blanks(Load(at))) == 0) at += kStep;
        at += TrailingZeros(others);
    } while (at == stream.End() && stream.More(at));
    return at;
}

/// Makes room for a step of copying behind so many units; returns where that is.
wchar_t* Utf8Source::MakeRoom(size_t used) {
    scratch.Clear();
    scratch.PushUnsafe<wchar_t>(used);
    scratch.Reserve<wchar_t>(2 * kStep);
    wchar_t* const begin = scratch.Bottom<wchar_t>();
    limit = begin + scratch.GetCapacity() / sizeof(wchar_t) - kStep;
    return begin + used;
}

/// Copies ASCII up to what does not stand for itself.
const char* Utf8Source::CopyAscii(const char* at, wchar_t*& out) {
    for (;; at += kStep, out += kStep) {
        if (out > limit) out = MakeRoom(LengthTo(out));
        const __m128i bytes = Load(at);
        Widen(bytes, out);
        if (const unsigned ends = RunEnds(bytes)) {
            out += TrailingZeros(ends);
            return at + TrailingZeros(ends);
        }
    }
}

/// Copies one escape, or characters beyond ASCII; null where neither stands here as a whole.
const char* Utf8Source::CopyOthers(const char* at, wchar_t*& out) {
    if (out > limit) out = MakeRoom(LengthTo(out));
    if (*at == '\\') {
        wchar_t units[2];
        size_t count = 0;
        at = ReadEscape(at, units, count);
        if (at) out = std::copy_n(units, count, out);
        return at;
    }
    const char* behind = nullptr;
    for (size_t i = 0; *at < 0 && i < kStep / 2; ++i) {
        const char* const next = Decode(at, out);
        if (!next) break;
        behind = at = next;
    }
    return behind;
}

/// Whether what stands here may go on behind what is in hand. A zero of the text ends all.
bool Utf8Source::IsUnfinished(const char* at) const {
    const std::string_view rest(at, static_cast<size_t>(stream.End() - at));
    if (rest.empty()) return true;
    const bool isLong = *at == '\\' || *at < 0;
    return isLong && rest.size() < kLongestEscape && rest.find('\0') == std::string_view::npos;
}

const char* Utf8Source::ReadText(const char* at) {
    wchar_t* out = scratch.Bottom<wchar_t>();
    for (bool more = true;;) {
        at = CopyAscii(at, out);
        if (*at == '"') break;
        if (const char* const behind = CopyOthers(at, out)) {
            at = behind;
        } else if (more && IsUnfinished(at)) {
            more = stream.More(at);
        } else {
            stream.GoOn(at);
            at = nullptr;
            break;
        }
    }
    length = LengthTo(out);
    return at ? at + 1 : nullptr;
}

}  // namespace QXJSON
