#pragma once

#include <windows.h>

#include <cstring>
#include <string>

/// A page that nothing readable follows.
class LastPage {
public:
    static constexpr size_t kSize = 0x10000;  // whatever the size of the system's pages

    LastPage()
        : begin(static_cast<char*>(
              VirtualAlloc(nullptr, 2 * kSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))) {
        DWORD before = 0;
        VirtualProtect(begin + kSize, kSize, PAGE_NOACCESS, &before);
    }
    ~LastPage() { VirtualFree(begin, 0, MEM_RELEASE); }
    LastPage(const LastPage&) = delete;
    LastPage& operator=(const LastPage&) = delete;

    char* End() const { return begin + kSize; }

private:
    char* begin;
};

/// Puts units, terminated or not, so that `gap` bytes are left to the end of the page.
inline const wchar_t* Put(const LastPage& page, const std::wstring& units, size_t gap) {
    const size_t size = units.size() * sizeof(wchar_t);
    char* const at = page.End() - gap - size;
    std::memset(page.End() - 256, 0xAB, 256);
    std::memcpy(at, units.data(), size);
    return reinterpret_cast<const wchar_t*>(at);
}
