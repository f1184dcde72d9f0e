#pragma once

#include <stdint.h>

#include "JsonTypes.h"

// One trait for each thing that can be read from a value: the type of the output (`Out`), the
// values that have it (`Fits`) and the reading itself (`Read`). The getters of ValueAccess.h do the
// rest.

namespace QXJSON {

struct Boolean {
    using Out = uint32_t;
    static bool Fits(const JsonValue& value) { return value.IsBool(); }
    static Out Read(const JsonValue& value) { return value.GetBool() ? 1 : 0; }
};

struct Int {
    using Out = int32_t;
    static bool Fits(const JsonValue& value) { return value.IsInt(); }
    static Out Read(const JsonValue& value) { return value.GetInt(); }
};

struct Uint {
    using Out = uint32_t;
    static bool Fits(const JsonValue& value) { return value.IsUint(); }
    static Out Read(const JsonValue& value) { return value.GetUint(); }
};

struct Int64 {
    using Out = int64_t;
    static bool Fits(const JsonValue& value) { return value.IsInt64(); }
    static Out Read(const JsonValue& value) { return value.GetInt64(); }
};

struct Uint64 {
    using Out = uint64_t;
    static bool Fits(const JsonValue& value) { return value.IsUint64(); }
    static Out Read(const JsonValue& value) { return value.GetUint64(); }
};

struct Double {
    using Out = double;
    static bool Fits(const JsonValue& value) { return value.IsNumber(); }
    static Out Read(const JsonValue& value) { return value.GetDouble(); }
};

struct Float {
    using Out = float;
    static bool Fits(const JsonValue& value) { return value.IsNumber(); }
    static Out Read(const JsonValue& value) { return static_cast<float>(value.GetDouble()); }
};

struct String {
    using Out = const wchar_t*;
    static bool Fits(const JsonValue& value) { return value.IsString(); }
    static Out Read(const JsonValue& value) { return value.GetString(); }
};

struct ChildCount {
    using Out = uint32_t;
    static bool Fits(const JsonValue& value) { return IsContainer(value); }
    static Out Read(const JsonValue& value) {
        return value.IsObject() ? value.MemberCount() : value.Size();
    }
};

/// The kind of a value: 0 string, 1 number, 2 boolean, 3 null, 4 object, 5 array.
struct ItemType {
    using Out = uint32_t;
    static bool Fits(const JsonValue&) { return true; }
    static Out Read(const JsonValue& value);
};

/// The item type, with numbers refined: 6 int32, 7 uint32, 8 int64, 9 uint64, 11 double.
struct ValueType {
    using Out = uint32_t;
    static bool Fits(const JsonValue&) { return true; }
    static Out Read(const JsonValue& value);
};

/// Whether a number is finite: 0 yes, 1 NaN, 2 infinity, 3 negative infinity.
struct NumberClass {
    using Out = uint32_t;
    static bool Fits(const JsonValue& value) { return value.IsNumber(); }
    static Out Read(const JsonValue& value);
};

}  // namespace QXJSON
