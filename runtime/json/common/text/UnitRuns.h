#pragma once

// Runs of UTF-16 units in zero-terminated text at an even address: of white space, and of units
// that stand for themselves in a JSON string.

namespace QXJSON {

/// The first unit that is not white space of JSON.
const wchar_t* SkipBlanks(const wchar_t* text);

/// The end of the run of units that stand for themselves in a JSON string: the first quotation
/// mark, backslash or control character.
const wchar_t* EndOfRun(const wchar_t* text);

/// The same, with surrogates among what ends a run.
const wchar_t* EndOfPlainRun(const wchar_t* text);

/// The same, with only those surrogates among what ends a run that are not one of a pair.
const wchar_t* EndOfWellFormedRun(const wchar_t* text);

/// The end of a plain run, with everything beyond ASCII among what ends a run.
const wchar_t* EndOfAsciiRun(const wchar_t* text);

/// Whether a unit goes on such a run.
inline bool IsPlainAscii(wchar_t c) {
    return static_cast<unsigned>(c) - 0x20 < 0x60 && c != '"' && c != '\\';
}

}  // namespace QXJSON
