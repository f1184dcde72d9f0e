#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "LogReader.h"

namespace replay {

/// An address that cannot be read, one that cannot be written.
void* BadAddress();
void* ReadOnlyAddress();

/// The memory that the host had for one call: what its pointers led to.
class CallMemory {
public:
    CallMemory() = default;
    ~CallMemory();
    CallMemory(const CallMemory&) = delete;
    CallMemory& operator=(const CallMemory&) = delete;

    /// Bytes that are nothing in particular.
    void* Get(size_t size);
    /// What a value leads to: texts with their zero; what runs into memory that cannot be read does
    /// so again.
    void* CopyOf(const Value& value);

private:
    void* AtAnEdge(const void* data, size_t size);

    std::vector<std::unique_ptr<uint64_t[]>> blocks;
    std::vector<void*> pages;
};

/// A folder of its own for the files of a replay, removed at the end.
class FileFolder {
public:
    FileFolder() = default;
    ~FileFolder();
    FileFolder(const FileFolder&) = delete;
    FileFolder& operator=(const FileFolder&) = delete;

    /// The folder, which is created on the first call.
    const std::wstring& Name();
    /// A new name in it.
    std::wstring NewName();
    /// A name under which no file can be, neither read nor written.
    std::wstring NoName() { return Name() + L"\\none\\file"; }
    void Create(const std::wstring& file, const void* data, size_t size);
    void Remove(const std::wstring& file);

private:
    std::wstring name;
    uint64_t last = 0;
};

}  // namespace replay
