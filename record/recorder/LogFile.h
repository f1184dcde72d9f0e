#pragma once

#include <windows.h>

#include <atomic>
#include <string>
#include <vector>

#include "Tape.h"

namespace record {

/// The log as a file that is in memory too: what was written to it stays written when the process
/// is ended, by whatever means.
class LogFile {
public:
    /// Creates the file; where there is one of that name, with a number in it.
    bool Create(const std::wstring& name, uint64_t limit, uint32_t flags,
                const uint32_t library[2]);
    bool IsOpen() const { return isOpen.load(std::memory_order_relaxed); }
    /// Room for a record; null where the log is full, which ends the recording.
    Tape Room(size_t bytes);
    /// Takes back what is left of a chunk.
    void Reuse(Tape rest);
    /// Gives the file its final size. No other thread may write any more.
    void Close();

private:
    bool Extend(size_t size);
    void Stop(uint32_t flag);

    std::atomic<bool> isOpen{false};
    SRWLOCK lock = SRWLOCK_INIT;
    HANDLE file = INVALID_HANDLE_VALUE;
    uint64_t limit = 0;
    uint64_t size = 0;          ///< of the file, of which all is in memory
    uint64_t used = 0;          ///< of that, what is in chunks
    uint8_t* window = nullptr;  ///< the last part of it, not yet used
    uint64_t windowLeft = 0;
    FileHeader* header = nullptr;
    std::vector<void*> views;
    std::vector<Tape> rests;
};

LogFile& TheLog();

}  // namespace record
