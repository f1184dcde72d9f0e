#pragma once

#include <stddef.h>
#include <stdint.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "IJsonParser.h"

namespace support {

/// How an operation names the value that it works on.
enum class Place { kNone, kHandle, kReference, kPath };

/// What an operation is asked for; operations that differ only in Place ask for the same.
enum class Asks {
    kLoad,
    kState,
    kRoot,
    kMember,
    kChild,
    kName,
    kCount,
    kValueType,
    kItemType,
    kBoolean,
    kDouble,
    kFloat,
    kUInt64,
    kInt64,
    kUInt,
    kInt,
    kBlob,
    kString,
    kObject,
    kArray,
    kItem,
    kObjectText,
    kArrayText,
    kNumberClass,
    kExistence,
    kVariant,
    kRelease,
};

/// An output as the caller passes it: its variable, null, or a pointer to no memory.
enum class Output { kGiven, kMissing, kWild };

/// What a call is given. An operation uses those that it takes.
struct Arguments {
    uint32_t handle = 0;
    uint64_t reference = 0;
    const wchar_t* path = nullptr;  ///< of the loads: the text or the file name
    const wchar_t* key = nullptr;
    const char* bytes = nullptr;
    uint32_t index = 0;  ///< of LoadJsonBytes: the length
    Output outputs[2] = {Output::kGiven, Output::kGiven};
};

/// An output that the operation did not write, and one that it was not given.
inline const std::wstring kUnwritten = L"unwritten";
inline const std::wstring kNotGiven = L"not given";

/// What a call answered: the result (1 or 0 for bool) and the outputs, written out.
struct Answer {
    int result = 0;
    std::vector<std::wstring> outputs;
};

bool operator==(const Answer& a, const Answer& b);
std::ostream& operator<<(std::ostream& out, const Answer& answer);

/// Outputs as an Answer writes them out: numbers with all their digits, bytes as characters of the
/// same code.
std::wstring Show(uint32_t number);
std::wstring Show(int32_t number);
std::wstring Show(uint64_t number);
std::wstring Show(int64_t number);
std::wstring Show(double number);
std::wstring Show(float number);
std::wstring Show(const wchar_t* text);
std::wstring Show(const uint8_t* address);
std::wstring Show(const QXJSON::JsonVariant& variant);
std::wstring ShowBytes(const uint8_t* data, size_t size);

/// One operation of the parser, ready to be called with whatever it takes.
struct Operation {
    const char* name;
    Asks asks;
    Place place;
    bool hasKey;
    bool hasIndex;
    size_t outputs;
    bool returnsBool;
    size_t slot;  ///< where the compiler has put it in the table of virtual operations
    std::function<Answer(QXJSON::IJsonParser&, const Arguments&)> call;
};

/// All operations of the parser in their order.
const std::vector<Operation>& Operations();

/// The operation with a name.
const Operation& OperationNamed(const std::string& name);

/// The operations that read the document: all but the loads, the queries that take no value (state
/// and root) and Release.
std::vector<Operation> ReadingOperations();

}  // namespace support
