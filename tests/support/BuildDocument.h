#pragma once

#include <rapidjson/document.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "IJsonGenerator.h"

namespace building {

using Value = rapidjson::GenericValue<rapidjson::UTF16<>>;
using Document = rapidjson::GenericDocument<rapidjson::UTF16<>>;
using Allocator = Document::AllocatorType;

/// What a plain writer makes of a value.
std::wstring TextOf(const Value& value);

/// The generator's document as it returns it; the test fails when it returns none.
std::wstring TextOf(QXJSON::IJsonGenerator& generator);

/// The value at a JSON Pointer below `root`; null where the pointer does not parse or nothing is
/// there.
Value* Resolve(Value& root, const std::wstring& pointer);

/// How many values there are, counting `root` and everything below it, and the JSON Pointer of one
/// of them by its place in the document's order.
uint32_t CountIn(const Value& root);
std::wstring PointerIn(const Value& root, uint32_t place);

/// The value that a generator's reference is the address of, read where it lies.
Value& At(uint64_t reference);

/// The reference of a value.
uint64_t ReferenceOf(const Value& value);

/// A string value with a copy of `text`.
Value NewString(const std::wstring& text, Allocator& allocator);

}  // namespace building
