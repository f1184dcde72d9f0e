#pragma once

#include <algorithm>

#include "Surrogates.h"
#include "UnitBlocks.h"
#include "UnitRuns.h"
#include "common/values/JsonTypes.h"

// What RapidJSON's writers write to. They ask for one character at a time; here a whole run of
// characters that stand for themselves is written at once.

namespace QXJSON {

/// The source of a writer's strings. A zero follows a string and ends every run.
using StringSource = rapidjson::GenericStringStream<JsonEncoding>;

/// How many units of an output one unit of a string becomes at most: \uXXXX.
constexpr size_t kLongestCharacter = 6;

/// How many units an output has room for, at least kLongestCharacter: as many as one likes, where
/// the writer has reserved room for the whole string. Overloaded where it has not.
template <class Output>
size_t RoomIn(Output&) {
    return SIZE_MAX;
}

/// Moves the units up to `end` from a string to an output by `copy`, in as many pieces as it takes.
template <class Output, class Copy>
void MoveUpTo(const wchar_t* end, StringSource& source, Output& output, const Copy& copy) {
    while (source.src_ != end) {
        const size_t count = std::min(static_cast<size_t>(end - source.src_), RoomIn(output));
        copy(output.PushUnsafe(count), source.src_, count);
        source.src_ += count;
    }
}

/// Whether two units are a pair of surrogates.
inline bool IsPair(const wchar_t* units) {
    return IsHighSurrogate(units[0]) && IsLowSurrogate(units[1]);
}

/// A target encoding of the writers with a way of its own to move characters from a string to an
/// output: `Rules` names RapidJSON's encoding and moves what a string goes on with, as much as it
/// likes. What RapidJSON escapes in every encoding never begins a move.
template <class Rules>
struct Target : Rules::Encoding {
    /// Has the writer leave everything beyond ASCII to the rules.
    enum { supportUnicode = 1 };
};

/// UTF-16 as it stands, lone surrogates included.
struct CopyUtf16 {
    using Encoding = rapidjson::UTF16<wchar_t>;

    template <class Output>
    static bool Move(StringSource& source, Output& output) {
        MoveUpTo(EndOfRun(source.src_), source, output, CopyUnits);
        return true;
    }
};

/// UTF-16 that ends at a lone surrogate, as every encoding does that has no units for one.
struct CheckUtf16 {
    using Encoding = rapidjson::UTF16<wchar_t>;

    template <class Output>
    static bool Move(StringSource& source, Output& output) {
        const wchar_t* end = EndOfPlainRun(source.src_);
        if (end == source.src_) {  // a surrogate
            if (!IsPair(end)) return false;
            end += 2;
        }
        MoveUpTo(end, source, output, CopyUnits);
        return true;
    }
};

/// What the two encodings of bytes have in common: ASCII in runs, the rest by `Rules::MoveOne`.
template <class Rules>
struct NarrowAscii {
    template <class Output>
    static bool Move(StringSource& source, Output& output) {
        constexpr wchar_t kBeyond = 0x80;
        if (*source.src_ < kBeyond) {
            if (MoveFew(source, output))
                MoveUpTo(EndOfAsciiRun(source.src_), source, output, NarrowUnits);
            return true;
        }
        bool moved = true;
        while (moved && *source.src_ >= kBeyond) moved = Rules::MoveOne(source, output);
        return moved;
    }

private:
    /// Moves the first few units of a run, which are often all; whether there may be more.
    template <class Output>
    static bool MoveFew(StringSource& source, Output& output) {
        constexpr size_t kFew = 4;
        static_assert(kFew <= kLongestCharacter);
        RoomIn(output);  // makes it
        const wchar_t* const from = source.src_;
        char* const to = output.PushUnsafe(0);
        size_t count = 0;
        do to[count] = static_cast<char>(from[count]);
        while (++count < kFew && IsPlainAscii(from[count]));
        output.PushUnsafe(count);
        source.src_ += count;
        return count == kFew;
    }
};

/// ASCII, with everything beyond it as \uXXXX.
struct EscapeToAscii : NarrowAscii<EscapeToAscii> {
    using Encoding = rapidjson::ASCII<>;

    template <class Output>
    static bool MoveOne(StringSource& source, Output& output) {
        if (IsPair(source.src_)) {
            Escape(source, output);
        } else if (IsHighSurrogate(*source.src_) || IsLowSurrogate(*source.src_)) {
            return false;
        }
        Escape(source, output);
        return true;
    }

private:
    template <class Output>
    static void Escape(StringSource& source, Output& output) {
        constexpr char kDigits[] = "0123456789ABCDEF";
        RoomIn(output);
        const unsigned unit = *source.src_++;
        char* const to = output.PushUnsafe(6);
        to[0] = '\\';
        to[1] = 'u';
        for (int i = 0; i < 4; ++i) to[2 + i] = kDigits[unit >> (12 - 4 * i) & 0xF];
    }
};

/// UTF-8.
struct EncodeUtf8 : NarrowAscii<EncodeUtf8> {
    using Encoding = rapidjson::UTF8<>;

    template <class Output>
    static bool MoveOne(StringSource& source, Output& output) {
        unsigned codepoint = 0;
        if (!JsonEncoding::Decode(source, &codepoint)) return false;
        RoomIn(output);
        UnitWriter to = {output.PushUnsafe(codepoint < 0x800 ? 2 : codepoint < 0x10000 ? 3 : 4)};
        Encoding::Encode(to, codepoint);
        return true;
    }

private:
    /// An output where there is room for one character.
    struct UnitWriter {
        using Ch = char;
        void Put(char unit) { *at++ = unit; }
        char* at;
    };
};

using CopiedUtf16 = Target<CopyUtf16>;
using CheckedUtf16 = Target<CheckUtf16>;
using EscapedAscii = Target<EscapeToAscii>;
using EncodedUtf8 = Target<EncodeUtf8>;

}  // namespace QXJSON

namespace rapidjson {

template <class Rules>
struct Transcoder<UTF16<wchar_t>, QXJSON::Target<Rules>> {
    template <class Output>
    static bool TranscodeUnsafe(QXJSON::StringSource& source, Output& output) {
        return Rules::Move(source, output);
    }

    // LCOV_EXCL_START: needed to compile; no writer of this library validates
    template <class Output>
    static bool Validate(QXJSON::StringSource& source, Output& output) {
        return TranscodeUnsafe(source, output);
    }
    // LCOV_EXCL_STOP
};

}  // namespace rapidjson
