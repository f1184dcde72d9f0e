#pragma once

#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>

#include "BlockStream.h"
#include "OutputEncodings.h"

namespace QXJSON {

/// Whether a stream has limited room, so that a writer cannot reserve it for every string.
template <class Stream>
inline constexpr bool kIsLimited = false;
template <class Unit>
inline constexpr bool kIsLimited<BlockStream<Unit>> = true;

/// One of RapidJSON's writers, for strings of any length.
template <class RapidWriter, class Stream, class Encoding>
class TextWriter : public RapidWriter {
public:
    explicit TextWriter(Stream& target) : RapidWriter(target), stream(target) {}

    /// Takes the memory for so many levels, one inside the other.
    void ReserveLevels(size_t count) {
        this->level_stack_.template Reserve<typename RapidWriter::Level>(count);
    }

    bool String(const wchar_t* text, rapidjson::SizeType length, bool copy = false) {
        if constexpr (kIsLimited<Stream>) {
            constexpr size_t kLongest = (Stream::kMostReserved - 2) / kLongestCharacter;
            if (length > kLongest) return WriteUnreserved(text, length);
        }
        return RapidWriter::String(text, length, copy);
    }
    bool Key(const wchar_t* text, rapidjson::SizeType length, bool copy = false) {
        return String(text, length, copy);
    }

private:
    bool WriteUnreserved(const wchar_t* text, rapidjson::SizeType length) {
        RapidWriter::RawValue(text, 0, rapidjson::kStringType);  // what stands before the string
        using Unreserved = UnreservedStream<typename Stream::Ch>;
        Unreserved unreserved(stream);
        rapidjson::Writer<Unreserved, JsonEncoding, Encoding, HeapAllocator> writer(unreserved);
        return writer.String(text, length);
    }

    Stream& stream;
};

/// Writes no white space, and numbers that are not finite as NaN, Infinity and -Infinity.
template <class Stream, class Encoding>
using CompactWriter = TextWriter<rapidjson::Writer<Stream, JsonEncoding, Encoding, HeapAllocator,
                                                   rapidjson::kWriteNanAndInfFlag>,
                                 Stream, Encoding>;
/// Ends at a number that is not finite.
template <class Stream, class Encoding>
using CompactFiniteWriter =
    TextWriter<rapidjson::Writer<Stream, JsonEncoding, Encoding, HeapAllocator>, Stream, Encoding>;
/// The same, with four spaces a level.
template <class Stream, class Encoding>
using IndentingWriter =
    TextWriter<rapidjson::PrettyWriter<Stream, JsonEncoding, Encoding, HeapAllocator>, Stream,
               Encoding>;

}  // namespace QXJSON
