#pragma once

#include <stdint.h>

#include <string_view>
#include <unordered_map>
#include <vector>

#include "JsonTypes.h"
#include "KeyText.h"

namespace QXJSON {

/// The search for members by key in the objects of one document. The first match in document order
/// wins, however it is found: small objects are scanned; a large one that is searched again and
/// again gets an index.
///
/// Indexes are known by the memory that holds an object's members. A document's pool never gives
/// memory back, so that an address stands for one object for as long as the document lives; members
/// are added with a word to Moved where that moves them, and taken away by Remove.
class MemberLookup {
public:
    /// The first member whose name matches the key, or null.
    JsonMember* Find(JsonValue& object, std::wstring_view key, KeyMatch match);

    /// The members of an object that grew are elsewhere now.
    void Moved(const JsonMember* from, const JsonMember* to);
    /// Takes a member away; those behind it move up and keep their order.
    void Remove(JsonValue& object, JsonMember& member);
    /// The document ended.
    void Clear();

private:
    /// The members of one object by the hash of their names, in a hash table with open addressing
    /// and linear probing. Members were entered in document order, so that of several with one hash
    /// the first comes first.
    ///
    /// A member is known by its number: its position when it was entered. Where members in front of
    /// it are taken away its position is less by so many; after some removals all are numbered
    /// anew.
    struct Index {
        struct Slot {
            uint32_t hash;
            uint32_t member;      // its number plus 1; 0 is free
            const wchar_t* text;  // of its name, so that both can be fetched at once; null where
                                  // that lies inside the member and moves with it
        };

        bool Exists() const { return !slots.empty(); }
        void CatchUp(const JsonValue& object);
        template <class Accept>
        Slot* Find(uint32_t hash, Accept&& accept);
        uint32_t PositionOf(const Slot& slot) const;
        void Remove(uint32_t hash, uint32_t position);
        void Renumber();
        void Grow(size_t size);
        void Enter(const Slot& entry);

        std::vector<Slot> slots;        // none until the object was scanned often enough
        std::vector<uint32_t> removed;  // the numbers taken away, in ascending order
        uint32_t entered = 0;           // the next number
        uint32_t used = 0;     // slots that are not free, those of removed members included
        uint64_t scanned = 0;  // how many members were looked at without an index
    };

    Index& IndexOf(const JsonMember* members);

    std::unordered_map<const JsonMember*, Index> indexes;
    const JsonMember* lastMembers = nullptr;  // the object of the last search in an index
    Index* lastIndex = nullptr;
};

}  // namespace QXJSON
