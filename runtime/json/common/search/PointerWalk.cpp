#include "PointerWalk.h"

#include <string>

namespace QXJSON {
namespace {

/// The length of the text up to the first `unit`, or the whole length if it has none. Segments are
/// short: a loop beats the call that std::wstring_view::find makes.
size_t CountUpTo(wchar_t unit, std::wstring_view text) {
    size_t count = 0;
    while (count < text.size() && text[count] != unit) ++count;
    return count;
}

/// The name that a well-formed segment stands for, which is not the segment itself.
std::wstring Unescape(std::wstring_view segment) {
    std::wstring name;
    for (size_t i = 0; i < segment.size(); ++i) {
        if (segment[i] != L'~')
            name += segment[i];
        else
            name += segment[++i] == L'0' ? L'~' : L'/';
    }
    return name;
}

JsonValue* FindElement(JsonValue& array, std::wstring_view segment) {
    // An index has no leading zero, and neither escapes nor signs.
    if (segment.empty() || (segment.size() > 1 && segment[0] == L'0')) return nullptr;
    uint32_t index = 0;
    for (const wchar_t c : segment) {
        if (c < L'0' || c > L'9') return nullptr;
        const uint32_t next = index * 10 + static_cast<uint32_t>(c - L'0');
        // RapidJSON's test for an overflow, which lets some large numbers wrap.
        if (next < index) return nullptr;
        index = next;
    }
    return index < array.Size() ? &array[index] : nullptr;
}

JsonValue* FindNamed(MemberLookup& members, JsonValue& object, std::wstring_view name) {
    JsonMember* const member = members.Find(object, name, KeyMatch::kExact);
    return member ? &member->value : nullptr;
}

}  // namespace

bool IsWellFormed(std::wstring_view pointer) {
    for (;;) {
        pointer.remove_prefix(CountUpTo(L'~', pointer));
        if (pointer.empty()) return true;
        if (pointer.size() == 1 || (pointer[1] != L'0' && pointer[1] != L'1')) return false;
        pointer.remove_prefix(2);
    }
}

JsonValue* ResolveSegment(MemberLookup& members, JsonValue& value, std::wstring_view segment) {
    if (value.IsArray()) return FindElement(value, segment);
    if (!value.IsObject()) return nullptr;
    if (CountUpTo(L'~', segment) == segment.size()) return FindNamed(members, value, segment);
    return IsWellFormed(segment) ? FindNamed(members, value, Unescape(segment)) : nullptr;
}

JsonValue* ResolveSegments(MemberLookup& members, JsonValue& value, std::wstring_view segments) {
    JsonValue* reached = &value;
    for (;;) {
        const size_t length = CountUpTo(L'/', segments);
        reached = ResolveSegment(members, *reached, segments.substr(0, length));
        if (!reached || length == segments.size()) return reached;
        segments.remove_prefix(length + 1);
    }
}

JsonValue* ResolvePointer(MemberLookup& members, JsonValue& root, std::wstring_view pointer) {
    return pointer.empty() ? &root : ResolveSegments(members, root, pointer.substr(1));
}

}  // namespace QXJSON
