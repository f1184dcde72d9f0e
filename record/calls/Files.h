#pragma once

#include <cstdint>

#include "log/Format.h"

namespace record {

/// A file by its name.
struct FoundFile {
    Tag tag;  ///< kBytes for one that can be read, or kNoFile, kFolder, kNotAFile, kFileSize
    uint64_t size;
};

/// Looks at a file without changing anything: pipes and devices, which notice who opens them, are
/// left alone.
FoundFile FindFile(const wchar_t* name);
/// Above what size only the size of a file is recorded; before the first call, 16 MiB.
void LimitFiles(uint64_t most);
/// Reads the first bytes of a file; returns how many there were.
uint32_t ReadFileBytes(const wchar_t* name, uint8_t* to, uint32_t size);

struct FileHash {
    uint32_t size;
    uint64_t hash;
};
/// The hash of a file's first bytes, which are kept nowhere.
FileHash HashFile(const wchar_t* name, uint32_t size);

}  // namespace record
