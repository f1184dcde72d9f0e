#pragma once

#include <windows.h>

namespace support {

/// Calls `thunk(context)` under a structured exception handler of its own frame and reports the
/// code of the exception that reached it, 0 when none did.
///
/// A handler of a frame, not a vectored one: it sees only what all frames below it let pass. No
/// destructors run in the frames that the exception crosses, so the thunk must own nothing.
DWORD CatchFaultIn(void (*thunk)(void*), void* context);

/// Runs `action` and reports the structured exception that escaped it, 0 when none did.
template <class Action>
DWORD CatchFault(Action action) {
    return CatchFaultIn([](void* context) { (*static_cast<Action*>(context))(); }, &action);
}

}  // namespace support
