#include "FailingAllocations.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "JsonDll.h"

namespace support {
namespace {

constexpr int kNever = std::numeric_limits<int>::max();

int g_next = 0;
int g_first = kNever;
int g_count = 0;
bool g_happened = false;

bool FailsNow() {
    if (g_first == kNever) return false;
    ++g_next;
    const bool fails = g_next >= g_first && g_next - g_first < g_count;
    g_happened = g_happened || fails;
    return fails;
}

void* Malloc(size_t size) { return FailsNow() ? nullptr : std::malloc(size); }

void* Calloc(size_t count, size_t size) { return FailsNow() ? nullptr : std::calloc(count, size); }

void* Realloc(void* block, size_t size) { return FailsNow() ? nullptr : std::realloc(block, size); }

}  // namespace

FailingAllocations::FailingAllocations()
    : malloc(JsonDll(), "malloc", &Malloc),
      calloc(JsonDll(), "calloc", &Calloc),
      realloc(JsonDll(), "realloc", &Realloc) {
    EXPECT_TRUE(malloc.Found()) << "the DLL does not allocate through an imported malloc";
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

void FailingAllocations::Stop() { g_first = kNever; }

}  // namespace support
