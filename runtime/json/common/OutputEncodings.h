#pragma once

#include <cstring>
#include <string_view>

#include "JsonTypes.h"
#include "PlainText.h"

// UTF-16 as the target of RapidJSON's writers, which ask for one character at a time: here a whole
// run of characters that stand for themselves is copied at once.

namespace QXJSON {

/// UTF-16 as it stands, lone surrogates included.
struct CopiedUtf16 : rapidjson::UTF16<wchar_t> {};

/// UTF-16 that ends at a lone surrogate, as every encoding does into which RapidJSON converts.
struct CheckedUtf16 : rapidjson::UTF16<wchar_t> {};

/// The source of a writer's strings.
using StringSource = rapidjson::GenericStringStream<JsonEncoding>;

/// Takes the rest of a run from a string. The string has its zero behind it, where a run ends too.
inline std::wstring_view TakeRun(StringSource& source) {
    const wchar_t* const begin = source.src_;
    source.src_ = EndOfRun(begin);
    return {begin, static_cast<size_t>(source.src_ - begin)};
}

/// Appends to a buffer in which the writer has reserved room for the string.
inline void Append(JsonTextBuffer& buffer, std::wstring_view run) {
    std::memcpy(buffer.PushUnsafe(run.size()), run.data(), run.size() * sizeof(wchar_t));
}

}  // namespace QXJSON

namespace rapidjson {

template <>
struct Transcoder<UTF16<wchar_t>, QXJSON::CopiedUtf16> {
    static bool TranscodeUnsafe(QXJSON::StringSource& is, QXJSON::JsonTextBuffer& os) {
        QXJSON::Append(os, QXJSON::TakeRun(is));
        return true;
    }

    // Needed to compile; no writer of this library validates.
    static bool Validate(QXJSON::StringSource& is, QXJSON::JsonTextBuffer& os) {
        return TranscodeUnsafe(is, os);
    }
};

template <>
struct Transcoder<UTF16<wchar_t>, QXJSON::CheckedUtf16> {
    static bool TranscodeUnsafe(QXJSON::StringSource& is, QXJSON::JsonTextBuffer& os) {
        const std::wstring_view run = QXJSON::TakeRun(is);
        const size_t paired = QXJSON::WellFormedLength(run);
        QXJSON::Append(os, run.substr(0, paired));
        return paired == run.size();
    }

    static bool Validate(QXJSON::StringSource& is, QXJSON::JsonTextBuffer& os) {
        return TranscodeUnsafe(is, os);
    }
};

}  // namespace rapidjson
