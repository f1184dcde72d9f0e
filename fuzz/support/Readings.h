#pragma once

#include <optional>
#include <string>
#include <vector>

#include "BuildDocument.h"
#include "ParserOperationList.h"

namespace fuzz {

using building::Value;
using Outputs = std::vector<std::wstring>;

/// The codes of a value's kind.
uint32_t ItemTypeOf(const Value& value);
uint32_t ValueTypeOf(const Value& value);

/// What an operation that asks a value for something about itself writes out; nothing where it
/// refuses the value.
std::optional<Outputs> Read(support::Asks asks, const Value& value);

/// The characters of a string.
std::wstring TextOf(const Value& string);

/// Whether the text has no half of a surrogate pair, so that every encoding can hold it.
bool IsWellFormed(const std::wstring& text);

}  // namespace fuzz
