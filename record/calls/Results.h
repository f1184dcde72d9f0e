#pragma once

#include <cstdint>

namespace record {

/// The result of an operation that did what it was asked to, as a log has it.
constexpr uint64_t kDone = 1;
/// That of one that met a fault: -5, with the 32 bits of an int.
constexpr uint64_t kFaulted = 0xFFFFFFFB;

}  // namespace record
