// The memory that documents are read with: a first block of its own, and then the heap's.

#include "common/values/ReadingMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using namespace QXJSON;

void Fill(void* block, size_t size, char first) {
    auto* const bytes = static_cast<char*>(block);
    for (size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(first + i % 50);
}

bool Has(const void* block, size_t size, char first) {
    const auto* const bytes = static_cast<const char*>(block);
    for (size_t i = 0; i < size; ++i)
        if (bytes[i] != static_cast<char>(first + i % 50)) return false;
    return true;
}

/// Whether a block lies in the memory's own object.
bool IsInside(const ReadingMemory& memory, const void* block) {
    const auto at = reinterpret_cast<uintptr_t>(block);
    return at - reinterpret_cast<uintptr_t>(&memory) < sizeof memory;
}

TEST(ReadingMemory, TheFirstBlockIsItsOwn) {
    ReadingMemory memory;
    for (const size_t size : {size_t{1}, size_t{100}, ReadingMemory::kFirstSize}) {
        void* const block = memory.Malloc(size);
        EXPECT_TRUE(IsInside(memory, block));
        EXPECT_EQ(0u, reinterpret_cast<uintptr_t>(block) % 16);
        Fill(block, size, 'a');
        ReadingMemory::Free(block);
    }
    ReadingMemory::Free(nullptr);
}

TEST(ReadingMemory, OthersAreTheHeaps) {
    ReadingMemory memory;
    void* const large = memory.Malloc(ReadingMemory::kFirstSize + 1);
    EXPECT_FALSE(IsInside(memory, large));
    void* const first = memory.Malloc(10);
    void* const second = memory.Malloc(10);
    EXPECT_TRUE(IsInside(memory, first));
    EXPECT_FALSE(IsInside(memory, second));
    for (void* block : {first, second, large}) {
        EXPECT_EQ(0u, reinterpret_cast<uintptr_t>(block) % 16);
        ReadingMemory::Free(block);
    }
}

/// A stack grows out of the first block, and on.
TEST(ReadingMemory, BlocksGrow) {
    ReadingMemory memory;
    for (int round = 0; round < 3; ++round) {
        size_t size = ReadingMemory::kFirstSize;
        void* block = memory.Realloc(nullptr, 0, size);
        EXPECT_TRUE(IsInside(memory, block));
        Fill(block, size, 'b');
        while (size < 100'000) {
            const size_t larger = size + size / 2;
            block = memory.Realloc(block, size, larger);
            EXPECT_FALSE(IsInside(memory, block));
            ASSERT_TRUE(Has(block, size, 'b'));
            Fill(block, size = larger, 'b');
        }
        ReadingMemory::Free(block);
    }
}

TEST(ReadingMemory, BlocksShrink) {
    ReadingMemory memory;
    void* block = memory.Malloc(5000);
    Fill(block, 5000, 'c');
    block = memory.Realloc(block, 5000, 50);
    EXPECT_TRUE(Has(block, 50, 'c'));
    ReadingMemory::Free(block);
}

}  // namespace
