#pragma once

#include <stddef.h>

#include <functional>

namespace support {

/// Runs `work` on a new thread with a stack of `bytes` and waits for its end.
void OnStackOf(size_t bytes, const std::function<void()>& work);

}  // namespace support
