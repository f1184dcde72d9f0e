#pragma once

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

#include "OutputEncodings.h"

namespace QXJSON {

/// A file as the target of RapidJSON's writers, in blocks of 260 bytes. A block is written when the
/// next one begins, the last one only at the end of a whole text: a text that ends early keeps its
/// whole blocks. All memory is taken at the beginning, before there need be a file.
template <class Unit>
class BlockStream {
public:
    using Ch = Unit;

    static constexpr size_t kBlock = 260;
    static constexpr size_t kCapacity = 8 * 1024;
    /// How many units can be reserved at most, whatever is left of the last block.
    static constexpr size_t kMostReserved = kCapacity - kBlock / sizeof(Unit);

    /// `swapped`: the bytes of each unit go out in reverse.
    explicit BlockStream(bool swapped) : swaps(swapped) {}
    BlockStream(const BlockStream&) = delete;
    BlockStream& operator=(const BlockStream&) = delete;

    /// Begins with a file, which is closed before the life of this stream ends.
    void Begin(std::FILE* target) {
        file = target;
        std::setvbuf(file, systemBlock.get(), _IOFBF, kSystemBlock);
    }
    /// Ends with what is left of a whole text, or with the last whole block of one that ended
    /// early.
    void End(bool whole) {
        WriteBlocks();
        if (whole) Write(Used());
    }

    void Put(Unit unit) {
        Reserve(1);
        *at++ = unit;
    }
    /// Makes room for so many units, at most kMostReserved, which are then taken by PushUnsafe.
    void Reserve(size_t count) {
        if (Room() < count) WriteBlocks();
    }
    Unit* PushUnsafe(size_t count) {
        at += count;
        return at - count;
    }
    /// How many units can be taken at once.
    size_t Room() const { return static_cast<size_t>(end - at); }
    /// What the writers call at the end of a document.
    void Flush() {}

private:
    /// Bytes that the C runtime hands to the system at a time.
    static constexpr size_t kSystemBlock = 64 * 1024;

    size_t Used() const { return static_cast<size_t>(at - buffer.get()) * sizeof(Unit); }

    /// Writes the blocks that are followed by something.
    void WriteBlocks() {
        if (at != buffer.get()) Write((Used() - 1) / kBlock * kBlock);
    }

    /// Writes so many bytes, and moves what follows them to the front.
    void Write(size_t bytes) {
        if (swaps) SwapBytes(buffer.get(), bytes / sizeof(Unit));
        const auto* const begin = reinterpret_cast<const char*>(buffer.get());
        for (size_t written = 0; written < bytes; written += kBlock)
            std::fwrite(begin + written, 1, std::min(kBlock, bytes - written), file);
        const size_t left = Used() - bytes;
        std::memmove(buffer.get(), begin + bytes, left);
        at = buffer.get() + left / sizeof(Unit);
    }

    const bool swaps;
    std::FILE* file = nullptr;
    const std::unique_ptr<char[]> systemBlock{new char[kSystemBlock]};
    const std::unique_ptr<Unit[]> buffer{new Unit[kCapacity]};
    Unit* at = buffer.get();
    Unit* const end = at + kCapacity;
};

/// The same stream for a string that is too long for room to be reserved at once: looks for room
/// all the way along.
template <class Unit>
class UnreservedStream {
public:
    using Ch = Unit;

    explicit UnreservedStream(BlockStream<Unit>& target) : stream(target) {}

    void Put(Unit unit) { stream.Put(unit); }
    Unit* PushUnsafe(size_t count) { return stream.PushUnsafe(count); }
    void Flush() {}

    /// How many units can be taken at once: no fewer than any character takes.
    size_t Room() {
        stream.Reserve(kLongestCharacter);
        return stream.Room();
    }

private:
    BlockStream<Unit>& stream;
};

// Found by the writers in place of RapidJSON's own, which know no room.

template <class Unit>
void PutReserve(BlockStream<Unit>& stream, size_t count) {
    stream.Reserve(count);
}
template <class Unit>
void PutUnsafe(BlockStream<Unit>& stream, typename BlockStream<Unit>::Ch unit) {
    *stream.PushUnsafe(1) = unit;
}
template <class Unit>
void PutN(BlockStream<Unit>& stream, typename BlockStream<Unit>::Ch unit, size_t count) {
    while (count > 0) {
        stream.Reserve(1);
        const size_t now = std::min(count, stream.Room());
        std::fill_n(stream.PushUnsafe(now), now, unit);
        count -= now;
    }
}

/// Found by the encodings.
template <class Unit>
size_t RoomIn(UnreservedStream<Unit>& stream) {
    return stream.Room();
}

}  // namespace QXJSON
