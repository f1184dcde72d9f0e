#pragma once

#include "PackageOperationList.h"
#include "Samples.h"

namespace support {

/// What a getter returns for a key.
Answer Ask(const Operation& getter, QXJSON::IJsonPackage& package, const wchar_t* key);

/// What it returns for a key that holds the sample.
Answer PackageAnswerFor(const Operation& getter, const Sample& sample);

/// What a getter returns that fails with `result`: two of them write an output all the same.
Answer PackageFailure(const Operation& getter, int result);

}  // namespace support
