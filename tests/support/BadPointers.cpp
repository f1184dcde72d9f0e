#include "BadPointers.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstring>

namespace support {
namespace {

constexpr size_t kPage = 4096;
constexpr size_t kMiddle = 64;
constexpr unsigned char kUnwritten = 0xCD;

unsigned char* NewPages(size_t count) {
    void* const pages =
        VirtualAlloc(nullptr, count * kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    EXPECT_NE(nullptr, pages);
    return static_cast<unsigned char*>(pages);
}

void Protect(void* page, DWORD protection) {
    DWORD before = 0;
    EXPECT_TRUE(VirtualProtect(page, kPage, protection, &before));
}

constexpr bool RefusesUnaligned() {
#if defined(__has_feature)
#if __has_feature(undefined_behavior_sanitizer)
    return true;
#endif
#endif
    return false;
}

}  // namespace

const std::vector<BadPointer>& AllBadPointers() {
    static const std::vector<BadPointer> all = [] {
        std::vector<BadPointer> kinds = {
            {BadPointer::kNull, "null"},
            {BadPointer::kNoAccess, "in a page without access"},
            {BadPointer::kNonCanonical, "not canonical"},
            {BadPointer::kReadOnly, "in a page that is read-only"},
        };
        if (RefusesUnaligned()) return kinds;
        const BadPointer crooked[] = {
            {BadPointer::kOne, "1"},
            {BadPointer::kTen, "10"},
            {BadPointer::kAllOnes, "all ones"},
            {BadPointer::kLastByte, "to the last byte of a page"},
            {BadPointer::kOffTheEnd, "to what runs off the end of a page"},
            {BadPointer::kOdd, "odd"},
        };
        kinds.insert(kinds.end(), std::begin(crooked), std::end(crooked));
        return kinds;
    }();
    return all;
}

BadMemory::BadMemory() : writable(NewPages(2)), readOnly(NewPages(1)) {
    Protect(writable + kPage, PAGE_NOACCESS);
}

BadMemory::~BadMemory() {
    VirtualFree(writable, 0, MEM_RELEASE);
    VirtualFree(readOnly, 0, MEM_RELEASE);
}

uintptr_t BadMemory::Address(BadPointer::Where where, const Content& content) const {
    const auto put = [&](unsigned char* at, size_t size) {
        if (content.data) std::memcpy(at, content.data, size);
        return reinterpret_cast<uintptr_t>(at);
    };
    std::memset(writable, kUnwritten, kPage);
    switch (where) {
        case BadPointer::kNull:
            return 0;
        case BadPointer::kOne:
            return 1;
        case BadPointer::kTen:
            return 10;
        case BadPointer::kNoAccess:
            return reinterpret_cast<uintptr_t>(writable + kPage + kMiddle);
        case BadPointer::kNonCanonical:
            return uintptr_t{1} << 63;
        case BadPointer::kAllOnes:
            return ~uintptr_t{0};
        case BadPointer::kReadOnly: {
            Protect(readOnly, PAGE_READWRITE);
            const uintptr_t address = put(readOnly + kMiddle, content.size);
            Protect(readOnly, PAGE_READONLY);
            return address;
        }
        case BadPointer::kLastByte:
            return reinterpret_cast<uintptr_t>(writable + kPage - 1);
        case BadPointer::kOffTheEnd:
            return put(writable + kPage - content.withoutEnd, content.withoutEnd);
        default:
            return put(writable + kMiddle + 1, content.size);
    }
}

bool BadMemory::WasWritten() const {
    return std::any_of(writable + kMiddle + 1, writable + kPage,
                       [](unsigned char byte) { return byte != kUnwritten; });
}

}  // namespace support
