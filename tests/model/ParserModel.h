#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Readings.h"

namespace model {

/// What a parser must return, written out plainly: RapidJSON's own document of the same text, with
/// members looked for one by one.
class ParserModel {
public:
    /// `parser` must have loaded `json`. References are learnt from it: its values are met side by
    /// side with those of the model.
    ParserModel(const std::wstring& json, QXJSON::IJsonParser& parser);

    /// The answer; -5 also where an operation without a guard lets the fault out.
    support::Answer Ask(const support::Operation& operation, const support::Arguments& arguments);

    Value& Root() { return document; }
    uint32_t LastHandle() const { return static_cast<uint32_t>(handleToValue.size()); }
    uint64_t ReferenceOf(const Value& value) const;

private:
    /// A value, or the result that its absence has.
    struct Found {
        Value* value;
        int absence;
    };

    void Pair(Value& mine, Value& theirs);
    Value* ValueOf(uint64_t reference) const;
    Found Find(const support::Operation& operation, const support::Arguments& arguments);
    Found Path(const wchar_t* path);
    Found Target(const support::Operation& operation, const support::Arguments& arguments,
                 Found place);
    Found Member(const support::Operation& operation, const wchar_t* key, Value& parent);
    static Found Child(Value& parent, uint32_t index);
    std::optional<Outputs> OutputsFor(const support::Operation& operation, Value& value);
    uint32_t HandleOf(const Value& value);

    Document document;
    std::vector<std::pair<Value*, uint64_t>> references;  ///< each value's
    std::vector<const Value*> handleToValue;
};

}  // namespace model
