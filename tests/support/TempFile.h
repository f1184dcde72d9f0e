#pragma once

#include <cstdint>
#include <string>

namespace support {

/// A file of its own in the system's folder for temporary files, removed at the end of its life.
class TempFile {
public:
    /// Makes a file that holds `bytes`.
    explicit TempFile(const std::string& bytes);
    /// Only takes a name; no file exists.
    TempFile();
    ~TempFile();
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    /// Makes the file longer, by zeros that take no time to write; whether the system could do it.
    bool Extend(uint64_t size);

    const wchar_t* Name() const { return name.c_str(); }
    bool Exists() const;
    /// Whether the file exists and nobody has it open: only then can it be opened exclusively.
    bool IsClosed() const;
    /// What the file holds now.
    std::string Bytes() const;

private:
    std::wstring name;
};

/// What a file holds; empty when it cannot be read.
std::string ReadFileBytes(const std::wstring& name);

}  // namespace support
