#pragma once

#include <cstddef>

#include "UnitBlocks.h"
#include "UnitRuns.h"
#include "common/values/JsonTypes.h"

// Text that is known to be well-formed UTF-16 can be parsed without looking at each unit on its
// own: what RapidJSON's reader needs to profit from that.

namespace QXJSON {

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

/// Found by RapidJSON's reader in place of its own, which goes unit by unit.
inline void SkipWhitespace(PlainTextStream& stream) {
    if (*stream.at <= L' ') stream.at = SkipBlanks(stream.at);
}

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
