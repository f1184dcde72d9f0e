#include "Files.h"

#include <algorithm>
#include <atomic>
#include <cwctype>
#include <string_view>

#include "Memory.h"
#include "Sink.h"

namespace record {
namespace {

std::atomic<uint64_t> g_most{16 << 20};

class OpenFile {
public:
    explicit OpenFile(const wchar_t* name)
        : handle(CreateFileW(name, GENERIC_READ,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~OpenFile() {
        if (IsOpen()) CloseHandle(handle);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return handle != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return handle; }

private:
    HANDLE handle;
};

/// Whether a name is that of a pipe or a device, by its spelling alone. Slashes go both ways.
bool NamesADevice(std::wstring_view name) {
    const auto isSlash = [](wchar_t unit) { return unit == L'\\' || unit == L'/'; };
    if (name.size() < 4 || !isSlash(name[0]) || !isSlash(name[1])) return false;
    if (name[2] == L'.' && isSlash(name[3])) return true;
    // A pipe of another machine, or one with a prefix.
    constexpr std::wstring_view pipe = L"pipe";
    const auto isSame = [](wchar_t unit, wchar_t lower) { return std::towlower(unit) == lower; };
    for (size_t at = name.find_first_of(L"\\/", 2); at != name.npos;
         at = name.find_first_of(L"\\/", at + 1)) {
        const std::wstring_view part = name.substr(at + 1, pipe.size());
        if (std::equal(part.begin(), part.end(), pipe.begin(), pipe.end(), isSame)) return true;
    }
    return false;
}

}  // namespace

FoundFile FindFile(const wchar_t* name) {
    const KeptLastError kept;
    if (NamesADevice(name)) return {Tag::kNotAFile, 0};
    const DWORD attributes = GetFileAttributesW(name);
    if (attributes == INVALID_FILE_ATTRIBUTES) return {Tag::kNoFile, 0};
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) return {Tag::kFolder, 0};
    const OpenFile file(name);
    if (!file.IsOpen()) return {Tag::kNoFile, 0};
    LARGE_INTEGER size = {};
    if (GetFileType(file.Handle()) != FILE_TYPE_DISK || !GetFileSizeEx(file.Handle(), &size))
        return {Tag::kNotAFile, 0};
    const auto bytes = static_cast<uint64_t>(size.QuadPart);
    return {bytes > g_most ? Tag::kFileSize : Tag::kBytes, bytes};
}

void LimitFiles(uint64_t most) { g_most = most; }

uint32_t ReadFileBytes(const wchar_t* name, uint8_t* to, uint32_t size) {
    const KeptLastError kept;
    const OpenFile file(name);
    DWORD read = 0;
    if (!file.IsOpen() || !ReadFile(file.Handle(), to, size, &read, nullptr)) return 0;
    return read;
}

FileHash HashFile(const wchar_t* name, uint32_t size) {
    const KeptLastError kept;
    FileHash all = {0, kHashOfNothing};
    const OpenFile file(name);
    if (!file.IsOpen()) return all;
    uint8_t block[2048];
    while (all.size < size) {
        const DWORD wanted = std::min<DWORD>(size - all.size, sizeof block);
        DWORD read = 0;
        if (!ReadFile(file.Handle(), block, wanted, &read, nullptr) || read == 0) break;
        all.hash = HashOf(block, read, all.hash);
        all.size += read;
    }
    return all;
}

}  // namespace record
