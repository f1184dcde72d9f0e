#pragma once

#include <cstdint>

#include "IJsonPackageDelegate.h"
#include "log/Format.h"

namespace record {

/// The operations of an interface, in the order of their slots.
template <class... Operations>
struct OperationList {};

/// A delegate with a number, by which a log names it: the recorder's, which stands between a
/// package and the host's, or that of a replay.
class NumberedDelegate : public QXJSON::IJsonPackageDelegate {
public:
    uint32_t number = 0;

protected:
    ~NumberedDelegate() = default;
};

}  // namespace record
