#pragma once

#include <stdint.h>

/// \file
/// The numbers by which operations name types, classes of numbers and encodings.

namespace QXJSON {

/// What a value is, from the operations that return a handle.
enum JsonItemType : uint32_t {
    kItemString = 0,   ///< a string
    kItemNumber = 1,   ///< a number of any kind
    kItemBoolean = 2,  ///< true or false
    kItemNull = 3,     ///< null
    kItemObject = 4,   ///< an object
    kItemArray = 5,    ///< an array
};

/// What a value is, from the operations that return a reference: as the item type, except that a
/// number reports the first of its types that applies.
enum JsonValueType : uint32_t {
    kValueString = 0,   ///< a string
    kValueBoolean = 2,  ///< true or false
    kValueNull = 3,     ///< null
    kValueObject = 4,   ///< an object
    kValueArray = 5,    ///< an array
    kValueInt32 = 6,    ///< an integer that fits int32_t
    kValueUInt32 = 7,   ///< an integer that fits uint32_t
    kValueInt64 = 8,    ///< an integer that fits int64_t
    kValueUInt64 = 9,   ///< an integer that fits uint64_t
    kValueDouble = 11,  ///< a number that is stored as a double
};

/// The class of a number, and the selector of a special number that a generator adds.
enum JsonNumberClass : uint32_t {
    kNumberFinite = 0,         ///< an integer or a finite double; as a selector, the integer 0
    kNumberNan = 1,            ///< NaN
    kNumberInfinity = 2,       ///< Infinity
    kNumberMinusInfinity = 3,  ///< -Infinity
};

/// The encodings of bytes and files. Bytes have no byte-order mark; files begin with that of their
/// encoding.
enum JsonOutputEncoding : int32_t {
    kEncodingAscii = 0,    ///< ASCII, everything else escaped as \\uXXXX; no byte-order mark
    kEncodingUtf16Le = 1,  ///< UTF-16, the lower byte first; mark FF FE
    kEncodingUtf8 = 2,     ///< UTF-8; mark EF BB BF
    kEncodingUtf16Be = 3,  ///< UTF-16, the higher byte first; mark FE FF
};

}  // namespace QXJSON
