#pragma once

#include "JsonTypes.h"
#include "PlainText.h"

// UTF-16 as the target of RapidJSON's writers, which ask for one character at a time: here a whole
// run of characters that stand for themselves is copied at once.

namespace QXJSON {

/// UTF-16 as it stands, lone surrogates included.
struct CopiedUtf16 : rapidjson::UTF16<wchar_t> {};

/// UTF-16 that ends at a lone surrogate, as every encoding does into which RapidJSON converts.
struct CheckedUtf16 : rapidjson::UTF16<wchar_t> {};

/// Reverses the bytes of units.
inline void SwapBytes(wchar_t* units, size_t count) {
    for (size_t i = 0; i < count; ++i)
        units[i] = static_cast<wchar_t>(units[i] << 8 | units[i] >> 8);
}

/// The source of a writer's strings.
using StringSource = rapidjson::GenericStringStream<JsonEncoding>;

/// Moves the units up to `end` from a string to an output in which the writer has reserved room for
/// the string. The string has its zero behind it, where a run ends too.
template <class Output>
void CopyUpTo(const wchar_t* end, StringSource& source, Output& output) {
    const auto count = static_cast<size_t>(end - source.src_);
    CopyUnits(output.PushUnsafe(count), source.src_, count);
    source.src_ = end;
}

}  // namespace QXJSON

namespace rapidjson {

template <>
struct Transcoder<UTF16<wchar_t>, QXJSON::CopiedUtf16> {
    template <class Output>
    static bool TranscodeUnsafe(QXJSON::StringSource& is, Output& os) {
        QXJSON::CopyUpTo(QXJSON::EndOfRun(is.src_), is, os);
        return true;
    }

    // LCOV_EXCL_START: needed to compile; no writer of this library validates
    template <class Output>
    static bool Validate(QXJSON::StringSource& is, Output& os) {
        return TranscodeUnsafe(is, os);
    }
    // LCOV_EXCL_STOP
};

template <>
struct Transcoder<UTF16<wchar_t>, QXJSON::CheckedUtf16> {
    template <class Output>
    static bool TranscodeUnsafe(QXJSON::StringSource& is, Output& os) {
        const wchar_t* end = QXJSON::EndOfPlainRun(is.src_);
        if (end == is.src_) {  // a surrogate
            if (!QXJSON::IsHighSurrogate(end[0]) || !QXJSON::IsLowSurrogate(end[1])) return false;
            end += 2;
        }
        QXJSON::CopyUpTo(end, is, os);
        return true;
    }

    // LCOV_EXCL_START: needed to compile; no writer of this library validates
    template <class Output>
    static bool Validate(QXJSON::StringSource& is, Output& os) {
        return TranscodeUnsafe(is, os);
    }
    // LCOV_EXCL_STOP
};

}  // namespace rapidjson
