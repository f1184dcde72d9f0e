#include "FailingAllocations.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <limits>

namespace support {
namespace {

constexpr int kNever = std::numeric_limits<int>::max();

int g_next = 0;
int g_first = kNever;
int g_count = 0;
bool g_happened = false;
long g_blocks = 0;
long long g_bytes = 0;
size_t g_requested = 0;

/// Whether an allocation of so many bytes is to fail.
bool FailsNow(size_t bytes) {
    g_requested += bytes;
    if (g_first == kNever) return false;
    ++g_next;
    const bool fails = g_next >= g_first && g_next - g_first < g_count;
    g_happened = g_happened || fails;
    return fails;
}

/// Counts a block that comes (1) or goes (-1).
void* Counted(void* block, int change = 1) {
    if (block == nullptr) return block;
    g_blocks += change;
    g_bytes += change * static_cast<long long>(_msize(block));
    return block;
}

void* Malloc(size_t size) { return FailsNow(size) ? nullptr : Counted(std::malloc(size)); }

void* Calloc(size_t count, size_t size) {
    return FailsNow(count * size) ? nullptr : Counted(std::calloc(count, size));
}

void* Realloc(void* block, size_t size) {
    if (size != 0 && FailsNow(size)) return nullptr;
    Counted(block, -1);
    void* moved = std::realloc(block, size);
    if (moved == nullptr && size != 0) Counted(block);
    return Counted(moved);
}

void Free(void* block) { std::free(Counted(block, -1)); }

}  // namespace

FailingAllocations::FailingAllocations(HMODULE module)
    : malloc(module, "malloc", &Malloc),
      calloc(module, "calloc", &Calloc),
      realloc(module, "realloc", &Realloc),
      free(module, "free", &Free) {
    EXPECT_TRUE(malloc.Found()) << "the DLL does not allocate through an imported malloc";
    EXPECT_TRUE(free.Found()) << "the DLL does not free through an imported free";
    g_blocks = 0;
    g_bytes = 0;
    g_requested = 0;
    Stop();
}

FailingAllocations::~FailingAllocations() { Stop(); }

void FailingAllocations::Fail(int first, int count) {
    g_next = 0;
    g_first = first;
    g_count = count;
    g_happened = false;
}

bool FailingAllocations::Happened() const { return g_happened; }

size_t FailingAllocations::RequestedBytes() const { return g_requested; }

long FailingAllocations::LiveBlocks() const { return g_blocks; }

long long FailingAllocations::LiveBytes() const { return g_bytes; }

void FailingAllocations::Stop() { g_first = kNever; }

}  // namespace support
