#pragma once

#include "Operation.h"

namespace support {

/// All operations of the parser in their order.
const Operations& ParserOperations();

/// The one with a name.
const Operation& ParserOperation(const std::string& name);

/// Those that read the document: all but the loads, the queries that take no value (state and root)
/// and Release.
const Operations& ReadingOperations();

}  // namespace support
