#pragma once

#include <stdint.h>

/// \file
/// A value of one of two types.

namespace QXJSON {

/// The tags of a JsonVariant; every other tag is refused.
enum JsonVariantTag : uint16_t {
    kVariantInt64 = 20,    ///< the payload is a signed 64-bit integer
    kVariantText = 16384,  ///< the payload points to zero-terminated UTF-16 text
};

/// A text or a whole number: the runtime passes either in one record of 16 bytes, the tag first and
/// the payload at offset 8.
struct JsonVariant {
    uint16_t tag;  ///< what the payload is: one of JsonVariantTag
    union {
        int64_t number;       ///< with kVariantInt64
        const wchar_t* text;  ///< with kVariantText; not owned by the record
    };
};

static_assert(sizeof(JsonVariant) == 16, "the record's size is part of the binary contract");

}  // namespace QXJSON
