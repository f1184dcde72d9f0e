#pragma once

#include <windows.h>

namespace record {

/// The recorder's own module.
HMODULE TheModule();

}  // namespace record
