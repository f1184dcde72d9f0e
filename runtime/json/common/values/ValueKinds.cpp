#include "ValueKinds.h"

#include <cmath>

#include "common/ValueCodes.h"

namespace QXJSON {

uint32_t ItemType::Read(const JsonValue& value) {
    switch (value.GetType()) {
        case rapidjson::kStringType:
            return kItemString;
        case rapidjson::kNumberType:
            return kItemNumber;
        case rapidjson::kFalseType:
        case rapidjson::kTrueType:
            return kItemBoolean;
        case rapidjson::kObjectType:
            return kItemObject;
        case rapidjson::kArrayType:
            return kItemArray;
        default:
            return kItemNull;
    }
}

uint32_t ValueType::Read(const JsonValue& value) {
    if (!value.IsNumber()) return ItemType::Read(value);
    // The widths are nested: the first that holds is the narrowest. 10, for a double that would fit
    // a float, is never reported.
    if (value.IsInt()) return kValueInt32;
    if (value.IsUint()) return kValueUInt32;
    if (value.IsInt64()) return kValueInt64;
    if (value.IsUint64()) return kValueUInt64;
    return kValueDouble;
}

uint32_t NumberClass::Read(const JsonValue& value) {
    if (!value.IsDouble()) return kNumberFinite;
    const double number = value.GetDouble();
    if (std::isnan(number)) return kNumberNan;
    if (std::isinf(number)) return number > 0 ? kNumberInfinity : kNumberMinusInfinity;
    return kNumberFinite;
}

}  // namespace QXJSON
