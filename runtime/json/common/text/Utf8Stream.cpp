#include "Utf8Stream.h"

#include <cstring>

namespace QXJSON {

/// Reads the next block over the one in hand.
size_t Utf8Stream::ReadBlock() {
    before += static_cast<size_t>(end - block);
    const size_t count = source->Read(block, ByteBlock::kSize);
    block[count] = 0;
    end = block + count;
    return count;
}

/// At the source's end the block is empty, and the stream stays on the zero behind it.
void Utf8Stream::Refill() {
    ReadBlock();
    at = block;
}

bool Utf8Stream::More(const char*& from) {
    const auto kept = static_cast<size_t>(end - from);
    if (kept > ByteBlock::kKept) return false;
    std::memmove(block - kept, from, kept);
    from = block - kept;
    return ReadBlock() != 0;
}

}  // namespace QXJSON
