#pragma once

#include <cstring>

#include "common/values/JsonTypes.h"

/// What plain RapidJSON makes of a text.
using PlainDocument = rapidjson::GenericDocument<QXJSON::JsonEncoding>;

/// Whether two numbers are the same to the last bit, and of the same type of RapidJSON's.
template <class A, class B>
bool SameNumber(const A& a, const B& b) {
    if (a.IsDouble() != b.IsDouble() || a.IsInt() != b.IsInt() || a.IsUint() != b.IsUint() ||
        a.IsInt64() != b.IsInt64() || a.IsUint64() != b.IsUint64())
        return false;
    if (!a.IsDouble())
        return a.IsUint64() ? a.GetUint64() == b.GetUint64() : a.GetInt64() == b.GetInt64();
    const double numbers[] = {a.GetDouble(), b.GetDouble()};
    return std::memcmp(&numbers[0], &numbers[1], sizeof(double)) == 0;
}

template <class A, class B>
bool SameText(const A& a, const B& b) {
    return a.GetStringLength() == b.GetStringLength() &&
           std::memcmp(a.GetString(), b.GetString(), a.GetStringLength() * sizeof(wchar_t)) == 0;
}

/// Whether two trees are the same, values and members in the same order, to the last bit.
template <class A, class B>
bool SameTree(const A& a, const B& b) {
    if (a.GetType() != b.GetType()) return false;
    if (a.IsNumber()) return SameNumber(a, b);
    if (a.IsString()) return SameText(a, b);
    if (a.IsArray()) {
        if (a.Size() != b.Size()) return false;
        for (rapidjson::SizeType i = 0; i < a.Size(); ++i)
            if (!SameTree(a[i], b[i])) return false;
        return true;
    }
    if (!a.IsObject()) return true;
    if (a.MemberCount() != b.MemberCount()) return false;
    auto other = b.MemberBegin();
    for (auto member = a.MemberBegin(); member != a.MemberEnd(); ++member, ++other)
        if (!SameText(member->name, other->name) || !SameTree(member->value, other->value))
            return false;
    return true;
}
