#include "LogFile.h"

#include <intrin.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "calls/Memory.h"

namespace record {
namespace {

LogFile g_log;

/// How much of the file is taken into memory at a time.
constexpr uint64_t kStep = 1 << 20;
/// A record's size is a number of 32 bits.
constexpr size_t kMostOfARecord = 0xFFFFFFF0;
/// What is worth being used by another thread.
constexpr ptrdiff_t kLeastRest = 1024;

constexpr uint64_t RoundedUp(uint64_t size, uint64_t unit) {
    return (size + unit - 1) / unit * unit;
}

uint64_t Counter() {
    LARGE_INTEGER counter = {};
    QueryPerformanceCounter(&counter);
    return static_cast<uint64_t>(counter.QuadPart);
}

/// A file that was not there before: "log.jsonlog", "log-2.jsonlog", ...
HANDLE CreateNew(const std::wstring& name) {
    const size_t last = name.find_last_of(L".\\/");
    const size_t dot = last != name.npos && name[last] == L'.' ? last : name.size();
    for (int attempt = 1; attempt <= 1000; ++attempt) {
        const std::wstring mark = attempt > 1 ? L"-" + std::to_wstring(attempt) : L"";
        const std::wstring tried = name.substr(0, dot) + mark + name.substr(dot);
        HANDLE file = CreateFileW(tried.c_str(), GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) return file;
    }
    return INVALID_HANDLE_VALUE;
}

}  // namespace

LogFile& TheLog() { return g_log; }

bool LogFile::Create(const std::wstring& name, uint64_t most, uint32_t flags,
                     const uint32_t library[2]) {
    limit = most;
    file = CreateNew(name);
    if (file == INVALID_HANDLE_VALUE || !Extend(kStep)) return false;
    header = reinterpret_cast<FileHeader*>(window);
    window += kHeaderSpace;
    windowLeft -= kHeaderSpace;

    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    LARGE_INTEGER frequency = {};
    QueryPerformanceFrequency(&frequency);
    FileHeader first = {};
    first.version = kVersion;
    first.flags = flags;
    first.startTime = uint64_t{now.dwHighDateTime} << 32 | now.dwLowDateTime;
    first.frequency = static_cast<uint64_t>(frequency.QuadPart);
    first.firstCounter = Counter();
    first.firstTicks = __rdtsc();
    first.process = GetCurrentProcessId();
    std::copy(library, library + 2, first.library);
    std::memcpy(first.magic, kMagic, sizeof kMagic);
    *header = first;
    isOpen = true;
    return true;
}

/// Makes the file longer and the new part the window. What was left of the old one is lost, but for
/// a chunk's header that says so.
bool LogFile::Extend(size_t bytes) {
    const uint64_t step = RoundedUp(std::max<uint64_t>(bytes, kStep), kChunkUnit);
    if (size + step > limit) return false;
    const uint64_t end = size + step;
    HANDLE mapping =
        CreateFileMappingW(file, nullptr, PAGE_READWRITE, static_cast<DWORD>(end >> 32),
                           static_cast<DWORD>(end), nullptr);
    if (!mapping) return false;
    void* const view = MapViewOfFile(mapping, FILE_MAP_WRITE, static_cast<DWORD>(size >> 32),
                                     static_cast<DWORD>(size), step);
    CloseHandle(mapping);
    if (!view) return false;
    try {
        views.push_back(view);
    } catch (const std::bad_alloc&) {
        UnmapViewOfFile(view);
        return false;
    }
    if (windowLeft >= sizeof(ChunkHeader)) {
        const ChunkHeader unused = {windowLeft, 0, 0};
        std::memcpy(window, &unused, sizeof unused);
        used += windowLeft;
    }
    window = static_cast<uint8_t*>(view);
    windowLeft = step;
    size = end;
    return true;
}

Tape LogFile::Room(size_t bytes) {
    const Lock held(lock);
    if (!IsOpen()) return {};
    if (bytes > kMostOfARecord) {
        Stop(kStopped);
        return {};
    }
    const auto fits = [=](const Tape& rest) {
        return static_cast<size_t>(rest.end - rest.next) >= bytes;
    };
    const auto rest = std::find_if(rests.begin(), rests.end(), fits);
    if (rest != rests.end()) {
        const Tape found = *rest;
        rests.erase(rest);
        return found;
    }
    const uint64_t wanted = RoundedUp(bytes + sizeof(ChunkHeader), kChunkUnit);
    if (windowLeft < wanted && !Extend(wanted)) {
        Stop(kStopped);
        return {};
    }
    const ChunkHeader chunk = {wanted, Counter(), __rdtsc()};
    uint8_t* const begin = window;
    std::memcpy(begin, &chunk, sizeof chunk);
    window += wanted;
    windowLeft -= wanted;
    used += wanted;
    return {begin + sizeof chunk, begin + wanted};
}

void LogFile::Reuse(Tape rest) {
    if (rest.end - rest.next < kLeastRest) return;
    const Lock held(lock);
    try {
        if (IsOpen()) rests.push_back(rest);
    } catch (const std::bad_alloc&) {
        // The rest stays unused.
    }
}

void LogFile::Stop(uint32_t flag) {
    isOpen = false;
    header->flags |= flag;
    header->lastTicks = __rdtsc();
    header->lastCounter = Counter();
}

void LogFile::Close() {
    if (file == INVALID_HANDLE_VALUE) return;
    if (header) {
        Stop(kClosed);
        header->size = used;
    }
    for (void* view : views) UnmapViewOfFile(view);
    views.clear();
    LARGE_INTEGER end = {};
    end.QuadPart = static_cast<LONGLONG>(kHeaderSpace + used);
    if (SetFilePointerEx(file, end, nullptr, FILE_BEGIN)) SetEndOfFile(file);
    CloseHandle(file);
    file = INVALID_HANDLE_VALUE;
}

}  // namespace record
