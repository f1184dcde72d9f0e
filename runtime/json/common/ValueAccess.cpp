#include "ValueAccess.h"

namespace QXJSON {

Place FindMember(MemberLookup& members, const Place& object, const MemberRequest& request) {
    if (!object.value) return object;
    if (!request.key) return {nullptr, kNoMember};
    if (!request.outputs) return {nullptr, kPlainFailure};
    if (!object.value->IsObject()) return {nullptr, request.wrongKind};
    JsonMember* const member = members.Find(*object.value, KeyOf(request.key), request.match);
    return {member ? &member->value : nullptr, request.missing};
}

Place FindChild(const Place& container, uint32_t index, bool outputs) {
    uint32_t count = 0;
    const int result = Get<ChildCount>(container, outputs ? &count : nullptr);
    if (result != kSuccess) return {nullptr, result};
    if (index >= count) return {nullptr, kPlainFailure};
    JsonValue& parent = *container.value;
    return {parent.IsObject() ? &parent.MemberBegin()[index].value : &parent[index]};
}

int GetMemberName(const Place& object, uint32_t index, const wchar_t** name) {
    if (!object.value) return object.absence;
    if (!name) return kPlainFailure;
    if (!object.value->IsObject()) return kWrongKind;
    if (index >= object.value->MemberCount()) return kPlainFailure;
    *name = object.value->MemberBegin()[index].name.GetString();
    return kSuccess;
}

}  // namespace QXJSON
