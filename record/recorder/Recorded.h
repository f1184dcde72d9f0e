#pragma once

#include <excpt.h>

#include "Tape.h"
#include "calls/Passage.h"

namespace record {

/// Who is called.
struct Callee {
    Interface interface;
    uint32_t object;
    uint32_t delegate;  ///< the number of a delegate of the object; 0 where the object is called
    References& references;
};

/// How much goes into the log, from the settings.
const Extent& TheExtent();

inline RecordHeader HeaderOf(const Callee& callee, Event event, uint16_t slot) {
    const auto first = static_cast<uint8_t>(event);
    constexpr auto kShift =
        static_cast<uint8_t>(Event::kDelegateCall) - static_cast<uint8_t>(Event::kCall);
    RecordHeader header = {};
    header.event = static_cast<Event>(callee.delegate ? first + kShift : first);
    header.interface = callee.interface;
    header.slot = slot;
    header.object = callee.object;
    return header;
}

/// Writes a record, whose values `write(sink)` puts into it; whether it was written.
template <class Write>
bool Write(const Callee& callee, Event event, uint16_t slot, size_t bound, Write write) {
    Tape* const tape = TapeWith(sizeof(RecordHeader) + bound);
    if (!tape) return false;
    Sink sink(tape->next + sizeof(RecordHeader), callee.references, TheExtent());
    write(sink);
    Finish(*tape, sink.End(), HeaderOf(callee, event, slot));
    return true;
}

/// Records what leaves an operation in place of a result, and lets it go on.
int NoteThrown(unsigned long code, const Callee& callee, uint16_t slot);

/// Calls the operation. What it throws is noted before anything is unwound.
template <class Operation, class Target, class... Natives>
auto CallNoting(const Callee& callee, Target* target, Natives... natives)
    -> decltype((target->*Operation::kFunction)(natives...)) {
    __try {
        return (target->*Operation::kFunction)(natives...);
    } __except (NoteThrown(GetExceptionCode(), callee, Operation::kSlot)) {
        return {};  // not reached: the filter never asks for it
    }
}

// What follows up to Recorded() is the same for all operations with the same kinds of parameters,
// and compiled once for them.

/// Records a call; whether it was recorded.
template <class Kinds>
JSON_NEVER_INLINE bool RecordCall(const Callee& callee, uint16_t slot, Kinds& kinds) {
    LookAt(kinds);
    return Write(callee, Event::kCall, slot, BoundOf(kinds) + kNumberSize, [&](Sink& sink) {
        if (callee.delegate) sink.Put(Tag::kNumber, callee.delegate);
        WriteArguments(sink, kinds);
    });
}

template <class Kinds>
JSON_NEVER_INLINE void RecordReturn(const Callee& callee, uint16_t slot, Kinds& kinds,
                                    uint64_t result) {
    LookAtOutputs(kinds, result);
    Write(callee, Event::kReturn, slot, BoundOfReturn(kinds),
          [&](Sink& sink) { WriteReturn(sink, kinds, result); });
}

/// Calls the operation and records the call.
template <class Operation, class Target, class... Natives>
auto Recorded(const Callee& callee, Target* target, Natives... natives) {
    if (!IsRecording()) return (target->*Operation::kFunction)(natives...);
    auto kinds = Operation::Kinds(natives...);
    const bool isRecorded = RecordCall(callee, Operation::kSlot, kinds);
    const auto result = CallNoting<Operation>(callee, target, natives...);
    if constexpr (Operation::kRenews)
        EndReferences(callee.references, callee.interface, BitsOf(result));
    if (isRecorded) RecordReturn(callee, Operation::kSlot, kinds, BitsOf(result));
    return result;
}

}  // namespace record
