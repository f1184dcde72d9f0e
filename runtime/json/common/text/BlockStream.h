#pragma once

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

#include "UnitBlocks.h"

namespace QXJSON {

/// A file as the stream of a TextWriter, in blocks of 260 bytes. A block is written when the
/// next one begins, the last one only at the end of a whole text: a text that ends early keeps its
/// whole blocks. All memory is taken at the beginning, before there need be a file.
template <class Unit>
class BlockStream {
public:
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

    Unit* Reserve(size_t count) {
        if (static_cast<size_t>(end - at) < count) WriteBlocks();
        return at;
    }
    void Advance(Unit* behind) { at = behind; }

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

}  // namespace QXJSON
