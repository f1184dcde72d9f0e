#include "ByteStream.h"

#include "Progress.h"

namespace tool {

ByteStream::ByteStream(std::FILE* source) : file(source), block(64 * 1024) { Refill(); }

void ByteStream::Refill() {
    if (!file) return;
    const size_t count = std::fread(block.data(), 1, block.size(), file);
    next = block.data();
    last = next + count;
    upToLast += count;
    ProgressBy(count);
}

}  // namespace tool
