#pragma once

#include "Operation.h"

namespace support {

/// All operations of the package in their order.
const Operations& PackageOperations();

/// The one with a name.
const Operation& PackageOperation(const std::string& name);

/// Those that take a key and tell something about its value.
const Operations& PackageGetters();

}  // namespace support
