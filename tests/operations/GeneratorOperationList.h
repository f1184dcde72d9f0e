#pragma once

#include "Operation.h"

namespace support {

/// All operations of the generator in their order.
const Operations& GeneratorOperations();

/// Those that add an item. The operations of the variants count as two: one that adds a member and
/// one that is given no key and appends an element.
const Operations& AddingOperations();

/// The one that adds this kind in this way; every kind is in every place, but the special numbers,
/// which have no operation by reference.
const Operation& AddingOperation(Kind kind, Place place, bool hasKey);

}  // namespace support
