#pragma once

#include <stddef.h>

#include <functional>

namespace support {

/// The stack of a thread that is meant to have little.
constexpr size_t kSmallStack = 256 * 1024;

/// Runs `work` on a new thread with `bytes` of stack to go, and waits for its end.
void OnStackOf(size_t bytes, const std::function<void()>& work);

/// The same on a new fiber of the calling thread.
void OnFiberOf(size_t bytes, const std::function<void()>& work);

}  // namespace support
