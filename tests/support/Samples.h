#pragma once

#include <stdint.h>

#include <string>
#include <vector>

#include "ParserOperationList.h"
#include "Sites.h"

namespace support {

/// A value: its JSON text (of objects and arrays as the library writes it) and what it is.
struct Sample {
    enum Kind : uint32_t { kString, kNumber, kBoolean, kNull, kObject, kArray };

    std::wstring json;
    Kind kind;
    bool flag = false;        ///< boolean: its value
    bool isInteger = false;   ///< number: read as an integer that 64 bits can hold, with or
    bool isNegative = false;  ///<   without a sign; its sign and
    uint64_t magnitude = 0;   ///<   its distance from 0
    double real = 0;          ///< number: its value as a double
    std::wstring text = {};   ///< string: its characters
    std::vector<std::wstring> names = {};  ///< object: the names of its members
    uint32_t count = 0;                    ///< object, array: how many members or elements
};

/// Values of every kind, with numbers on both sides of the limits of every width.
const std::vector<Sample>& Samples();

/// What an operation returns that is asked for the sample itself or, with an index, for its child
/// at index 0. `site` is where it is and `child` the child, if it has one.
Answer ExpectedAnswer(const Operation& operation, const Sample& sample, const Site& site,
                      const Answer& child);

}  // namespace support
