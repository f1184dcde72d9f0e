#include "ValueAccess.h"

namespace QXJSON {

int GetMemberName(const Place& object, uint32_t index, const wchar_t** name) {
    if (!object.value) return object.absence;
    if (!name) return kPlainFailure;
    if (!object.value->IsObject()) return kWrongKind;
    if (index >= object.value->MemberCount()) return kPlainFailure;
    *name = object.value->MemberBegin()[index].name.GetString();
    return kSuccess;
}

}  // namespace QXJSON
