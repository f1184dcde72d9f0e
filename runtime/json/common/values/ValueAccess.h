#pragma once

#include "JsonTypes.h"
#include "ValueKinds.h"
#include "common/ResultCodes.h"
#include "common/search/MemberLookup.h"

// Reading values. Every operation checks in one order, and the first check that fails is the
// result: the place, the key, the output pointers, the kind of the value, the presence of the
// member, the type asked for.

namespace QXJSON {

/// Where an operation works: a value, or the result that its absence has.
struct Place {
    JsonValue* value;
    int absence = kNoValue;
};

/// Whether what `Kind` stands for can be read from the value at a place: kSuccess, or the result of
/// the first check that fails. `outputs`: whether all output pointers of the operation are there.
template <class Kind>
int Check(const Place& place, bool outputs) {
    if (!place.value) return place.absence;
    if (!outputs) return kPlainFailure;
    return Kind::Fits(*place.value) ? kSuccess : kWrongKind;
}

/// Reads what `Kind` stands for from the value at a place.
template <class Kind>
int Get(const Place& place, typename Kind::Out* out) {
    const int result = Check<Kind>(place, out != nullptr);
    if (result == kSuccess) *out = Kind::Read(*place.value);
    return result;
}

/// A member as an operation asks for it.
struct MemberRequest {
    const wchar_t* key;
    bool outputs;                ///< whether all output pointers of the operation are there
    int missing;                 ///< the result when no member has the key
    int wrongKind = kWrongKind;  ///< the result when the parent is not an object
    KeyMatch match = KeyMatch::kIgnoreCase;
};

// These are inline because a Place is more than a register holds: passed through memory, it costs
// as much as a search among few members.

/// The place of a member of the object at a place.
inline Place FindMember(MemberLookup& members, const Place& object, const MemberRequest& request) {
    if (!object.value) return object;
    if (!request.key) return {nullptr, kNoMember};
    if (!request.outputs) return {nullptr, kPlainFailure};
    if (!object.value->IsObject()) return {nullptr, request.wrongKind};
    JsonMember* const member = members.Find(*object.value, KeyOf(request.key), request.match);
    return {member ? &member->value : nullptr, request.missing};
}

/// Reads what `Kind` stands for from a member. The result for a missing member is kNoMember.
template <class Kind>
int GetMember(MemberLookup& members, const Place& object, const wchar_t* key,
              typename Kind::Out* out, KeyMatch match = KeyMatch::kIgnoreCase) {
    const MemberRequest request{key, out != nullptr, kNoMember, kWrongKind, match};
    return Get<Kind>(FindMember(members, object, request), out);
}

/// The place of the member or element at `index`, in document order, of a container; `outputs` as
/// in MemberRequest. The result for an index that is not below the count is kPlainFailure.
inline Place ChildAt(const Place& container, uint32_t index, bool outputs) {
    const int result = Check<ChildCount>(container, outputs);
    if (result != kSuccess) return {nullptr, result};
    JsonValue& parent = *container.value;
    if (index >= ChildCount::Read(parent)) return {nullptr, kPlainFailure};
    return {parent.IsObject() ? &parent.MemberBegin()[index].value : &parent[index]};
}

/// The name of the member at `index` of the object at a place.
int GetMemberName(const Place& object, uint32_t index, const wchar_t** name);

}  // namespace QXJSON
