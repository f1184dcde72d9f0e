#pragma once

#include <stdint.h>

namespace QXJSON {

/// A growable byte area that a parser, generator or package hands results out of. Whatever is
/// handed out ends with the next use of the buffer.
class MessageBuffer {
public:
    /// Starts with 512 bytes, all zero.
    MessageBuffer();
    ~MessageBuffer();
    MessageBuffer(const MessageBuffer&) = delete;
    MessageBuffer& operator=(const MessageBuffer&) = delete;

    /// Makes room for `size` bytes, all zero; what was handed out before is gone. False when there
    /// is no memory; the buffer then has no area.
    bool Reserve(uint32_t size);

    /// Clears the area and stores the text of a message code, which outlives the buffer, in `text`.
    /// False, with `text` untouched, when the buffer has no area.
    bool FetchMessage(int code, const wchar_t** text);

    /// Copies the text of a message code into the area; null when there is no memory, or the code
    /// is none.
    const wchar_t* CopyMessage(int code);

    /// The area, or null.
    void* Area() const { return area; }
    /// The size that was last asked for, at least 512.
    uint32_t Size() const { return size; }  // LCOV_EXCL_LINE: what the unit tests look at

private:
    void Clear();

    uint8_t* area;
    uint32_t size;
    uint32_t used = 0;  // how many bytes from the start may be other than zero
};

}  // namespace QXJSON
