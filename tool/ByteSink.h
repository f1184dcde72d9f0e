#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Takes bytes as RapidJSON's writers give them, and writes them to a file or keeps them in memory
/// until they are wanted, in blocks, so that growing copies nothing.
class ByteSink {
public:
    using Ch = char;

    /// Keeps nothing from now on that can be written to a file.
    void WriteTo(std::FILE* target) { file = target; }

    void Put(Ch byte) {
        if (used == kBlock) NewBlock();
        block[used++] = byte;
    }
    void Put(std::string_view bytes) {
        for (const char byte : bytes) Put(byte);
    }
    void Flush() {}  // RapidJSON's writers want it; PassOn is what counts

    /// Writes what is kept, and keeps it no longer. What could not be written shows in the file.
    void PassOn(std::FILE* target);
    /// What is kept.
    std::string Text() const;

private:
    static constexpr size_t kBlock = 64 * 1024;
    void NewBlock();

    std::FILE* file = nullptr;
    std::vector<std::unique_ptr<Ch[]>> full;
    std::unique_ptr<Ch[]> block;
    size_t used = kBlock;
};

}  // namespace tool
