#pragma once

#include <stddef.h>
#include <stdint.h>

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "IJsonGenerator.h"

namespace building {

/// How an operation names the parent of the new item.
enum class Family { kReference, kHandle, kPath };

constexpr Family kAllFamilies[] = {Family::kReference, Family::kHandle, Family::kPath};

/// What an operation adds.
enum class Kind {
    kObject,
    kArray,
    kBoolean,
    kDouble,
    kFloat,
    kUInt64,
    kInt64,
    kUInt,
    kInt,
    kSpecialNumber,
    kBlob,
    kString,
    kNull,
    kVariant,
};

/// What an item is made of; an operation takes what it has a parameter for.
struct Payload {
    uint32_t word = 0;  ///< the flag, unsigned number or selector; of a blob the length
    int32_t int32 = 0;
    uint64_t uint64 = 0;
    int64_t int64 = 0;
    double real = 0;
    float single = 0;
    const uint8_t* bytes = nullptr;
    const wchar_t* text = nullptr;
    QXJSON::JsonVariant variant = {};
};

/// An output as the caller passes it: its variable, null, or a pointer to no memory.
enum class Output { kGiven, kMissing, kWild };

/// What a call is given. An operation takes the name of the parent that its family goes by, and
/// the key if it has one.
struct Arguments {
    uint64_t reference = 0;
    int32_t handle = 0;
    const wchar_t* path = nullptr;
    const wchar_t* key = nullptr;
    Payload payload = {};
    Output output = Output::kGiven;
};

/// What a call answered: the result, and the reference or handle if one was written.
struct Answer {
    int result = 0;
    std::optional<uint64_t> output = {};
};

bool operator==(const Answer& a, const Answer& b);
std::ostream& operator<<(std::ostream& out, const Answer& answer);

/// One operation that adds an item, ready to be called. The operations of the variants count as
/// two: one that adds a member and one that is given no key.
struct Operation {
    std::string name;
    Kind kind;
    Family family;
    bool keyed;   ///< adds a member under a key; else it appends an element
    size_t slot;  ///< where the compiler has put it in the table of virtual operations
    std::function<Answer(QXJSON::IJsonGenerator&, const Arguments&)> call;
};

/// All operations that add an item, in their order.
const std::vector<Operation>& Operations();

/// The operation that adds this kind in this way; every kind is in every family, but the special
/// numbers, which have no operation by reference.
const Operation& OperationFor(Kind kind, Family family, bool keyed);

}  // namespace building
