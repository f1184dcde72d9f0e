#pragma once

#include <windows.h>

#include <cstring>
#include <string>

namespace support {

/// Bytes that end where memory can no longer be read.
class BytesAtAnEdge {
public:
    explicit BytesAtAnEdge(const std::string& bytes)
        : pages(static_cast<char*>(VirtualAlloc(nullptr, Size(bytes) + kPage,
                                                MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))),
          begin(pages + Size(bytes) - bytes.size()) {
        DWORD before = 0;
        VirtualProtect(pages + Size(bytes), kPage, PAGE_NOACCESS, &before);
        std::memcpy(begin, bytes.data(), bytes.size());
    }
    ~BytesAtAnEdge() { VirtualFree(pages, 0, MEM_RELEASE); }
    BytesAtAnEdge(const BytesAtAnEdge&) = delete;
    BytesAtAnEdge& operator=(const BytesAtAnEdge&) = delete;

    char* Begin() const { return begin; }

private:
    static constexpr size_t kPage = 4096;
    static size_t Size(const std::string& bytes) { return (bytes.size() / kPage + 1) * kPage; }

    char* pages;
    char* begin;
};

}  // namespace support
