#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace support {

/// A kind of address that a caller may pass by mistake.
struct BadPointer {
    enum Where {
        kNull,
        kOne,
        kTen,
        kNoAccess,
        kNonCanonical,
        kAllOnes,
        kReadOnly,   ///< what is to be read is there
        kLastByte,   ///< of a page before one without access
        kOffTheEnd,  ///< what is to be read is there but for its end
        kOdd,        ///< what is to be read is there, and can be written
    };

    Where where;
    const char* name;
};

/// All kinds; but those that are no multiple of their type's size only where no sanitizer refuses
/// them.
const std::vector<BadPointer>& AllBadPointers();

/// The memory in which bad pointers lie.
class BadMemory {
public:
    BadMemory();
    ~BadMemory();
    BadMemory(const BadMemory&) = delete;
    BadMemory& operator=(const BadMemory&) = delete;

    /// What an address leads to, as far as it is memory that holds anything.
    struct Content {
        const void* data;
        size_t size;
        size_t withoutEnd;  ///< the size of what stands before the end of a page
    };

    uintptr_t Address(BadPointer::Where where, const Content& content) const;
    /// Whether something was written where BadPointer::kOdd leads.
    bool WasWritten() const;

private:
    unsigned char* writable;  ///< a page before one without access
    unsigned char* readOnly;
};

}  // namespace support
