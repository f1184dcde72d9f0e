#pragma once

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "NumberWriter.h"
#include "OutputEncodings.h"
#include "TextOutput.h"
#include "common/platform/Compiler.h"
#include "common/values/JsonTypes.h"

namespace QXJSON {

/// Takes the events of a document and writes its text to a stream, as RapidJSON's writers do.
///
/// A stream has
/// - kMostReserved: how many units can be reserved at once.
/// - Reserve(count): where so many units can be written, behind what was written before.
/// - Advance(end): what was written there ends here.
template <class Stream, class Encoding, Layout layout>
class TextWriter {
    using Unit = typename Encoding::Unit;
    using Length = rapidjson::SizeType;

public:
    explicit TextWriter(Stream& target) : stream(target) {}

    bool Null() { return Word("null"); }
    bool Bool(bool flag) { return flag ? Word("true") : Word("false"); }
    bool Int(int number) { return Int64(number); }
    bool Uint(unsigned number) { return Uint64(number); }
    bool Int64(int64_t number) {
        stream.Advance(WriteInteger(BeginItem(kLongestNumber), number));
        return true;
    }
    bool Uint64(uint64_t number) {
        stream.Advance(WriteWhole(BeginItem(kLongestNumber), number));
        return true;
    }
    bool Double(double number) {
        if (!std::isfinite(number)) return NonFinite(number);
        stream.Advance(WriteDouble(BeginItem(kLongestNumber), number));
        return true;
    }

    bool String(const wchar_t* text, Length length, bool = false) {
        const wchar_t* const end = text + length;
        const wchar_t* piece = EndOfPiece(text, end);
        Unit* to = BeginItem(RoomFor(piece - text));
        *to++ = Unit{'"'};
        for (;;) {
            const bool whole = PutText<Encoding>(text, piece, to);
            if (whole && piece == end) *to++ = Unit{'"'};
            stream.Advance(to);
            if (!whole || piece == end) return whole;
            text = piece;
            piece = EndOfPiece(text, end);
            to = stream.Reserve(RoomFor(piece - text));
        }
    }
    bool Key(const wchar_t* text, Length length, bool = false) {
        if (!String(text, length)) return false;
        Put(kIsIndented ? ": " : ":");
        next = Next::kAnything;
        return true;
    }

    bool StartObject() { return Start('{'); }
    bool StartArray() { return Start('['); }
    bool EndObject(Length count) { return End('}', count); }
    bool EndArray(Length count) { return End(']', count); }

private:
    static constexpr bool kIsIndented = layout == Layout::kIndented;
    static constexpr size_t kIndent = 4;
    /// How much indentation is written at once.
    static constexpr size_t kWidest = 64 * kIndent;

    /// What may come next.
    enum class Next {
        kAnything,  ///< a root, or the value behind a name
        kFirst,     ///< the first of a container
        kFurther,   ///< another
    };

    // ---- Strings

    static constexpr bool kInPieces = Stream::kMostReserved != SIZE_MAX;
    static constexpr std::ptrdiff_t kPiece =
        (Stream::kMostReserved - kWidest - 4) / kLongestCharacter - 1;

    static size_t RoomFor(std::ptrdiff_t length) {
        return 2 + static_cast<size_t>(length) * kLongestCharacter;
    }

    /// A string that room can be reserved for at once; a pair of surrogates stays together.
    static const wchar_t* EndOfPiece(const wchar_t* text, const wchar_t* end) {
        if constexpr (kInPieces) {
            if (end - text > kPiece)
                return text + (IsPair(text + kPiece - 1) ? kPiece + 1 : kPiece);
        }
        return end;
    }

    // ---- What else there is

    void Put(std::string_view characters) {
        stream.Advance(PutAt(stream.Reserve(characters.size()), characters));
    }
    static Unit* PutAt(Unit* to, std::string_view characters) {
        for (const char c : characters) *to++ = static_cast<Unit>(c);
        return to;
    }

    bool Word(std::string_view word) {
        stream.Advance(PutAt(BeginItem(word.size()), word));
        return true;
    }

    bool NonFinite(double number) {
        const bool isNan = std::isnan(number);
        if (layout == Layout::kCompact)
            return Word(isNan ? "NaN" : number < 0 ? "-Infinity" : "Infinity");
        stream.Advance(BeginItem(0));
        return false;
    }

    bool Start(char bracket) {
        Unit* const to = BeginItem(1);
        *to = static_cast<Unit>(bracket);
        stream.Advance(to + 1);
        next = Next::kFirst;
        ++level;
        return true;
    }

    bool End(char bracket, Length count) {
        --level;
        Unit* const to = kIsIndented && count > 0 ? NewLine(false, 1) : stream.Reserve(1);
        *to = static_cast<Unit>(bracket);
        stream.Advance(to + 1);
        next = Next::kFurther;
        return true;
    }

    /// Writes what stands in front of a value or name; there is room for so many units then.
    JSON_ALWAYS_INLINE Unit* BeginItem(size_t count) {
        const Next which = std::exchange(next, Next::kFurther);
        if constexpr (kIsIndented)
            if (which != Next::kAnything) return NewLine(which == Next::kFurther, count);
        Unit* const to = stream.Reserve(1 + count);
        *to = Unit{','};
        return to + (which == Next::kFurther ? 1 : 0);
    }

    /// Begins a line, behind a comma or not; there is room for so many units then.
    Unit* NewLine(bool hasComma, size_t count) {
        Unit* to = stream.Reserve(2 + kWidest + count);
        if (hasComma) *to++ = Unit{','};
        *to++ = Unit{'\n'};
        size_t indent = level * kIndent;
        for (; indent > kWidest; indent -= kWidest) {
            stream.Advance(std::fill_n(to, kWidest, Unit{' '}));
            to = stream.Reserve(kWidest + count);
        }
        return std::fill_n(to, indent, Unit{' '});
    }

    Stream& stream;
    Next next = Next::kAnything;
    size_t level = 0;
};

}  // namespace QXJSON
