#pragma once

#include <optional>
#include <string>

#include "LogReader.h"

namespace replay {

/// The first value that is another one than was recorded, in words; nothing where all are the same.
/// `references`: whether references have to be the same by their numbers.
std::optional<std::string> FirstDifference(Values recorded, Values actual, bool references);

}  // namespace replay
