#pragma once

#include <cstdint>
#include <cstdio>
#include <string_view>
#include <vector>

namespace tool {

/// Bytes as RapidJSON's readers take them: those of a file, a block at a time, or some in memory. A
/// zero is the end of a text to these readers, and so it is what comes after the last byte.
class ByteStream {
public:
    using Ch = char;

    /// The rest of a file.
    explicit ByteStream(std::FILE* source);
    explicit ByteStream(std::string_view bytes)
        : next(bytes.data()), last(next + bytes.size()), upToLast(bytes.size()) {}
    ByteStream(const ByteStream&) = delete;
    ByteStream& operator=(const ByteStream&) = delete;

    Ch Peek() const { return next < last ? *next : '\0'; }
    Ch Take() {
        if (next == last) return '\0';
        const Ch taken = *next++;
        if (next == last) Refill();
        return taken;
    }
    /// How many bytes were taken.
    uint64_t Tell() const { return upToLast - static_cast<uint64_t>(last - next); }
    /// The first four bytes of a stream of which nothing was taken; null where there are fewer.
    const Ch* Peek4() const { return last - next >= 4 ? next : nullptr; }

    bool AtEnd() const { return next == last; }
    /// Whether the file could not be read to its end.
    bool Failed() const { return file && std::ferror(file); }

    // RapidJSON wants these of every stream, and calls them only to write.
    void Put(Ch) {}
    void Flush() {}
    Ch* PutBegin() { return nullptr; }
    size_t PutEnd(Ch*) { return 0; }

private:
    void Refill();

    std::FILE* file = nullptr;
    std::vector<Ch> block;
    const Ch* next = nullptr;
    const Ch* last = nullptr;
    uint64_t upToLast = 0;  ///< how many bytes come before `last`, in all blocks
};

}  // namespace tool
