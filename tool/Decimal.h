#pragma once

#include <string_view>

namespace tool {

/// Whether two JSON numbers have the same value, exactly, however they are spelled: 1E2 is 100.0.
bool IsSameNumber(std::string_view a, std::string_view b);

}  // namespace tool
