#pragma once

#include <functional>

#include "Calls.h"

namespace replay {

/// Does `work` with as much stack as a call had that met a fault, if that may be why: what it was
/// given is long enough to be nested. Everything else has all the stack of the program.
void WithStackOf(const Calls& calls, uint32_t call, const std::function<void()>& work);

}  // namespace replay
