#pragma once

#include <cstddef>
#include <string_view>

namespace QXJSON {

/// Where bytes come from, one block after the other.
class ByteSource {
public:
    /// Puts up to `room` bytes into `block` and returns how many; 0 at the end.
    virtual size_t Read(char* block, size_t room) = 0;

protected:
    ~ByteSource() = default;
};

/// Memory for a block, behind what is kept of the one before it; with room at its end for a zero,
/// and for looking ahead as far as the readers of numbers and runs do.
struct ByteBlock {
    static constexpr size_t kKept = 512;
    static constexpr size_t kSize = 4096;
    static constexpr size_t kReach = 32;

    char* Begin() { return bytes + kKept; }

    char bytes[kKept + kSize + kReach];
};

/// A stream of bytes as RapidJSON's readers take it, block by block: nothing else of its source
/// lies in memory. A zero byte ends it, as it ends every stream of RapidJSON; at the end of its
/// source it gives zeros and stays where it is.
class Utf8Stream {
public:
    using Ch = char;

    Utf8Stream(ByteSource& bytes, ByteBlock& memory)
        : source(&bytes), block(memory.Begin()), at(block), end(block) {
        Refill();
    }

    Ch Peek() const { return *at; }
    Ch Take() {
        const Ch c = *at++;
        if (at >= end) Refill();
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
    std::string_view InHand() const { return {at, static_cast<size_t>(end - at)}; }
    /// Whether the source has no more bytes.
    bool AtEnd() const { return at == end; }

    // For a reader that goes over the block by itself.

    /// The end of what is in hand.
    const char* End() const { return end; }
    /// Puts the next block behind what is in hand from `from` on, and tells whether there is one.
    /// What is in hand from there on is elsewhere then, and nothing else is in hand. False also
    /// where it is more than can be kept.
    bool More(const char*& from);
    /// Goes on from a place in what is in hand.
    void GoOn(const char* from) {
        at = from;
        if (at == end) Refill();
    }

private:
    size_t ReadBlock();
    void Refill();

    ByteSource* source;
    char* block;
    const char* at;
    const char* end;    // `at` is here only when the source is at its end
    size_t before = 0;  // bytes of the source in front of the block
};

}  // namespace QXJSON
