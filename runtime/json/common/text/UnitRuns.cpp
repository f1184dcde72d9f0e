#include "UnitRuns.h"

#include "Surrogates.h"

namespace QXJSON {
namespace {

/// Units other than the four kinds of white space.
UnitMask NotBlanks(UnitBlock units) {
    const UnitBlock blank = EqualTo(units, ' ');
    const UnitBlock feed = EqualTo(units, '\n');
    const UnitBlock carriage = EqualTo(units, '\r');
    const UnitBlock tab = EqualTo(units, '\t');
    return 0xFFFF & ~MaskOf(Either(Either(blank, feed), Either(carriage, tab)));
}

}  // namespace

const wchar_t* SkipBlanks(const wchar_t* text) {
    // Most white space is one blank.
    if (*text == L' ' && text[1] > L' ') return text + 1;
    return FindUnit(text, NotBlanks);
}

const wchar_t* EndOfPlainRun(const wchar_t* text) {
    return FindUnit(text, [](UnitBlock units) { return RunEnds(units) | SurrogatesIn(units); });
}

const wchar_t* EndOfWellFormedRun(const wchar_t* text) {
    const wchar_t* end = EndOfPlainRun(text);
    // A high surrogate is no zero, so that the unit behind it is one of the text.
    while (IsHighSurrogate(end[0]) && IsLowSurrogate(end[1])) end = EndOfPlainRun(end + 2);
    return end;
}

}  // namespace QXJSON
