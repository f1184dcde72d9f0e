#include "MemberLookup.h"

#include <algorithm>

namespace QXJSON {
namespace {

wchar_t LowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
}

struct Exactly {
    bool operator()(wchar_t a, wchar_t b) const { return a == b; }
};
struct IgnoringCase {
    bool operator()(wchar_t a, wchar_t b) const { return LowerAscii(a) == LowerAscii(b); }
};

template <class Equal>
JsonMember* Scan(JsonValue& object, const wchar_t* key, size_t length, Equal equal) {
    for (auto member = object.MemberBegin(); member != object.MemberEnd(); ++member) {
        if (member->name.GetStringLength() == length &&
            std::equal(key, key + length, member->name.GetString(), equal))
            return &*member;
    }
    return nullptr;
}

}  // namespace

JsonMember* FindMember(JsonValue& object, const wchar_t* key, size_t keyLength, KeyMatch match) {
    return match == KeyMatch::kExact ? Scan(object, key, keyLength, Exactly())
                                     : Scan(object, key, keyLength, IgnoringCase());
}

}  // namespace QXJSON
