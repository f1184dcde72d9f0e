#include "Files.h"

#include <algorithm>
#include <atomic>
#include <cwctype>
#include <iterator>
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

bool IsSlash(wchar_t unit) { return unit == L'\\' || unit == L'/'; }

/// Whether a name begins with a part, whose letters are in upper case here; slashes go both ways.
bool BeginsWith(std::wstring_view name, std::wstring_view part) {
    const auto isSame = [](wchar_t wanted, wchar_t unit) {
        return wanted == L'\\' ? IsSlash(unit) : std::towupper(unit) == static_cast<wint_t>(wanted);
    };
    return name.size() >= part.size() && std::equal(part.begin(), part.end(), name.begin(), isSame);
}

/// Whether a name is that of a pipe or a device, by its spelling alone.
bool NamesADevice(std::wstring_view name) {
    if (BeginsWith(name, L"\\\\.\\") || BeginsWith(name, L"\\\\?\\GLOBALROOT\\")) return true;
    // A pipe of any machine: what comes after the machine's name says that it is one.
    const bool isPrefixed = BeginsWith(name, L"\\\\?\\UNC\\");
    if (!isPrefixed && !BeginsWith(name, L"\\\\")) return false;
    name.remove_prefix(isPrefixed ? 8 : 2);
    const size_t machine = name.find_first_of(L"\\/");
    return machine != name.npos && BeginsWith(name.substr(machine), L"\\PIPE\\");
}

/// Whether a name without a folder is that of a device: NUL, CON, COM1 and their like, which
/// Windows turns into \\.\NUL and so on. Those are shorter than this buffer.
bool IsShortForADevice(const wchar_t* name) {
    wchar_t full[16];
    const DWORD length = GetFullPathNameW(name, std::size(full), full, nullptr);
    return length > 0 && length < std::size(full) && NamesADevice({full, length});
}

}  // namespace

FoundFile FindFile(const wchar_t* name) {
    const KeptLastError kept;
    if (NamesADevice(name) || IsShortForADevice(name)) return {Tag::kNotAFile, 0};
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
