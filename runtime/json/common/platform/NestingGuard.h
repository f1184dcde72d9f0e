#pragma once

#include <stdint.h>

#include <exception>
#include <utility>

#include "common/values/JsonTypes.h"

namespace QXJSON {

/// The document is nested deeper than the calling thread's stack allows.
class NestingTooDeep : public std::exception {};

/// The lowest stack address of the calling thread, or of the fiber that it runs, that recursion may
/// reach. What lies below is kept for the work at the deepest level: a system call, an exception on
/// its way.
class StackFloor {
public:
    StackFloor();

    /// Whether the frame that asks lies below the floor.
    bool Passed() const {
        const char here = 0;
        return reinterpret_cast<uintptr_t>(&here) < floor;
    }

private:
    uintptr_t floor;
};

/// A SAX handler that passes events on to another, and ends their stream before the stack ends.
///
/// RapidJSON's reader recurses once for each level and has no limit; a stack overflow cannot be
/// survived. The reader stops when a handler returns false, so this one looks at the stack at each
/// level.
template <class Handler>
class NestingGuard {
public:
    using Ch = wchar_t;
    using Size = rapidjson::SizeType;

    explicit NestingGuard(Handler& target) : handler(target) {}

    /// Whether it was this guard that ended the events.
    bool TooDeep() const { return tooDeep; }

    bool Null() { return handler.Null(); }
    bool Bool(bool b) { return handler.Bool(b); }
    bool Int(int i) { return handler.Int(i); }
    bool Uint(unsigned i) { return handler.Uint(i); }
    bool Int64(int64_t i) { return handler.Int64(i); }
    bool Uint64(uint64_t i) { return handler.Uint64(i); }
    bool Double(double d) { return handler.Double(d); }
    // LCOV_EXCL_START: asked for by the concept; numbers are never passed on as text
    bool RawNumber(const Ch* s, Size n, bool copy) { return handler.RawNumber(s, n, copy); }
    // LCOV_EXCL_STOP
    bool String(const Ch* s, Size n, bool copy) { return handler.String(s, n, copy); }
    bool Key(const Ch* s, Size n, bool copy) { return handler.Key(s, n, copy); }
    bool StartObject() { return Fits() && handler.StartObject(); }
    bool EndObject(Size count) { return handler.EndObject(count); }
    bool StartArray() { return Fits() && handler.StartArray(); }
    bool EndArray(Size count) { return handler.EndArray(count); }

private:
    bool Fits() {
        tooDeep = floor.Passed();
        return !tooDeep;
    }

    Handler& handler;
    StackFloor floor;
    bool tooDeep = false;
};

/// Calls `produce` with a guard that passes events on to `handler`, and returns what it returns;
/// throws NestingTooDeep when the guard ended the events.
template <class Handler, class Produce>
auto GuardNesting(Handler& handler, Produce&& produce) {
    NestingGuard<Handler> guard(handler);
    auto result = std::forward<Produce>(produce)(guard);
    if (guard.TooDeep()) throw NestingTooDeep();
    return result;
}

}  // namespace QXJSON
