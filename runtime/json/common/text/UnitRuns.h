#pragma once

#include "UnitBlocks.h"

// Runs of UTF-16 units in zero-terminated text at an even address: of white space, and of units
// that stand for themselves in a JSON string.

namespace QXJSON {

/// The first unit that is not white space of JSON.
const wchar_t* SkipBlanks(const wchar_t* text);

/// The units of a block that do not stand for themselves in a JSON string: quotation marks,
/// backslashes and control characters.
inline UnitMask RunEnds(UnitBlock units) {
    const UnitBlock control = InRange(units, 0, 0x1F);
    const UnitBlock quote = EqualTo(units, '"');
    const UnitBlock backslash = EqualTo(units, '\\');
    return MaskOf(Either(control, Either(quote, backslash)));
}

/// The end of the run of units that stand for themselves in a JSON string: the first that does not,
/// or surrogate.
const wchar_t* EndOfPlainRun(const wchar_t* text);

/// The same, with only those surrogates among what ends a run that are not one of a pair.
const wchar_t* EndOfWellFormedRun(const wchar_t* text);

}  // namespace QXJSON
