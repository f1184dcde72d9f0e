#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "HeapAllocator.h"

namespace QXJSON {

/// RapidJSON's allocator concept for the stack that a document has while it is read: small
/// documents take nothing from the heap for it. The first block lies in the allocator itself.
class ReadingMemory {
public:
    static constexpr bool kNeedFree = true;
    /// The size of the first block.
    static constexpr size_t kFirstSize = 1024;

    ReadingMemory() = default;
    ReadingMemory(const ReadingMemory&) = delete;
    ReadingMemory& operator=(const ReadingMemory&) = delete;

    // LCOV_EXCL_START: asked for by the concept; RapidJSON's stack begins with Realloc
    void* Malloc(size_t size) { return Realloc(nullptr, 0, size); }
    // LCOV_EXCL_STOP

    void* Realloc(void* block, size_t size, size_t newSize) {
        if (!block && newSize <= kFirstSize && first.header.state == State::kFree) {
            first.header.state = State::kLent;
            return first.bytes;
        }
        Header* const old = block ? HeaderOf(block) : nullptr;
        const bool isOnHeap = old && old->state == State::kOnHeap;
        auto* const header = static_cast<Header*>(
            HeapAllocator().Realloc(isOnHeap ? old : nullptr, 0, sizeof(Header) + newSize));
        header->state = State::kOnHeap;
        if (block && !isOnHeap) {
            std::memcpy(header + 1, block, size < newSize ? size : newSize);
            Free(block);
        }
        return header + 1;
    }

    /// By the concept this does not know the allocator: a block knows whose it is.
    static void Free(void* block) {
        if (!block) return;
        Header* const header = HeaderOf(block);
        if (header->state == State::kOnHeap)
            std::free(header);
        else
            header->state = State::kFree;
    }

private:
    enum class State { kFree, kLent, kOnHeap };
    /// What stands in front of each block.
    struct alignas(16) Header {
        State state = State::kFree;
    };

    static Header* HeaderOf(void* block) { return static_cast<Header*>(block) - 1; }

    struct {
        Header header;
        char bytes[kFirstSize];
    } first;
};

}  // namespace QXJSON
