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

/// Calls the operation and records the call.
template <class Operation, class Target, class... Natives>
auto Recorded(const Callee& callee, Target* target, Natives... natives) {
    if (!IsRecording()) return (target->*Operation::kFunction)(natives...);
    auto kinds = Operation::Kinds(natives...);
    LookAt(kinds);
    const bool isWritten = Write(callee, Event::kCall, Operation::kSlot,
                                 BoundOf(kinds) + kNumberSize, [&](Sink& sink) {
                                     if (callee.delegate) sink.Put(Tag::kNumber, callee.delegate);
                                     WriteArguments(sink, kinds);
                                 });
    const auto result = CallNoting<Operation>(callee, target, natives...);
    if (isWritten) {
        LookAtOutputs(kinds, BitsOf(result));
        Write(callee, Event::kReturn, Operation::kSlot, BoundOfReturn(kinds),
              [&](Sink& sink) { WriteReturn(sink, kinds, BitsOf(result)); });
    }
    return result;
}

}  // namespace record
