#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "peers/All.h"

namespace bench {

// What takes numbers in by name, and finds them again.

/// The measure: the hash map of the C++ library.
class HashMap {
public:
    static constexpr const char* kName = "std::unordered_map";

    void Add(const std::wstring& name, int32_t number) { map.emplace(name, number); }
    int64_t Find(const std::wstring& name) const {
        const auto found = map.find(name);
        return found == map.end() ? kAbsent : found->second;
    }

private:
    std::unordered_map<std::wstring, int32_t> map;
};

/// A package that does not ignore case.
class ExactPackage : public DllPackage {
public:
    static constexpr const char* kName = "Json_Dll package";

    ExactPackage() { Expect(package->SetIgnoreCase(0), "SetIgnoreCase"); }
    void Add(const std::wstring& name, int32_t number) { Set(name, number); }
    int64_t Find(const std::wstring& name) {
        return Contains(name) ? static_cast<int64_t>(Get(name)) : kAbsent;
    }
};

/// A generator to whose root members are added by handle.
class GrowingObject : public BuildByHandle {
public:
    static constexpr const char* kName = "Json_Dll generator";

    GrowingObject() : root(RootObject()) {}
    void Add(const std::wstring& name, int32_t number) { AddInt(root, name, number); }
    /// In the document as it is written.
    int64_t Find(const std::wstring& name) {
        if (!written) {
            written.emplace();
            written->LoadText(static_cast<const wchar_t*>(Write(Form::kText).data));
        }
        return written->Find(name);
    }

private:
    Place root;
    std::optional<RapidJson> written;
};

}  // namespace bench
