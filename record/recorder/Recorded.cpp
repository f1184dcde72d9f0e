#include "Recorded.h"

namespace record {

int NoteThrown(unsigned long code, const Callee& callee, uint16_t slot) {
    Write(callee, Event::kThrown, slot, kNumberSize,
          [&](Sink& sink) { sink.Put(Tag::kNumber, code); });
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace record
