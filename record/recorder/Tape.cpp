#include "Tape.h"

#include <intrin.h>
#include <windows.h>

#include <atomic>
#include <cstring>

#include "LogFile.h"
#include "calls/Memory.h"

namespace record {
namespace {

thread_local Tape tape = {};

/// A new chunk, or what another thread has left of its own.
bool GetRoom(size_t bytes) {
    const KeptLastError kept;
    LogFile& log = TheLog();
    log.Reuse({tape.next, tape.end});
    tape = log.Room(bytes);
    return tape.next != nullptr;
}

}  // namespace

bool IsRecording() { return TheLog().IsOpen(); }

Tape* TapeWith(size_t bytes) {
    if (!IsRecording()) return nullptr;
    const size_t needed = (bytes + 7) / 8 * 8;
    if (static_cast<size_t>(tape.end - tape.next) < needed && !GetRoom(needed)) return nullptr;
    return &tape;
}

void Finish(Tape& where, uint8_t* end, RecordHeader header) {
    uint8_t* const begin = where.next;
    // The log is zero where nothing was written yet, and so is the padding.
    header.size = 0;
    header.thread = GetCurrentThreadId();
    const size_t size = (static_cast<size_t>(end - begin) + 7) / 8 * 8;
    where.next = begin + size;
    header.ticks = __rdtsc();
    std::memcpy(begin, &header, sizeof header);
    std::atomic_signal_fence(std::memory_order_release);
    // Stores become visible in their order on this processor.
    *reinterpret_cast<volatile uint32_t*>(begin) = static_cast<uint32_t>(size);
}

void LeaveTape() {
    if (IsRecording()) TheLog().Reuse({tape.next, tape.end});
    tape = {};
}

}  // namespace record
