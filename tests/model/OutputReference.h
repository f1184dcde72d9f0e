#pragma once

#include <stdint.h>

#include <string>

#include "PlainReader.h"
#include "Selectors.h"

namespace model {

/// Which numbers a compact writer writes: all, or the finite ones, so that it stops at any other.
enum class Numbers { kAll, kFinite };

/// An array of one string, which may hold what no JSON text can.
Document ReferenceArrayOf(const std::wstring& text);

/// A value as RapidJSON's own writers write it, with which the outputs are compared; up to where a
/// writer stops. As compact UTF-16 text:
std::wstring ReferenceText(const Value& value, Numbers numbers = Numbers::kAll);

/// As compact text in an encoding, without mark.
std::string ReferenceBytes(const Value& value, int32_t selector, Numbers numbers = Numbers::kAll);

/// What a file holds after the mark of its encoding and the value were written to it through a
/// buffer of 260 bytes. Only the indenting writer stops at NaN and the infinities. Where a writer
/// stops, what is still in the buffer is lost.
std::string ReferenceFile(const Value& value, int32_t selector, bool indented);

/// Whether the text has no half of a surrogate pair, so that every encoding can represent it.
bool IsWellFormed(const std::wstring& text);

}  // namespace model
