#pragma once

#include <cstdlib>
#include <new>

namespace QXJSON {

/// RapidJSON's allocator concept over the C heap, but with std::bad_alloc where its own
/// CrtAllocator returns null. RapidJSON tests few of its allocations: null would be a fault in the
/// middle of its work, whereas it cleans up after an exception.
class HeapAllocator {
public:
    static constexpr bool kNeedFree = true;

    void* Malloc(size_t size) { return size ? Checked(std::malloc(size)) : nullptr; }

    void* Realloc(void* block, size_t, size_t newSize) {
        if (newSize != 0) return Checked(std::realloc(block, newSize));
        // LCOV_EXCL_START: asked for by the concept; RapidJSON's stacks never shrink to nothing
        std::free(block);
        return nullptr;
        // LCOV_EXCL_STOP
    }

    static void Free(void* block) { std::free(block); }

private:
    static void* Checked(void* block) { return block ? block : throw std::bad_alloc(); }
};

/// For those of RapidJSON's classes that else would allocate one each.
inline HeapAllocator theHeap;

}  // namespace QXJSON
