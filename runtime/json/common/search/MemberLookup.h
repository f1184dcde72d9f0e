#pragma once

#include <stdint.h>

#include <memory>
#include <string_view>
#include <vector>

#include "MemberIndex.h"
#include "common/platform/Compiler.h"

namespace QXJSON {

/// The search for members by key in the objects of one document. The first match in document order
/// wins, however it is found: small objects are scanned; a large one that is searched again and
/// again gets an index. The work on an index stays within a multiple of the scans that it stands
/// for: an object whose names make it dearer is scanned for good.
///
/// Indexes are known by the memory that holds an object's members. A document's pool never gives
/// memory back, so that an address in it stands for one object for as long as the document lives.
/// Whoever adds a member calls Moved if that moved the others; members are taken away by Remove.
/// Objects outside the pool, to which a host may have a reference, are scanned.
class MemberLookup {
public:
    explicit MemberLookup(const DocumentPool& documentPool,
                          const HashKeys& hashKeys = ProcessHashKeys())
        : pool(documentPool), keys(hashKeys) {}

    /// The first member whose name matches the key, or null. Throws std::bad_alloc.
    JsonMember* Find(JsonValue& object, std::wstring_view key, KeyMatch match);

    /// The members of an object that grew are elsewhere now.
    void Moved(const JsonMember* from, const JsonMember* to);
    /// Takes a member away; those after it move up and keep their order. Throws std::bad_alloc,
    /// and nothing is taken away.
    void Remove(JsonValue& object, JsonMember& member);
    /// The document ended.
    void Clear();

    /// What searching large objects has cost: members and slots looked at.
    uint64_t Work() const;
    /// What is held for searching.
    size_t Bytes() const;

private:
    /// An object that is too large to be scanned every time.
    struct Searched {
        const JsonMember* members;
        uint64_t scans = 0;  // how many members scans looked at, or would have
        bool scannedForGood = false;
        std::unique_ptr<MemberIndex> index{};  // none until it was scanned often enough
    };
    struct Slot {
        uint32_t hash;
        uint32_t number;  // in `objects`
    };

    Searched* SearchedAt(const JsonMember* members) {
        return last && last->members == members ? last : Remembered(members);
    }
    Searched* Remembered(const JsonMember* members);
    Slot* SlotOf(const JsonMember* members);
    uint32_t HashOfAddress(const JsonMember* members) const;
    MemberIndex* IndexFor(const JsonValue& object, Searched& searched);
    // Apart, so that what a scan of few members takes does not grow by it.
    JSON_NEVER_INLINE JsonMember* FindAmongMany(JsonValue& object, std::wstring_view key,
                                                KeyMatch match);

    const DocumentPool& pool;
    HashKeys keys;
    std::vector<std::unique_ptr<Searched>> objects;
    HashTable<Slot> table;     // of `objects`, by their memory
    Searched* last = nullptr;  // that of the last search: one is often searched several times
    uint64_t looked = 0;       // at members of large objects, and in indexes that were given up
};

}  // namespace QXJSON
