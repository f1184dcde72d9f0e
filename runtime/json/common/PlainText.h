#pragma once

#include <cstddef>
#include <string_view>

#include "JsonTypes.h"
#include "UnitBlocks.h"

// Text that is known to be well-formed UTF-16 can be parsed without looking at each unit on its
// own. Here is what makes sure of that, and what RapidJSON's reader needs to profit from it.

namespace QXJSON {

/// The length of a zero-terminated text in units. A pointer to nothing faults.
size_t CountUnits(const wchar_t* text);

/// The length of a zero-terminated text in units, as lstrlenW tells it: 0 for null, and where
/// memory ends before the text does.
size_t LengthOf(const wchar_t* text);

/// How many units of a text stand before its first surrogate that is not one of a pair; all of them
/// where there is none.
size_t WellFormedLength(std::wstring_view text);

/// A stream over zero-terminated UTF-16 text at an even address, as RapidJSON's readers take it.
struct PlainTextStream {
    using Ch = wchar_t;

    explicit PlainTextStream(const wchar_t* text) : at(text), begin(text) {}

    Ch Peek() const { return *at; }
    Ch Take() { return *at++; }
    size_t Tell() const { return static_cast<size_t>(at - begin); }

    // LCOV_EXCL_START: asked for by the concept; a source is not written to
    Ch* PutBegin() { return nullptr; }
    void Put(Ch) {}
    void Flush() {}
    size_t PutEnd(Ch*) { return 0; }
    // LCOV_EXCL_STOP

    const Ch* at;
    const Ch* begin;
};

/// The encoding of a PlainTextStream: UTF-16 whose characters are copied in runs.
struct PlainUtf16 : rapidjson::UTF16<wchar_t> {};

/// The first unit that is not white space of JSON.
const wchar_t* SkipBlanks(const wchar_t* text);

/// Found by RapidJSON's reader in place of its own, which goes unit by unit.
inline void SkipWhitespace(PlainTextStream& stream) {
    if (*stream.at <= L' ') stream.at = SkipBlanks(stream.at);
}

/// The end of the run of units that stand for themselves in a JSON string: the first quotation
/// mark, backslash or control character.
const wchar_t* EndOfRun(const wchar_t* text);

/// The same, with surrogates among what ends a run.
const wchar_t* EndOfPlainRun(const wchar_t* text);

/// The same, with everything beyond ASCII among what ends a run.
const wchar_t* EndOfAsciiRun(const wchar_t* text);

/// Whether a unit goes on such a run.
inline bool IsPlainAscii(wchar_t c) {
    return static_cast<unsigned>(c) - 0x20 < 0x60 && c != '"' && c != '\\';
}

inline bool IsHighSurrogate(wchar_t c) { return (c & 0xFC00) == 0xD800; }
inline bool IsLowSurrogate(wchar_t c) { return (c & 0xFC00) == 0xDC00; }

}  // namespace QXJSON

namespace rapidjson {

template <>
struct StreamTraits<QXJSON::PlainTextStream> {
    enum { copyOptimization = 1 };
};

/// Copies the rest of a run where RapidJSON asks for one character.
template <>
struct Transcoder<QXJSON::PlainUtf16, UTF16<wchar_t>> {
    template <class OutputStream>
    static bool Transcode(QXJSON::PlainTextStream& is, OutputStream& os) {
        const wchar_t* const end = QXJSON::EndOfRun(is.at);
        const auto length = static_cast<SizeType>(end - is.at);
        QXJSON::CopyUnits(static_cast<wchar_t*>(os.Push(length)), is.at, length);
        is.at = end;
        return true;
    }

    // LCOV_EXCL_START: needed to compile; the text is known to be valid
    template <class OutputStream>
    static bool Validate(QXJSON::PlainTextStream& is, OutputStream& os) {
        return Transcode(is, os);
    }
    // LCOV_EXCL_STOP
};

}  // namespace rapidjson
