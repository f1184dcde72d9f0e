#pragma once

#include <string>

#include "IJsonParser.h"

namespace support {

/// What becomes of an item path.
struct PathOutcome {
    enum Kind { kNumber, kAbsent, kFault } kind;
    int32_t number;
};

/// The path leads to this number.
inline PathOutcome LeadsTo(int32_t number) { return {PathOutcome::kNumber, number}; }
/// The path is malformed or nothing is there.
inline PathOutcome LeadsNowhere() { return {PathOutcome::kAbsent, 0}; }
/// The translation of the path faults.
inline PathOutcome Faults() { return {PathOutcome::kFault, 0}; }

/// Follows a path through every operation that takes one and expects the same outcome of each, in
/// the result that each has for it.
void ExpectPath(QXJSON::IJsonParser& parser, const wchar_t* path, const PathOutcome& expected);

}  // namespace support
