#include "LogReader.h"

#include <windows.h>
#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>

#include "Failure.h"
#include "Files.h"

namespace replay {

using record::ChunkHeader;
using record::FileHeader;

bool Values::Take(void* to, size_t size) {
    if (static_cast<size_t>(end - at) < size) {
        at = end;
        return false;
    }
    std::memcpy(to, at, size);
    at += size;
    return true;
}

Value Values::Next() {
    Value value;
    uint8_t tag = 0;
    if (at == end || !Take(&tag, 1)) return value;
    value.tag = static_cast<Tag>(tag);
    bool whole = true;
    switch (value.tag) {
        case Tag::kNumber:
        case Tag::kLeft:
        case Tag::kFileSize:
        case Tag::kStack:
            whole = Take(&value.number, sizeof value.number);
            break;
        case Tag::kReference: {
            uint32_t number = 0;
            whole = Take(&value.object, sizeof value.object) && Take(&number, sizeof number);
            value.number = number;
            break;
        }
        case Tag::kTextHash:
        case Tag::kBytesHash:
            whole =
                Take(&value.count, sizeof value.count) && Take(&value.number, sizeof value.number);
            break;
        case Tag::kText:
        case Tag::kTextPart:
        case Tag::kBytes:
        case Tag::kBytesPart:
            whole = Take(&value.count, sizeof value.count) &&
                    static_cast<size_t>(end - at) >= value.DataSize();
            value.data = at;
            if (whole) at += value.DataSize();
            break;
        default:
            if (value.tag > Tag::kStack) whole = false;
    }
    if (!whole || value.tag == Tag::kEnd) {
        at = end;
        return {};
    }
    return value;
}

namespace {

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

}  // namespace

Log::Log(const std::wstring& name) {
    Map(name);
    std::memcpy(&header, view, std::min<uint64_t>(viewSize, sizeof header));
    const bool isLog = viewSize >= record::kHeaderSpace &&
                       std::memcmp(header.magic, record::kMagic, sizeof header.magic) == 0;
    if (!isLog) throw tool::Failure{name + L": is not a log"};
    if (header.version != record::kVersion)
        throw tool::Failure{name + L": is a log of version " + std::to_wstring(header.version) +
                            L", which this program does not know"};
    chunks = view + record::kHeaderSpace;
    chunksSize = viewSize - record::kHeaderSpace;
    if (header.flags & record::kPacked) Unpack();
    ReadChunks();
}

Log::~Log() {
    if (view) UnmapViewOfFile(view);
}

void Log::Map(const std::wstring& name) {
    HANDLE opened = CreateFileW(name.c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) throw tool::Failure{name + L": the file cannot be read"};
    const Handle file(opened);
    LARGE_INTEGER size = {};
    GetFileSizeEx(file.get(), &size);
    if (size.QuadPart == 0) throw tool::Failure{name + L": is not a log"};
    const Handle mapping(CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (mapping)
        view = static_cast<const uint8_t*>(MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0));
    if (!view) throw tool::Failure{name + L": the file cannot be read"};
    viewSize = static_cast<uint64_t>(size.QuadPart);
}

void Log::Unpack() {
    // A damaged header must not ask for all memory: nothing shrinks to less than a thousandth.
    constexpr uint64_t kMostRatio = 1100;
    uLongf size = static_cast<uLongf>(std::min(header.size, kMostRatio * (chunksSize + 1)));
    if (header.size > 0xFFFFFFFF || chunksSize > 0xFFFFFFFF)
        throw tool::Failure{L"a compressed log of more than 4 GiB"};
    unpacked.resize(size / 8 + 1);
    auto* const to = reinterpret_cast<uint8_t*>(unpacked.data());
    // What a damaged log has before the damage is read.
    uncompress(to, &size, chunks, static_cast<uLong>(chunksSize));
    chunks = to;
    chunksSize = size;
}

void Log::ReadChunks() {
    ChunkHeader last = {};
    uint64_t begin = 0;
    while (chunksSize - begin >= sizeof(ChunkHeader)) {
        ChunkHeader chunk;
        std::memcpy(&chunk, chunks + begin, sizeof chunk);
        if (chunk.size < sizeof chunk || chunk.size % 8 != 0) break;
        const uint64_t end = std::min(chunk.size, chunksSize - begin) + begin;
        if (chunk.ticks > last.ticks) last = chunk;
        uint64_t at = begin + sizeof chunk;
        while (end - at >= sizeof(RecordHeader)) {
            const auto* const record = reinterpret_cast<const RecordHeader*>(chunks + at);
            if (record->size < sizeof *record || record->size % 8 != 0 || record->size > end - at)
                break;
            records.push_back(record);
            at += record->size;
        }
        if (chunk.size > chunksSize - begin) break;
        begin += chunk.size;
    }
    std::stable_sort(records.begin(), records.end(),
                     [](const auto* a, const auto* b) { return a->ticks < b->ticks; });
    Measure(last);
}

void Log::Measure(const ChunkHeader& last) {
    uint64_t ticks = header.lastTicks;
    uint64_t counter = header.lastCounter;
    if (ticks == 0) {
        ticks = last.ticks;
        counter = last.counter;
    }
    if (ticks <= header.firstTicks || header.frequency == 0) return;
    const double seconds =
        static_cast<double>(counter - header.firstCounter) / static_cast<double>(header.frequency);
    nanoseconds = 1e9 * seconds / static_cast<double>(ticks - header.firstTicks);
}

namespace {

/// The records in a chunk. Threads are numbered in the order of their first record, if times do not
/// matter.
std::string InOneChunk(const std::vector<const RecordHeader*>& records, bool timeless) {
    ChunkHeader chunk = {sizeof chunk, 0, 0};
    for (const auto* record : records) chunk.size += record->size;
    std::string plain(reinterpret_cast<const char*>(&chunk), sizeof chunk);
    plain.reserve(chunk.size);
    std::map<uint32_t, uint32_t> threads;
    uint64_t ticks = 0;
    for (const auto* record : records) {
        const size_t at = plain.size();
        plain.append(reinterpret_cast<const char*>(record), record->size);
        if (!timeless) continue;
        RecordHeader header = *record;
        header.thread = threads.emplace(header.thread, threads.size() + 1).first->second;
        header.ticks = ++ticks;
        plain.replace(at, sizeof header, reinterpret_cast<const char*>(&header), sizeof header);
    }
    return plain;
}

std::string Compressed(const std::string& plain) {
    if (plain.size() > 0x7FFFFFFF) throw tool::Failure{L"the log is too large to be compressed"};
    uLongf size = compressBound(static_cast<uLong>(plain.size()));
    std::string packed(size, 0);
    if (compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                  reinterpret_cast<const Bytef*>(plain.data()), static_cast<uLong>(plain.size()),
                  Z_BEST_COMPRESSION) != Z_OK)
        throw std::bad_alloc();
    packed.resize(size);
    return packed;
}

/// A header for records of another log, whose times stay what they were: how long a tick is, is
/// said for a second of it.
FileHeader HeaderLike(const FileHeader& like, double nanosecondsPerTick, bool timeless) {
    FileHeader header = {};
    std::memcpy(header.magic, record::kMagic, sizeof header.magic);
    header.version = record::kVersion;
    header.flags = (like.flags & (record::kHashed | record::kStopped)) | record::kPacked;
    std::copy(like.library, like.library + 2, header.library);
    if (timeless) return header;
    header.process = like.process;
    header.startTime = like.startTime;
    header.firstTicks = like.firstTicks;
    if (nanosecondsPerTick <= 0) return header;
    header.frequency = 1;
    header.lastCounter = 1;
    header.lastTicks = header.firstTicks + static_cast<uint64_t>(1e9 / nanosecondsPerTick);
    return header;
}

}  // namespace

void WriteLog(const std::wstring& name, const FileHeader& like, double nanosecondsPerTick,
              const std::vector<const RecordHeader*>& records, bool timeless) {
    const std::string plain = InOneChunk(records, timeless);
    const std::string packed = Compressed(plain);
    FileHeader header = HeaderLike(like, nanosecondsPerTick, timeless);
    header.size = plain.size();
    std::string first(record::kHeaderSpace, 0);
    std::memcpy(first.data(), &header, sizeof header);
    tool::ReplacementFile file(name);
    std::fwrite(first.data(), 1, first.size(), file.Stream());
    std::fwrite(packed.data(), 1, packed.size(), file.Stream());
    file.Replace();
}

}  // namespace replay
