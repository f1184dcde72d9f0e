#pragma once

#include <cstddef>
#include <cstdint>

#include "log/Format.h"

namespace record {

/// Where a thread writes its records: the rest of a chunk of the log.
struct Tape {
    uint8_t* next;
    uint8_t* end;
};

/// Whether anything is recorded now.
bool IsRecording();

/// The calling thread's tape with room for a record of so many bytes. Null where nothing is
/// recorded: there is no log, or it is full.
Tape* TapeWith(size_t bytes);

/// Makes what was written from `tape.next` to `end` a record. The size is stored last, so that a
/// record is in the log as a whole or not at all, whenever the process ends.
void Finish(Tape& tape, uint8_t* end, RecordHeader header);

/// Gives back what is left of the calling thread's chunk, for another thread to use.
void LeaveTape();

}  // namespace record
