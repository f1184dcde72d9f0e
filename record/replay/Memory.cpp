#include "Memory.h"

#include <windows.h>

#include <cstring>

#include "Failure.h"

namespace replay {
namespace {

constexpr size_t kPage = 4096;

void* Reserved(DWORD type, DWORD protection) {
    void* const page = VirtualAlloc(nullptr, kPage, type, protection);
    if (!page) throw std::bad_alloc();
    return static_cast<char*>(page) + kPage / 2;
}

}  // namespace

void* BadAddress() {
    static void* const address = Reserved(MEM_RESERVE, PAGE_NOACCESS);
    return address;
}

void* ReadOnlyAddress() {
    static void* const address = Reserved(MEM_RESERVE | MEM_COMMIT, PAGE_READONLY);
    return address;
}

CallMemory::~CallMemory() {
    for (void* page : pages) VirtualFree(page, 0, MEM_RELEASE);
}

void* CallMemory::Get(size_t size) {
    blocks.push_back(std::make_unique<uint64_t[]>(size / 8 + 1));
    return blocks.back().get();
}

void* CallMemory::CopyOf(const Value& value) {
    switch (value.tag) {
        case Tag::kNull:
            return nullptr;
        case Tag::kText:
        case Tag::kBytes: {
            void* const copy = Get(value.DataSize() + sizeof(wchar_t));
            std::memcpy(copy, value.data, value.DataSize());
            return copy;
        }
        case Tag::kTextPart:
        case Tag::kBytesPart:
            if (value.count == 0) return BadAddress();
            return AtAnEdge(value.data, value.DataSize());
        default:
            return BadAddress();
    }
}

void* CallMemory::AtAnEdge(const void* data, size_t size) {
    const size_t whole = (size + kPage - 1) / kPage * kPage;
    void* const begin = VirtualAlloc(nullptr, whole + kPage, MEM_RESERVE, PAGE_NOACCESS);
    if (!begin) throw std::bad_alloc();
    pages.push_back(begin);
    if (!VirtualAlloc(begin, whole, MEM_COMMIT, PAGE_READWRITE)) throw std::bad_alloc();
    return std::memcpy(static_cast<char*>(begin) + whole - size, data, size);
}

const std::wstring& FileFolder::Name() {
    if (!name.empty()) return name;
    wchar_t temporary[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, temporary);
    const std::wstring first =
        std::wstring(temporary) + L"jsonreplay-" + std::to_wstring(GetCurrentProcessId());
    constexpr int kMost = 1000;
    for (int number = 1; number <= kMost; ++number) {
        name = first + L"-" + std::to_wstring(number);
        if (CreateDirectoryW(name.c_str(), nullptr)) return name;
    }
    throw tool::Failure{name + L": the folder cannot be created"};
}

FileFolder::~FileFolder() {
    if (!name.empty()) RemoveDirectoryW(name.c_str());
}

std::wstring FileFolder::NewName() { return Name() + L"\\" + std::to_wstring(++last) + L".json"; }

void FileFolder::Create(const std::wstring& file, const void* data, size_t size) {
    HANDLE created = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_TEMPORARY, nullptr);
    DWORD written = 0;
    const bool good = created != INVALID_HANDLE_VALUE &&
                      WriteFile(created, data, static_cast<DWORD>(size), &written, nullptr) &&
                      written == size;
    if (created != INVALID_HANDLE_VALUE) CloseHandle(created);
    if (!good) throw tool::Failure{file + L": the file cannot be written"};
}

void FileFolder::Remove(const std::wstring& file) { DeleteFileW(file.c_str()); }

}  // namespace replay
