#pragma once

#include <cstddef>
#include <string_view>

#include "common/values/JsonTypes.h"

// UTF-8 as RapidJSON's reader takes it, but in runs: where the reader asks for one character the
// rest of a run of ASCII is converted with it. Nothing but the block that is read lies in memory.

namespace QXJSON {

/// Where bytes come from, one block after the other.
class ByteSource {
public:
    /// Puts up to `room` bytes into `block` and returns how many; 0 at the end.
    virtual size_t Read(char* block, size_t room) = 0;

protected:
    ~ByteSource() = default;
};

/// A block of bytes with room behind it for a zero and for looking at sixteen bytes at a time.
struct ByteBlock {
    static constexpr size_t kSize = 4096;
    char bytes[kSize + 16];
};

/// A stream over a source, block by block. A zero byte ends it, as it ends every stream of
/// RapidJSON; at the end of its source it gives zeros and stays where it is. RapidJSON's detecting
/// stream can read it as well: then it is a stream of bytes in any encoding.
class Utf8Stream {
public:
    using Ch = char;

    Utf8Stream(ByteSource& bytes, ByteBlock& memory)
        : source(&bytes), block(memory.bytes), at(block), end(block) {
        Refill();
    }

    Ch Peek() const { return *at; }
    Ch Take() {
        const Ch c = *at;
        Advance(1);
        return c;
    }
    size_t Tell() const { return before + static_cast<size_t>(at - block); }
    /// For the detection of encodings, at the beginning of a source.
    const Ch* Peek4() const { return end - at >= 4 ? at : nullptr; }

    // LCOV_EXCL_START: asked for by the concept; a source is not written to
    Ch* PutBegin() { return nullptr; }
    void Put(Ch) {}
    void Flush() {}
    size_t PutEnd(Ch*) { return 0; }
    // LCOV_EXCL_STOP

    /// The bytes from here to the end of the block; a zero stands behind them.
    const char* At() const { return at; }
    std::string_view InHand() const { return {at, static_cast<size_t>(end - at)}; }
    /// Whether the source has no more bytes.
    bool AtEnd() const { return at == end; }
    /// Passes over so many bytes of the block.
    void Advance(size_t count) {
        at += count;
        if (at >= end) Refill();
    }
    void SkipBlanks();

private:
    void Refill();

    ByteSource* source;
    char* block;
    const char* at;
    const char* end;  // `at` is here only when the source is at its end
    size_t before = 0;
};

/// Found by RapidJSON's reader in place of its own, which goes byte by byte.
inline void SkipWhitespace(Utf8Stream& stream) {
    if (static_cast<unsigned char>(stream.Peek()) <= ' ') stream.SkipBlanks();
}

/// The encoding of a Utf8Stream.
struct Utf8InRuns : rapidjson::UTF8<char> {};

/// How many bytes from here stand for themselves in a JSON string: ASCII but for the quotation
/// mark, the backslash and control characters.
size_t AsciiRun(const char* bytes);

/// Widens ASCII.
void Widen(const char* bytes, size_t count, wchar_t* units);

/// Takes a character beyond ASCII and writes its units, one or two; 0 when it is malformed.
size_t TakeCharacter(Utf8Stream& stream, wchar_t (&units)[2]);

}  // namespace QXJSON

namespace rapidjson {

template <>
struct StreamTraits<QXJSON::Utf8Stream> {
    enum { copyOptimization = 1 };
};

template <>
struct Transcoder<QXJSON::Utf8InRuns, UTF16<wchar_t>> {
    template <class OutputStream>
    static bool Transcode(QXJSON::Utf8Stream& is, OutputStream& os) {
        if (const size_t run = QXJSON::AsciiRun(is.At())) {
            QXJSON::Widen(is.At(), run, static_cast<wchar_t*>(os.Push(static_cast<SizeType>(run))));
            is.Advance(run);
            return true;
        }
        wchar_t units[2];
        const size_t count = QXJSON::TakeCharacter(is, units);
        for (size_t i = 0; i < count; ++i) os.Put(units[i]);
        return count != 0;
    }

    // LCOV_EXCL_START: needed to compile; Transcode validates
    template <class OutputStream>
    static bool Validate(QXJSON::Utf8Stream& is, OutputStream& os) {
        return Transcode(is, os);
    }
    // LCOV_EXCL_STOP
};

}  // namespace rapidjson
