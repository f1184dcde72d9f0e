#include "ValueKinds.h"

#include <cmath>

namespace QXJSON {

uint32_t ItemType::Read(const JsonValue& value) {
    switch (value.GetType()) {
        case rapidjson::kStringType:
            return 0;
        case rapidjson::kNumberType:
            return 1;
        case rapidjson::kFalseType:
        case rapidjson::kTrueType:
            return 2;
        case rapidjson::kObjectType:
            return 4;
        case rapidjson::kArrayType:
            return 5;
        default:
            return 3;
    }
}

uint32_t ValueType::Read(const JsonValue& value) {
    // The widths are nested: the first that holds is the narrowest. 10, for a double that would fit
    // a float, is never told.
    if (value.IsInt()) return 6;
    if (value.IsUint()) return 7;
    if (value.IsInt64()) return 8;
    if (value.IsUint64()) return 9;
    if (value.IsDouble()) return 11;
    return ItemType::Read(value);
}

uint32_t NumberClass::Read(const JsonValue& value) {
    if (!value.IsDouble()) return 0;
    const double number = value.GetDouble();
    if (std::isnan(number)) return 1;
    if (std::isinf(number)) return number > 0 ? 2 : 3;
    return 0;
}

}  // namespace QXJSON
