#pragma once

#include <stdint.h>

namespace host {

/// Calls `work(context)`; the code of the processor fault that ended it, or 0. What Windows does
/// with a frame's structured exception handler is done here with a jump: no destructor runs on the
/// way. C++ exceptions pass through unharmed. Frames may be nested; a fault ends in the innermost
/// one of its thread. A fault outside of all frames is the sanitizers' to report.
uint32_t CallInFaultFrame(void (*work)(void*), void* context);

/// Ends the thread's innermost fault frame with `code`.
[[noreturn]] void LeaveFaultFrame(uint32_t code);

}  // namespace host
