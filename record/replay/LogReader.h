#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "log/Format.h"

namespace replay {

using record::Event;
using record::RecordHeader;
using record::Tag;

/// A value of a record. What it points to is in the log.
struct Value {
    Tag tag = Tag::kEnd;
    uint64_t number = 0;            ///< of a number, a size or a hash; of a reference, the number
    uint32_t object = 0;            ///< of a reference
    const uint8_t* data = nullptr;  ///< the units of a text, or bytes
    uint32_t count = 0;             ///< of units or bytes

    bool IsText() const { return tag == Tag::kText || tag == Tag::kTextPart; }
    bool IsBytes() const { return tag == Tag::kBytes || tag == Tag::kBytesPart; }
    bool IsHash() const { return tag == Tag::kTextHash || tag == Tag::kBytesHash; }
    size_t DataSize() const { return IsText() ? size_t{count} * 2 : IsBytes() ? count : 0; }
};

/// Reads the values of a record one after the other; a value with kEnd after the last.
class Values {
public:
    Values() = default;
    explicit Values(const RecordHeader* record)
        : at(reinterpret_cast<const uint8_t*>(record + 1)),
          end(reinterpret_cast<const uint8_t*>(record) + record->size) {}
    Values(const uint8_t* begin, const uint8_t* end) : at(begin), end(end) {}

    Value Next();

private:
    bool Take(void* to, size_t size);

    const uint8_t* at = nullptr;
    const uint8_t* end = nullptr;
};

/// A log, whose records stay in memory.
class Log {
public:
    /// Throws Failure where it is not one.
    explicit Log(const std::wstring& name);
    ~Log();
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    const record::FileHeader& Header() const { return header; }
    /// All records in the order of their time.
    const std::vector<const RecordHeader*>& Records() const { return records; }
    /// How many nanoseconds a tick of the records takes; 0 where that is not known.
    double NanosecondsPerTick() const { return nanoseconds; }
    bool IsHashed() const { return header.flags & record::kHashed; }

private:
    void Map(const std::wstring& name);
    void Unpack();
    void ReadChunks();
    void Measure(const record::ChunkHeader& last);

    record::FileHeader header = {};
    const uint8_t* view = nullptr;
    uint64_t viewSize = 0;
    std::vector<uint64_t> unpacked;  ///< aligned as the records are
    const uint8_t* chunks = nullptr;
    uint64_t chunksSize = 0;
    std::vector<const RecordHeader*> records;
    double nanoseconds = 0;
};

/// Writes a log with these records, compressed. In place of their times only their order is kept,
/// if the times do not matter.
void WriteLog(const std::wstring& name, const record::FileHeader& like, double nanosecondsPerTick,
              const std::vector<const RecordHeader*>& records, bool timeless);

}  // namespace replay
