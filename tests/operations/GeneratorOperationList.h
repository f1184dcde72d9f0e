#pragma once

#include "Operation.h"

namespace support {

/// All operations of the generator in their order.
const Operations& GeneratorOperations();

/// Those that add an item. The operations of the variants count as two: one that adds a member and
/// one that is given no key and appends an element.
const Operations& AddingOperations();

/// The one that adds this kind in this way; there is every kind for every naming, except the
/// special numbers, which have no operation by reference.
const Operation& AddingOperation(Kind kind, NamedBy naming, bool hasKey);

}  // namespace support
