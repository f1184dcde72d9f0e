#pragma once

#include <stdint.h>

#include <iterator>
#include <map>

#include "HeapAllocator.h"

namespace QXJSON {

/// Where the pool of a document takes its memory from: the C heap, in a few large blocks, and with
/// a list of them. Whether something belongs to the document can be told by where it lies.
class PoolBlocks : public HeapAllocator {
public:
    void* Malloc(size_t size) {
        void* const block = HeapAllocator::Malloc(size);
        try {
            Add(block, size);
        } catch (...) {
            HeapAllocator::Free(block);
            throw;
        }
        return block;
    }

    void Free(void* block) {
        sizes.erase(reinterpret_cast<uintptr_t>(block));
        HeapAllocator::Free(block);
    }

    /// Lists a block that is the document's too, and somebody else's to free.
    void Add(const void* block, size_t size) {
        sizes.emplace(reinterpret_cast<uintptr_t>(block), size);
    }

    /// Whether an address lies in one of the blocks.
    bool Contain(const void* address) const {
        const auto at = reinterpret_cast<uintptr_t>(address);
        const auto behind = sizes.upper_bound(at);
        if (behind == sizes.begin()) return false;
        const auto& [begin, size] = *std::prev(behind);
        return at - begin < size;
    }

private:
    std::map<uintptr_t, size_t> sizes;  // of the blocks, by their addresses
};

}  // namespace QXJSON
