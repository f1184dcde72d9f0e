#include "Kinds.h"

namespace tool {

using QXJSON::hosting::ValueKind;

const char* NameOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::kString:
            return "string";
        case ValueKind::kNumber:
            return "number";
        case ValueKind::kBoolean:
            return "boolean";
        case ValueKind::kNull:
            return "null";
        case ValueKind::kObject:
            return "object";
        default:
            return "array";
    }
}

}  // namespace tool
