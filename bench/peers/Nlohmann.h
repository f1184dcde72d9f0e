#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "Checksum.h"
#include "Form.h"
#include "Text.h"
#include "peers/WholeFile.h"

namespace bench {

/// nlohmann-json as it comes: objects are std::map, so that members are sorted by name.
class Nlohmann {
    using Value = nlohmann::json;

public:
    static constexpr const char* kName = "nlohmann";
    using Place = Value*;

    // ---- Loading
    void LoadText(const std::wstring& text) { Parse(convert.Utf8(text)); }
    void LoadBytes(const std::string& bytes) { Parse(bytes); }
    void LoadFile(const std::wstring& file) { LoadBytes(ReadWhole(file)); }

    // ---- Reading
    uint64_t Walk() { return Sum(document); }

    int64_t Find(const std::wstring& key) {
        const auto found = document.find(convert.Utf8(key));
        return found == document.end() ? kAbsent : found->get<int64_t>();
    }

    // ---- Building
    Place RootArray() { return &(document = Value::array()); }
    Place RootObject() { return &(document = Value::object()); }
    Place AddObject(Place parent) { return &parent->emplace_back(Value::object()); }
    Place AddObject(Place parent, const std::wstring& key) {
        return AddMember(parent, key, Value::object());
    }
    Place AddArray(Place parent) { return &parent->emplace_back(Value::array()); }
    Place AddArray(Place parent, const std::wstring& key) {
        return AddMember(parent, key, Value::array());
    }
    void AddInt(Place parent, int32_t number) { parent->emplace_back(number); }
    void AddInt(Place parent, const std::wstring& key, int32_t number) {
        AddMember(parent, key, number);
    }
    void AddDouble(Place parent, const std::wstring& key, double number) {
        AddMember(parent, key, number);
    }
    void AddText(Place parent, const std::wstring& key, const std::wstring& text) {
        AddMember(parent, key, Value(std::string(values.Utf8(text))));
    }

    // ---- A keyed store
    void Clear() { RootObject(); }
    void Set(const std::wstring& key, double number) { document[convert.Utf8(key)] = number; }
    double Get(const std::wstring& key) { return document.find(convert.Utf8(key))->get<double>(); }
    bool Contains(const std::wstring& key) { return document.contains(convert.Utf8(key)); }
    void Remove(const std::wstring& key) { document.erase(convert.Utf8(key)); }
    size_t Count() const { return document.size(); }

    // ---- Writing
    static constexpr bool Writes(Form form) { return form != Form::kUtf16Be; }
    Written Write(Form form) {
        written = document.dump(-1, ' ', /*ensure_ascii=*/form == Form::kAscii);
        if (form == Form::kAscii || form == Form::kUtf8) return {written.data(), written.size()};
        const std::wstring_view wide = convert.Wide(written);
        return {wide.data(), wide.size() * sizeof(wchar_t)};
    }

    /// As UTF-8, four spaces for each level.
    Written WriteIndented() {
        written = document.dump(4);
        return {written.data(), written.size()};
    }

private:
    template <class Item>
    Place AddMember(Place parent, const std::wstring& key, Item&& item) {
        return &*parent->emplace(convert.Utf8(key), std::forward<Item>(item)).first;
    }

    void Parse(std::string_view utf8) { document = Value::parse(utf8.begin(), utf8.end()); }

    uint64_t Sum(const Value& value) {
        switch (value.type()) {
            case Value::value_t::object: {
                uint64_t sum = ContainerSum(value.size());
                for (auto member = value.begin(); member != value.end(); ++member)
                    sum += NameSum(convert.Wide(member.key())) + Sum(member.value());
                return sum;
            }
            case Value::value_t::array: {
                uint64_t sum = ContainerSum(value.size());
                for (const Value& element : value) sum += Sum(element);
                return sum;
            }
            case Value::value_t::string:
                return StringSum(convert.Wide(value.get_ref<const std::string&>()));
            case Value::value_t::boolean:
                return BooleanSum(value.get<bool>());
            case Value::value_t::null:
                return kNullSum;
            default:
                return NumberSum(value.get<double>());
        }
    }

    Value document;
    Converter convert, values;
    std::string written;
};

}  // namespace bench
