#pragma once

#include <boost/json.hpp>
#include <string>

#include "Checksum.h"
#include "Form.h"
#include "Text.h"
#include "peers/WholeFile.h"

namespace bench {

/// Boost.JSON. Documents that are loaded to be read lie in a monotonic resource, as its manual
/// advises; those that are built or changed lie on the heap.
template <bool onlyRead>
class BoostJsonOver {
public:
    static constexpr const char* kName = "Boost.JSON";
    using Place = boost::json::value*;

    // ---- Loading
    void LoadText(const std::wstring& text) { Parse(convert.Utf8(text)); }
    void LoadBytes(const std::string& bytes) { Parse(bytes); }
    void LoadFile(const std::wstring& file) { LoadBytes(ReadWhole(file)); }

    // ---- Reading
    uint64_t Walk() { return Sum(*document); }

    int64_t Find(const std::wstring& key) {
        const auto* found = document->get_object().if_contains(convert.Utf8(key));
        return found ? found->get_int64() : kAbsent;
    }

    // ---- Building
    Place RootArray() { return &document.emplace(boost::json::array()); }
    Place RootObject() { return &document.emplace(boost::json::object()); }
    Place AddObject(Place parent) { return Append(parent, boost::json::object()); }
    Place AddObject(Place parent, const std::wstring& key) {
        return AddMember(parent, key, boost::json::object());
    }
    Place AddArray(Place parent) { return Append(parent, boost::json::array()); }
    Place AddArray(Place parent, const std::wstring& key) {
        return AddMember(parent, key, boost::json::array());
    }
    void AddInt(Place parent, int32_t number) { Append(parent, number); }
    void AddInt(Place parent, const std::wstring& key, int32_t number) {
        AddMember(parent, key, number);
    }
    void AddDouble(Place parent, const std::wstring& key, double number) {
        AddMember(parent, key, number);
    }
    void AddText(Place parent, const std::wstring& key, const std::wstring& text) {
        AddMember(parent, key, values.Utf8(text));
    }

    // ---- A keyed store
    void Clear() { RootObject(); }
    void Set(const std::wstring& key, double number) {
        document->get_object()[convert.Utf8(key)] = number;
    }
    double Get(const std::wstring& key) {
        return document->get_object().if_contains(convert.Utf8(key))->get_double();
    }
    bool Contains(const std::wstring& key) {
        return document->get_object().contains(convert.Utf8(key));
    }
    void Remove(const std::wstring& key) {
        // Puts the last member in the place of the removed one: the order is not kept.
        document->get_object().erase(convert.Utf8(key));
    }
    size_t Count() const { return document->get_object().size(); }

    // ---- Writing
    static constexpr bool Writes(Form form) {
        return form != Form::kAscii && form != Form::kUtf16Be;
    }
    Written Write(Form form) {
        written = boost::json::serialize(*document);
        if (form == Form::kUtf8) return {written.data(), written.size()};
        const std::wstring_view wide = convert.Wide(written);
        return {wide.data(), wide.size() * sizeof(wchar_t)};
    }

private:
    template <class Item>
    static Place Append(Place parent, Item&& item) {
        return &parent->get_array().emplace_back(std::forward<Item>(item));
    }
    template <class Item>
    Place AddMember(Place parent, const std::wstring& key, Item&& item) {
        auto& object = parent->get_object();
        return &object.emplace(convert.Utf8(key), std::forward<Item>(item)).first->value();
    }

    void Parse(std::string_view utf8) {
        document.reset();
        boost::json::storage_ptr storage;
        if constexpr (onlyRead)
            storage = boost::json::make_shared_resource<boost::json::monotonic_resource>();
        document.emplace(boost::json::parse(utf8, storage));
    }

    uint64_t Sum(const boost::json::value& value) {
        switch (value.kind()) {
            case boost::json::kind::object: {
                const auto& object = value.get_object();
                uint64_t sum = ContainerSum(object.size());
                for (const auto& member : object)
                    sum += NameSum(convert.Wide(member.key())) + Sum(member.value());
                return sum;
            }
            case boost::json::kind::array: {
                const auto& array = value.get_array();
                uint64_t sum = ContainerSum(array.size());
                for (const auto& element : array) sum += Sum(element);
                return sum;
            }
            case boost::json::kind::string:
                return StringSum(convert.Wide(value.get_string()));
            case boost::json::kind::bool_:
                return BooleanSum(value.get_bool());
            case boost::json::kind::null:
                return kNullSum;
            default:
                return NumberSum(value.to_number<double>());
        }
    }

    std::optional<boost::json::value> document;
    Converter convert, values;
    std::string written;
};

using BoostJson = BoostJsonOver<true>;
using BoostStore = BoostJsonOver<false>;

}  // namespace bench
