#pragma once

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

#include "OutputEncodings.h"

namespace QXJSON {

/// A file as the target of RapidJSON's writers, in blocks of 260 bytes. A block is written when the
/// next one begins, the last one only by End: a text that ends early keeps its whole blocks.
template <class Unit>
class BlockStream {
public:
    using Ch = Unit;

    /// `swapped`: the bytes of each unit go out in reverse.
    BlockStream(std::FILE* target, bool swapped)
        : file(target), swaps(swapped), buffer(new Unit[kFirst]), end(buffer.get() + kFirst) {
        at = buffer.get();
    }
    BlockStream(const BlockStream&) = delete;
    BlockStream& operator=(const BlockStream&) = delete;
    ~BlockStream() { WriteBlocks(); }

    void Put(Unit unit) {
        Reserve(1);
        *at++ = unit;
    }
    /// Makes room for so many units, which are then taken by PushUnsafe.
    void Reserve(size_t count) {
        if (static_cast<size_t>(end - at) < count) MakeRoom(count);
    }
    Unit* PushUnsafe(size_t count) {
        at += count;
        return at - count;
    }
    /// What the writers call at the end of a document; the end of the text is for End to tell.
    void Flush() {}

    /// Writes what is left of a whole text.
    void End() {
        WriteBlocks();
        Write(Used());
    }

private:
    static constexpr size_t kFirst = 8 * 1024;
    static constexpr size_t kBlock = 260;

    size_t Used() const { return static_cast<size_t>(at - buffer.get()) * sizeof(Unit); }

    void MakeRoom(size_t count) {
        WriteBlocks();
        const auto used = static_cast<size_t>(at - buffer.get());
        const auto size = static_cast<size_t>(end - buffer.get());
        if (size - used >= count) return;
        const size_t larger = std::max(2 * size, used + count);
        std::unique_ptr<Unit[]> moved(new Unit[larger]);
        std::memcpy(moved.get(), buffer.get(), used * sizeof(Unit));
        buffer = std::move(moved);
        at = buffer.get() + used;
        end = buffer.get() + larger;
    }

    /// Writes the blocks behind which there is something.
    void WriteBlocks() {
        if (at != buffer.get()) Write((Used() - 1) / kBlock * kBlock);
    }

    /// Writes so many bytes, and moves what is behind them to the front.
    void Write(size_t bytes) {
        if constexpr (sizeof(Unit) > 1) {
            if (swaps) SwapBytes(buffer.get(), bytes / sizeof(Unit));
        }
        const auto* const begin = reinterpret_cast<const char*>(buffer.get());
        for (size_t written = 0; written < bytes; written += kBlock)
            std::fwrite(begin + written, 1, std::min(kBlock, bytes - written), file);
        const size_t left = Used() - bytes;
        std::memmove(buffer.get(), begin + bytes, left);
        at = buffer.get() + left / sizeof(Unit);
    }

    std::FILE* file;
    bool swaps;
    std::unique_ptr<Unit[]> buffer;
    Unit* at;
    Unit* end;
};

// Found by the writers in place of RapidJSON's own, which know no room.

template <class Unit>
void PutReserve(BlockStream<Unit>& stream, size_t count) {
    stream.Reserve(count);
}
template <class Unit>
void PutUnsafe(BlockStream<Unit>& stream, Unit unit) {
    *stream.PushUnsafe(1) = unit;
}

}  // namespace QXJSON
