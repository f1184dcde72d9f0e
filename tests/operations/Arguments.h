#pragma once

#include <cstdint>
#include <optional>

#include "JsonVariant.h"

namespace QXJSON {
class IJsonPackageDelegate;
}

namespace support {

/// What an operation stores, loads or writes to. It takes what it has a parameter for.
struct Payload {
    uint32_t word = 0;  ///< a flag, unsigned number or selector; of bytes the length
    int32_t int32 = 0;
    uint64_t uint64 = 0;
    int64_t int64 = 0;
    double real = 0;
    float single = 0;
    const uint8_t* bytes = nullptr;
    const wchar_t* text = nullptr;  ///< a text, JSON text or file name
    QXJSON::JsonVariant variant = {};
};

/// An address at which there is no memory, for outputs and everything else.
inline constexpr uintptr_t kWild = 16;
inline constexpr uintptr_t kMissing = 0;

/// What a call is given. An operation takes what it has a parameter for.
struct Arguments {
    uint32_t handle = 0;
    uint64_t reference = 0;
    const wchar_t* path = nullptr;
    const wchar_t* key = nullptr;
    uint32_t index = 0;
    Payload payload = {};
    int32_t encoding = 0;
    int32_t style = 0;
    void* object = nullptr;  ///< the runtime's
    QXJSON::IJsonPackageDelegate* delegate = nullptr;
    /// What is passed on to the delegate, each as far as its parameter is wide.
    uint64_t passedOn[6] = {};
    /// Where the record of a variant is that is taken by its address, if not in the payload.
    std::optional<uintptr_t> record = {};
    /// Where outputs go, if not to variables of the call's own.
    std::optional<uintptr_t> outputs[2] = {};
};

}  // namespace support
