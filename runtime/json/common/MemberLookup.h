#pragma once

#include <stdint.h>

#include <string_view>
#include <unordered_map>
#include <vector>

#include "JsonTypes.h"

namespace QXJSON {

/// How the names of members compare with a key.
enum class KeyMatch {
    kIgnoreCase,  ///< same length, ASCII letters without regard to case, all else exactly
    kExact,
};

/// A zero-terminated key as a view. Keys are short: a loop beats the call of wcslen.
inline std::wstring_view KeyOf(const wchar_t* key) {
    size_t length = 0;
    while (key[length] != 0) ++length;
    return {key, length};
}

/// The search for members by key in the objects of one document. The first match in document order
/// wins, however it is found: small objects are scanned; a large one that is searched again and
/// again gets an index.
///
/// Indexes are known by the memory that holds an object's members. A document's pool never gives
/// memory back, so that an address stands for one object for as long as the document lives; who
/// changes an object says so with Moved or Removed.
class MemberLookup {
public:
    /// The first member whose name matches the key, or null.
    JsonMember* Find(JsonValue& object, std::wstring_view key, KeyMatch match);

    /// The members of an object that grew are elsewhere now.
    void Moved(const JsonMember* from, const JsonMember* to);
    /// The member at `position` of an object was taken away, and those behind it moved up.
    void Removed(const JsonValue& object, size_t position);
    /// The document ended.
    void Clear();

private:
    /// The members of one object by the hash of their names, in a hash table with open addressing
    /// and linear probing. Members were entered in document order, so that of several with one hash
    /// the first comes first.
    struct Index {
        struct Slot {
            uint32_t hash;
            uint32_t member;  // its position plus 1; 0 is free
        };

        void CatchUp(const JsonValue& object);
        void Grow(size_t size);
        void Enter(uint32_t hash, uint32_t member);

        std::vector<Slot> slots;  // none until the object was scanned often enough
        uint32_t entered = 0;     // how many members, from the first
        uint32_t used = 0;        // slots that are not free, removed ones included
        uint64_t scanned = 0;     // how many members were looked at without an index
    };

    Index& IndexOf(const JsonMember* members);

    std::unordered_map<const JsonMember*, Index> indexes;
    const JsonMember* lastMembers = nullptr;  // the object of the last search in an index
    Index* lastIndex = nullptr;
};

}  // namespace QXJSON
