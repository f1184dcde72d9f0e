#pragma once

#include <map>
#include <optional>
#include <string>
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

    support::Answer Ask(const support::Operation& operation, const support::Arguments& arguments);

    /// Whether looking for the path is a fault, as an operation without a guard lets it out.
    bool Faults(const wchar_t* path);

    Value& Root() { return document; }
    uint32_t LastHandle() const { return static_cast<uint32_t>(handleToValue.size()); }
    uint64_t ReferenceOf(const Value& value) const { return references.at(&value); }

private:
    /// A value, or the result that its absence has.
    struct Found {
        Value* value;
        int absence;
    };

    void Pair(Value& mine, Value& theirs);
    Found Place(const support::Operation& operation, const support::Arguments& arguments);
    Found Path(const wchar_t* path);
    Found Target(const support::Operation& operation, const support::Arguments& arguments,
                 Found place);
    Found Member(const support::Operation& operation, const wchar_t* key, Value& parent);
    static Found Child(Value& parent, uint32_t index);
    std::optional<Outputs> OutputsFor(const support::Operation& operation, Value& value);
    uint32_t HandleOf(const Value& value);

    Document document;
    std::map<const Value*, uint64_t> references;
    std::map<uint64_t, Value*> values;
    std::vector<const Value*> handleToValue;
};

}  // namespace model
