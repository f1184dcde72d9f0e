#pragma once

#include <functional>
#include <string>
#include <vector>

#include "JsonDll.h"
#include "Operations.h"
#include "Samples.h"

namespace support {

/// What a getter of the package wants to know about the value of a key.
enum class PackageAsks {
    kText,
    kString,
    kNumber,
    kBoolean,
    kStringVariant,
    kVariant,
    kBlob,
    kType,
    kExistence,
};

/// One of the package's operations that take a key and tell something about its value, ready to be
/// called.
struct PackageGetter {
    const char* name;
    PackageAsks asks;
    size_t outputs;
    /// `outputs` says for each output whether the call gets a variable for it.
    std::function<Answer(QXJSON::IJsonPackage&, const wchar_t* key, const Output* outputs)> call;

    /// The call with all outputs.
    Answer Ask(QXJSON::IJsonPackage& package, const wchar_t* key) const;
};

/// All of them.
const std::vector<PackageGetter>& PackageGetters();

/// The answer of a getter to a key that holds the sample.
Answer PackageAnswerFor(const PackageGetter& getter, const Sample& sample);

/// The answer of a getter that fails with `result`.
Answer PackageFailure(const PackageGetter& getter, int result, const Output* outputs);

}  // namespace support
