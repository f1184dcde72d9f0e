#pragma once

#include <stdint.h>

namespace QXJSON {

/// A growable byte area that holds results of a parser, generator or package. A result lives until
/// the next use of the buffer.
class MessageBuffer {
public:
    /// Starts with 512 bytes, all zero.
    MessageBuffer() = default;
    ~MessageBuffer();
    MessageBuffer(const MessageBuffer&) = delete;
    MessageBuffer& operator=(const MessageBuffer&) = delete;

    /// Makes room for `size` bytes, all zero; earlier results are gone. False when there is no
    /// memory; the buffer then has no area.
    bool Reserve(uint32_t size);

    /// Clears the area and stores the text of a message code, which outlives the buffer, in `text`.
    /// False, with `text` untouched, when the buffer has no area.
    bool FetchMessage(int code, const wchar_t** text);

    /// Copies the text of a message code into the area; null when there is no memory, or no text
    /// for the code: one outside 0 to 22.
    const wchar_t* CopyMessage(int code);

    /// The area, or null.
    void* Area() const { return area; }
    /// The size of the area, or of the one that could not be allocated.
    uint32_t Size() const { return size; }  // LCOV_EXCL_LINE: what the unit tests look at

private:
    static constexpr uint32_t kInitialSize = 512;

    void Clear();
    void FreeArea();

    uint8_t initial[kInitialSize] = {};
    uint8_t* area = initial;
    uint32_t size = kInitialSize;
    uint32_t used = 0;  // how many bytes from the start may be other than zero
};

}  // namespace QXJSON
