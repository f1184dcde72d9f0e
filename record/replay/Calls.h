#pragma once

#include "LogReader.h"

namespace replay {

constexpr uint32_t kNone = 0xFFFFFFFF;

/// A call of the host's or of a delegate, with what came of it, and the calls within it: those of
/// delegates in an operation, those of operations in a delegate.
struct Call {
    const RecordHeader* begin;
    const RecordHeader* end = nullptr;  ///< null: the call did not return before the log ends
    uint32_t around = kNone;            ///< the call that this one is inside of
    uint32_t firstInside = kNone;
    uint32_t lastInside = kNone;
    uint32_t next = kNone;  ///< the next one inside the same call

    bool IsOfDelegate() const { return begin->event == Event::kDelegateCall; }
    bool IsFactory() const { return begin->slot == record::kFactory; }
    bool Threw() const {
        return end && (end->event == Event::kThrown || end->event == Event::kDelegateThrown);
    }
    /// The object that is called; the new one where it is a factory.
    uint32_t Object() const;
};

/// The calls of a log, in the order of their beginning.
struct Calls {
    explicit Calls(const Log& log);

    std::vector<Call> all;
    std::vector<uint32_t> outer;  ///< those that are in no other

private:
    void Begin(const RecordHeader* record, std::vector<uint32_t>& openCalls);
    void End(const RecordHeader* record, std::vector<uint32_t>& openCalls);
};

}  // namespace replay
