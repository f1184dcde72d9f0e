#pragma once

#include <cstddef>
#include <cstdint>

/// \file
/// A log as it is in a file: docs/reference/recording.md describes it. All numbers are in the byte
/// order of the processor, the least significant byte first.

namespace record {

constexpr char kMagic[8] = {'J', 's', 'o', 'n', 'L', 'o', 'g', '\n'};
constexpr uint32_t kVersion = 1;

/// What FileHeader::flags says.
enum FileFlag : uint32_t {
    kPacked = 1,   ///< what follows the header is compressed
    kHashed = 2,   ///< texts and bytes are hashes
    kStopped = 4,  ///< the limit was reached: later calls are missing
    kClosed = 8,   ///< the recorder came to its end
};

/// What a log begins with.
struct FileHeader {
    char magic[8];
    uint32_t version;
    uint32_t flags;
    uint64_t size;          ///< of the records that follow, chunks included, before compression
    uint64_t startTime;     ///< of the recording, as a FILETIME
    uint64_t frequency;     ///< of the system's performance counter
    uint64_t firstTicks;    ///< the processor's time stamp at the beginning
    uint64_t firstCounter;  ///< the system's performance counter then
    uint64_t lastTicks;     ///< both again, as late as is known
    uint64_t lastCounter;
    uint32_t process;
    uint32_t library[2];  ///< the version in the library's resources, as Windows has it
    uint32_t reserved[11];
};
static_assert(sizeof(FileHeader) == 128, "a header has no gaps");

/// Where the first chunk begins. The space between is zero.
constexpr size_t kHeaderSpace = 4096;

/// A chunk of records, which are those of one thread at a time. The first record whose size is 0
/// ends it.
struct ChunkHeader {
    uint64_t size;     ///< of the chunk with this header; 0 ends the log
    uint64_t counter;  ///< the system's performance counter when the chunk was begun
    uint64_t ticks;    ///< the processor's time stamp then
};
constexpr size_t kChunkUnit = 64 * 1024;

enum class Interface : uint8_t { kParser, kGenerator, kPackage, kDelegate };

/// What a record is about.
enum class Event : uint8_t {
    kCall = 1,          ///< of an operation by the host, with its arguments
    kReturn = 2,        ///< of it, with the result and the outputs
    kThrown = 3,        ///< instead of a return: an exception or a fault left the operation
    kDelegateCall = 4,  ///< the same three of a delegate by the library
    kDelegateReturn = 5,
    kDelegateThrown = 6,
};

/// The slot of a factory; its return has the number of the new object, 0 for none.
constexpr uint16_t kFactory = 0xFFFF;

struct RecordHeader {
    uint32_t size;  ///< of the record with this header, a multiple of 8; written last
    Event event;
    Interface interface;
    uint16_t slot;
    uint32_t object;  ///< the number of the object, from 1 in the order of their making
    uint32_t thread;  ///< the system's number of the thread
    uint64_t ticks;   ///< the processor's time stamp
};
static_assert(sizeof(RecordHeader) == 24, "a header has no gaps");

/// What a value in a record is. The byte is followed by what the comment says.
enum class Tag : uint8_t {
    kEnd = 0,         ///< the padding at the end of a record
    kNull = 1,        ///< a null pointer
    kBad = 2,         ///< a pointer to memory that cannot be read
    kReadOnly = 3,    ///< an output's pointer to memory that cannot be written
    kGiven = 4,       ///< an output's pointer that can be used
    kNumber = 5,      ///< 8 bytes: a number, its bits as they were, extended by zeros
    kLeft = 6,        ///< 8 bytes: what is in an output that was left as it was, or 0
    kReference = 7,   ///< two times 4 bytes: the object that returned the reference, and its number
    kText = 8,        ///< 4 bytes: the number of units, which follow
    kTextPart = 9,    ///< the same of a text that runs into memory that cannot be read
    kBytes = 10,      ///< 4 bytes: the number of bytes, which follow
    kBytesPart = 11,  ///< the same of bytes that run into such memory
    kTextHash = 12,   ///< 4 bytes: the number of units; 8 bytes: their hash
    kBytesHash = 13,  ///< 4 bytes: the number of bytes; 8 bytes: their hash
    kNoFile = 14,     ///< there is no file, or it does not open
    kFolder = 15,     ///< the name is that of a folder
    kFileSize = 16,   ///< 8 bytes: the size of a file that was too large to be recorded
    kNotAFile = 17,   ///< a pipe or a device, which was left alone
    kStack = 18,      ///< 8 bytes: the stack that a call had left which returned -5; ends a return
};

}  // namespace record
