#pragma once

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace bench {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

inline std::unique_ptr<std::FILE, FileCloser> Open(const std::wstring& name, const wchar_t* mode) {
    std::unique_ptr<std::FILE, FileCloser> file(_wfopen(name.c_str(), mode));
    if (!file) throw std::runtime_error("a file did not open");
    return file;
}

/// A whole file, read at once.
inline std::string ReadWhole(const std::wstring& name) {
    const auto file = Open(name, L"rb");
    std::fseek(file.get(), 0, SEEK_END);
    std::string bytes(static_cast<size_t>(std::ftell(file.get())), '\0');
    std::rewind(file.get());
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        throw std::runtime_error("a file could not be read");
    return bytes;
}

/// A whole file, written at once.
inline void WriteWhole(const std::wstring& name, const void* data, size_t bytes) {
    const auto file = Open(name, L"wb");
    if (std::fwrite(data, 1, bytes, file.get()) != bytes)
        throw std::runtime_error("a file could not be written");
}

}  // namespace bench
