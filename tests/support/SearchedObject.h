#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "common/search/MemberLookup.h"

namespace support {

inline wchar_t LowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

inline bool EqualNames(std::wstring_view a, std::wstring_view b, QXJSON::KeyMatch match) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        const bool equal =
            match == QXJSON::KeyMatch::kExact ? a[i] == b[i] : LowerAscii(a[i]) == LowerAscii(b[i]);
        if (!equal) return false;
    }
    return true;
}

/// The member that a search has to find, by a scan of all.
inline const QXJSON::JsonMember* ScanMembers(const QXJSON::JsonValue& object, std::wstring_view key,
                                             QXJSON::KeyMatch match) {
    const QXJSON::JsonMember* const members = object.MemberBegin().operator->();
    for (rapidjson::SizeType i = 0; i < object.MemberCount(); ++i) {
        const QXJSON::JsonValue& name = members[i].name;
        if (EqualNames({name.GetString(), name.GetStringLength()}, key, match)) return &members[i];
    }
    return nullptr;
}

/// Whether a search finds what a scan does, in both ways to compare.
inline testing::AssertionResult FindsAsScan(QXJSON::MemberLookup& lookup, QXJSON::JsonValue& object,
                                            const std::wstring& key) {
    for (const auto match : {QXJSON::KeyMatch::kIgnoreCase, QXJSON::KeyMatch::kExact})
        if (lookup.Find(object, key, match) != ScanMembers(object, key, match))
            return testing::AssertionFailure()
                   << testing::PrintToString(key) << " among " << object.MemberCount() << ", "
                   << (match == QXJSON::KeyMatch::kExact ? "exactly" : "in any case");
    return testing::AssertionSuccess();
}

/// An object that changes, and the search that is notified of it.
class SearchedObject {
public:
    explicit SearchedObject(const QXJSON::HashKeys& keys = QXJSON::HashKeysFrom(1))
        : lookup(pool, keys) {
        object.SetObject();
    }

    void Add(std::wstring_view key) {
        const QXJSON::JsonMember* const before = Members();
        QXJSON::JsonAllocator& allocator = pool.Allocator();
        QXJSON::JsonValue name(key.data(), static_cast<rapidjson::SizeType>(key.size()), allocator);
        object.AddMember(name, QXJSON::JsonValue(static_cast<int>(Count())), allocator);
        if (Members() != before) lookup.Moved(before, Members());
    }
    void Remove(size_t position) {
        lookup.Remove(object, object.MemberBegin()[static_cast<std::ptrdiff_t>(position)]);
    }
    void RemoveAll() {
        object.RemoveAllMembers();
        lookup.Clear();
    }

    const QXJSON::JsonMember* Find(std::wstring_view key, QXJSON::KeyMatch match) {
        return lookup.Find(object, key, match);
    }
    testing::AssertionResult Finds(const std::wstring& key) {
        const bool hit = ScanMembers(object, key, QXJSON::KeyMatch::kIgnoreCase) != nullptr;
        ++(hit ? hits : misses);
        return FindsAsScan(lookup, object, key);
    }
    /// Of the keys that Finds was asked for, those that there were in any case, and the others.
    int Hits() const { return hits; }
    int Misses() const { return misses; }

    size_t Count() const { return object.MemberCount(); }
    const QXJSON::JsonMember* Members() const { return object.MemberBegin().operator->(); }
    std::wstring NameAt(size_t position) const {
        const QXJSON::JsonValue& name = Members()[position].name;
        return {name.GetString(), name.GetStringLength()};
    }
    QXJSON::JsonValue& Value() { return object; }
    QXJSON::MemberLookup& Lookup() { return lookup; }
    uint64_t Work() const { return lookup.Work(); }
    size_t Bytes() const { return lookup.Bytes(); }

private:
    QXJSON::DocumentPool pool;
    QXJSON::JsonValue object;
    QXJSON::MemberLookup lookup;
    int hits = 0;
    int misses = 0;
};

}  // namespace support
