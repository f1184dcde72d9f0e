#include "PlainText.h"

#include "FaultGuard.h"

namespace QXJSON {
namespace {

/// Units that are zero.
UnitMask Zeros(UnitBlock units) { return MaskOf(EqualTo(units, 0)); }

/// Units from 0xD800 to 0xDFFF.
UnitMask Surrogates(UnitBlock units) {
    return MaskOf(EqualTo(_mm_and_si128(units, AllUnits(0xF800)), 0xD800));
}

/// Units that end a run.
UnitMask RunEnds(UnitBlock units) {
    const UnitBlock control = InRange(units, 0, 0x1F);
    const UnitBlock quote = EqualTo(units, '"');
    const UnitBlock backslash = EqualTo(units, '\\');
    return MaskOf(Either(control, Either(quote, backslash)));
}

/// Units other than the four kinds of white space.
UnitMask NotBlanks(UnitBlock units) {
    const UnitBlock blank = EqualTo(units, ' ');
    const UnitBlock feed = EqualTo(units, '\n');
    const UnitBlock carriage = EqualTo(units, '\r');
    const UnitBlock tab = EqualTo(units, '\t');
    return 0xFFFF & ~MaskOf(Either(Either(blank, feed), Either(carriage, tab)));
}

/// The first surrogate in [at, end), or the end.
const wchar_t* NextSurrogate(const wchar_t* at, const wchar_t* end) {
    for (; static_cast<size_t>(end - at) >= kBlockUnits; at += kBlockUnits)
        if (const UnitMask found = Surrogates(LoadBlock(at))) return at + FirstUnit(found);
    while (at != end && !IsHighSurrogate(*at) && !IsLowSurrogate(*at)) ++at;
    return at;
}

/// For text at an odd address, where no unit may be read as one, and text so near to null that its
/// block would begin there.
size_t CountOneByOne(const wchar_t* text) {
    const auto* const bytes = reinterpret_cast<const char*>(text);
    size_t at = 0;
    while (bytes[at] != 0 || bytes[at + 1] != 0) at += sizeof(wchar_t);
    return at / sizeof(wchar_t);
}

}  // namespace

size_t CountUnits(const wchar_t* text) {
    if (!IsAligned(text) || reinterpret_cast<uintptr_t>(text) < kBlockBytes)
        return CountOneByOne(text);
    return static_cast<size_t>(FindUnit(text, Zeros) - text);
}

size_t LengthOf(const wchar_t* text) {
    size_t length = 0;
    if (!text) return length;
    RunsWithoutFault([&] { length = CountUnits(text); });
    return length;
}

size_t WellFormedLength(std::wstring_view text) {
    const wchar_t* const end = text.data() + text.size();
    const wchar_t* at = NextSurrogate(text.data(), end);
    while (at != end && IsHighSurrogate(at[0]) && end - at >= 2 && IsLowSurrogate(at[1]))
        at = NextSurrogate(at + 2, end);
    return static_cast<size_t>(at - text.data());
}

const wchar_t* SkipBlanks(const wchar_t* text) {
    // Most white space is one blank.
    if (*text == L' ' && text[1] > L' ') return text + 1;
    return FindUnit(text, NotBlanks);
}

const wchar_t* EndOfRun(const wchar_t* text) { return FindUnit(text, RunEnds); }

const wchar_t* EndOfPlainRun(const wchar_t* text) {
    return FindUnit(text, [](UnitBlock units) { return RunEnds(units) | Surrogates(units); });
}

const wchar_t* EndOfAsciiRun(const wchar_t* text) {
    return FindUnit(text, [](UnitBlock units) {
        return RunEnds(units) | MaskOf(InRange(units, 0x80, 0xFFFF));
    });
}

}  // namespace QXJSON
