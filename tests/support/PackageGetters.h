#pragma once

#include "PackageOperationList.h"
#include "Samples.h"

namespace support {

/// A getter's answer about a key.
Answer Ask(const Operation& getter, QXJSON::IJsonPackage& package, const wchar_t* key);

/// The answer to a key that holds the sample.
Answer PackageAnswerFor(const Operation& getter, const Sample& sample);

/// The answer of a getter that fails with `result`: two of them write an output all the same.
Answer PackageFailure(const Operation& getter, int result);

}  // namespace support
