#pragma once

#include <cwchar>

#include "JsonTypes.h"

namespace QXJSON {

/// How the names of members compare with a key.
enum class KeyMatch {
    kIgnoreCase,  ///< same length, ASCII letters without regard to case, all else exactly
    kExact,
};

/// The first member of an object, in document order, whose name matches the key; null when there is
/// none. The one place where members are searched by key.
JsonMember* FindMember(JsonValue& object, const wchar_t* key, size_t keyLength, KeyMatch match);

inline JsonMember* FindMember(JsonValue& object, const wchar_t* key, KeyMatch match) {
    return FindMember(object, key, std::wcslen(key), match);
}

}  // namespace QXJSON
