#pragma once

#include <string>
#include <vector>

#include "PackageGetters.h"
#include "PackageState.h"
#include "Readings.h"

namespace model {

/// What a package must do, written out plainly: names and values in a row, looked through one by
/// one. Null arguments are the caller's affair.
class PackageModel {
public:
    PackageModel() : state{L"{}", 0, 0, 0, 1} {}

    /// A load of a source that was read by the package's rules; returns the expected outcome.
    support::PackageOutcome Load(const Document& read);
    void SetIgnoreCase(uint32_t flag) { state.ignoreCase = flag; }

    void Set(const std::wstring& key, Value&& value);
    void SetText(const std::wstring& key, const std::wstring& text);
    /// A number without a fraction that 64 bits hold becomes an integer, and so does 2^63.
    void SetNumber(const std::wstring& key, double number);
    /// Whether the text is the JSON of an object or array; the result of the operation.
    int SetJson(const std::wstring& key, const std::wstring& json);
    int Remove(const std::wstring& key);
    void RemoveAll() { members.clear(); }

    support::Answer Get(const support::Operation& getter, const std::wstring& key);
    /// What the delegate's import would get; nothing where there is no text.
    std::optional<std::wstring> TextOf(const std::wstring& key, int& failure);

    size_t Count() const { return members.size(); }
    const std::wstring& Name(size_t index) const { return members[index].name; }
    building::Allocator& Allocator() { return pool.GetAllocator(); }
    /// All that the package shows of itself. Numbers that are not finite end the text.
    support::PackageState State();

private:
    struct Member {
        std::wstring name;
        Value value;
    };

    std::vector<Member>::iterator Find(const std::wstring& key);
    std::wstring Text();

    Document pool;  ///< owns the values' texts and containers
    std::vector<Member> members;
    support::PackageState state;
};

}  // namespace model
