#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ParserOperationList.h"
#include "PlainReader.h"

namespace model {

using Outputs = std::vector<std::wstring>;

/// The codes of a value's kind.
uint32_t ItemTypeOf(const Value& value);
uint32_t ValueTypeOf(const Value& value);

/// What an operation that asks a value for something about itself writes out; nothing where it
/// refuses the value.
std::optional<Outputs> Read(support::Asks asks, const Value& value);

/// The characters of a string.
std::wstring_view CharactersOf(const Value& string);

/// Whether two keys are the same: exactly, or without regard to the case of ASCII letters.
bool AreSame(std::wstring_view a, std::wstring_view b, bool exactly);

}  // namespace model
