#pragma once

#include <string>

#include "Checksum.h"
#include "Form.h"
#include "Json_Dll.hpp"
#include "peers/RapidJson.h"

namespace bench {

namespace hosting = QXJSON::hosting;

/// The library, loaded from the program's folder when it is first asked for.
inline const hosting::Library& TheLibrary() {
    static const hosting::Library library;
    if (!library) throw std::runtime_error("Json_Dll.dll was not found beside the program");
    return library;
}

inline void Expect(int result, const char* step) {
    if (result != 1)
        throw std::runtime_error(std::string(step) + " answered " + std::to_string(result));
}

// The library, by each of its ways of naming a value. All results are looked at: a host would.

/// Loading.
class DllReader {
public:
    static constexpr const char* kName = "Json_Dll";

    void LoadText(const std::wstring& text) {
        Expect(parser->LoadJsonString(text.c_str()), "LoadJsonString");
    }
    void LoadBytes(const std::string& bytes) {
        Expect(parser->LoadJsonBytes(bytes.data(), static_cast<uint32_t>(bytes.size())),
               "LoadJsonBytes");
    }
    void LoadFile(const std::wstring& file) {
        Expect(parser->LoadJsonFile(file.c_str()), "LoadJsonFile");
    }

protected:
    hosting::Parser parser = TheLibrary().NewParser().Get();
};

/// The walk over a document, the same for handles and references: `Way` only names the operations.
template <class Way, class Place>
class DllWalker : public DllReader {
public:
    uint64_t Walk() {
        Place root = 0;
        uint32_t type = 0;
        Expect(Way::Root(parser.Raw(), &root, &type), "the root");
        return Sum(root, type);
    }

private:
    uint64_t Sum(Place place, uint32_t type) {
        const wchar_t* text = nullptr;
        uint32_t flag = 0;
        double number = 0;
        switch (type) {
            case 0:
                Expect(Way::String(parser.Raw(), place, &text), "a string");
                return StringSum(text);
            case 2:
                Expect(Way::Boolean(parser.Raw(), place, &flag), "a boolean");
                return BooleanSum(flag != 0);
            case 3:
                return kNullSum;
            case 4:
            case 5:
                return Children(place, type == 4);
            default:  // numbers have one item type, but several value types
                Expect(Way::Double(parser.Raw(), place, &number), "a number");
                return NumberSum(number);
        }
    }

    uint64_t Children(Place place, bool named) {
        Place child = 0;
        uint32_t count = 0, type = 0;
        const wchar_t* name = nullptr;
        Expect(Way::Count(parser.Raw(), place, &count), "a count");
        uint64_t sum = ContainerSum(count);
        for (uint32_t i = 0; i < count; ++i) {
            if (named) {
                Expect(Way::Name(parser.Raw(), place, i, &name), "a name");
                sum += NameSum(name);
            }
            Expect(Way::Child(parser.Raw(), place, i, &child, &type), "a child");
            sum += Sum(child, type);
        }
        return sum;
    }
};

using QXJSON::IJsonParser;

/// Operations as objects that can be called at compile time's expense: no call through a pointer.
template <auto operation>
struct Operation {
    template <class... Arguments>
    int operator()(IJsonParser& parser, Arguments... arguments) const {
        return (parser.*operation)(arguments...);
    }
};

struct HandleWay {
    static constexpr Operation<&IJsonParser::GetRootItem> Root{};
    static constexpr Operation<&IJsonParser::GetChildItem> Child{};
    static constexpr Operation<&IJsonParser::GetChildCount> Count{};
    static constexpr Operation<&IJsonParser::GetMemberName> Name{};
    static constexpr Operation<&IJsonParser::GetItemString> String{};
    static constexpr Operation<&IJsonParser::GetItemDouble> Double{};
    static constexpr Operation<&IJsonParser::GetItemBoolean> Boolean{};
};

struct ReferenceWay {
    static constexpr Operation<&IJsonParser::GetRootValue> Root{};
    static constexpr Operation<&IJsonParser::GetChildValue> Child{};
    static constexpr Operation<&IJsonParser::GetChildCountOfValue> Count{};
    static constexpr Operation<&IJsonParser::GetMemberNameOfValue> Name{};
    static constexpr Operation<&IJsonParser::GetValueString> String{};
    static constexpr Operation<&IJsonParser::GetValueDouble> Double{};
    static constexpr Operation<&IJsonParser::GetValueBoolean> Boolean{};
};

class ByHandle : public DllWalker<HandleWay, uint32_t> {
public:
    static constexpr const char* kName = "Json_Dll handle";

    int64_t Find(const std::wstring& key) {
        int32_t number = 0;
        return parser->GetMemberInt(1, key.c_str(), &number) == 1 ? number : kAbsent;
    }

    void LoadText(const std::wstring& text) {
        DllReader::LoadText(text);
        uint32_t root = 0, type = 0;
        Expect(parser->GetRootItem(&root, &type), "GetRootItem");  // it is handle 1
    }
};

/// By handle, through the C++ layer for hosts: what it adds to ByHandle is what it costs.
class ByLayer : public DllReader {
public:
    static constexpr const char* kName = "C++ layer, handle";

    uint64_t Walk() { return Sum(parser.Root().Get()); }

    int64_t Find(const std::wstring& key) { return root.MemberAs<int32_t>(key).Or(kAbsent); }

    void LoadText(const std::wstring& text) {
        DllReader::LoadText(text);
        root = parser.Root().Get();
    }

private:
    static uint64_t Sum(const hosting::Item& item) {
        switch (item.Kind()) {
            case hosting::ValueKind::kString:
                return StringSum(item.As<std::wstring_view>().Get());
            case hosting::ValueKind::kNumber:
                return NumberSum(item.As<double>().Get());
            case hosting::ValueKind::kBoolean:
                return BooleanSum(item.As<bool>().Get());
            case hosting::ValueKind::kNull:
                return kNullSum;
            default:
                return Children(item);
        }
    }

    static uint64_t Children(const hosting::Item& item) {
        uint64_t sum = ContainerSum(item.Count().Get());
        for (const auto& child : item.Children()) {
            if (item.Kind() == hosting::ValueKind::kObject) sum += NameSum(child.name);
            sum += Sum(child.value);
        }
        return sum;
    }

    hosting::Item root;
};

/// By handle, with a handle issued for the member that is found.
class ByItem : public ByHandle {
public:
    static constexpr const char* kName = "Json_Dll item";

    int64_t Find(const std::wstring& key) {
        uint32_t item = 0, type = 0;
        if (parser->GetMemberItem(1, key.c_str(), &item, &type) != 1) return kAbsent;
        int32_t number = 0;
        Expect(parser->GetItemInt(item, &number), "GetItemInt");
        return number;
    }
};

class ByReference : public DllWalker<ReferenceWay, uint64_t> {
public:
    static constexpr const char* kName = "Json_Dll reference";

    int64_t Find(const std::wstring& key) {
        int32_t number = 0;
        return parser->GetMemberIntOfValue(root, key.c_str(), &number) == 1 ? number : kAbsent;
    }

    void LoadText(const std::wstring& text) {
        DllReader::LoadText(text);
        uint32_t type = 0;
        Expect(parser->GetRootValue(&root, &type), "GetRootValue");
    }

private:
    uint64_t root = 0;
};

class ByPath : public DllReader {
public:
    static constexpr const char* kName = "Json_Dll path";

    int64_t Find(const std::wstring& key) {
        path.resize(1);
        path += key;
        int32_t number = 0;
        return parser->GetItemIntByPath(path.c_str(), &number) == 1 ? number : kAbsent;
    }

private:
    std::wstring path = L"/";
};

/// Building and writing.
class DllBuilder {
public:
    static constexpr const char* kName = "Json_Dll";

    void LoadFile(const std::wstring& file) {
        uint32_t root = 0;
        Expect(generator->LoadJsonFile(file.c_str(), &root), "LoadJsonFile");
    }

    static constexpr bool Writes(Form) { return true; }
    Written Write(Form form) {
        if (form == Form::kText) {
            const wchar_t* text = nullptr;
            Expect(generator->GetJsonString(&text), "GetJsonString");
            return {text, kZeroTerminated};
        }
        const uint8_t* data = nullptr;
        uint64_t length = 0;
        Expect(generator->GetJsonBytes(&data, &length, EncodingNumber(form)), "GetJsonBytes");
        return {data, static_cast<size_t>(length)};
    }
    void Save(const std::wstring& file, Form form) {
        Expect(generator->SaveToFile(file.c_str(), EncodingNumber(form)), "SaveToFile");
    }

    /// What the document that was built comes to.
    uint64_t Walk() {
        const Written text = Write(Form::kText);
        RapidJson reader;
        reader.LoadText(static_cast<const wchar_t*>(text.data));
        return reader.Walk();
    }

protected:
    hosting::Generator generator = TheLibrary().NewGenerator().Get();
};

class BuildByHandle : public DllBuilder {
public:
    static constexpr const char* kName = "Json_Dll handle";

    void BeginArray() {
        uint32_t root = 0;
        Expect(generator->CreateRootArray(&root), "CreateRootArray");
    }
    void BeginObject() {
        uint32_t root = 0;
        Expect(generator->CreateRootObject(&root), "CreateRootObject");
    }
    void AddRecord(const std::wstring& name, int32_t count, double price) {
        uint32_t handle = 0, item = 0;
        Expect(generator->AddArrayItemObject(1, &handle), "AddArrayItemObject");
        const auto record = static_cast<int32_t>(handle);
        Expect(generator->AddObjectItemString(record, L"name", name.c_str(), &item), "String");
        Expect(generator->AddObjectItemInt(record, L"count", count, &item), "Int");
        Expect(generator->AddObjectItemDouble(record, L"price", price, &item), "Double");
    }
    void AddMember(const std::wstring& key, int32_t number) {
        uint32_t item = 0;
        Expect(generator->AddObjectItemInt(1, key.c_str(), number, &item), "AddObjectItemInt");
    }
};

class BuildByReference : public DllBuilder {
public:
    static constexpr const char* kName = "Json_Dll reference";

    void BeginArray() { Expect(generator->ResetRootArrayValue(&root), "ResetRootArrayValue"); }
    void BeginObject() { Expect(generator->ResetRootObjectValue(&root), "ResetRootObjectValue"); }
    void AddRecord(const std::wstring& name, int32_t count, double price) {
        uint64_t record = 0, item = 0;
        Expect(generator->AddArrayValueObject(root, &record), "AddArrayValueObject");
        Expect(generator->AddObjectValueString(record, L"name", name.c_str(), &item), "String");
        Expect(generator->AddObjectValueInt(record, L"count", count, &item), "Int");
        Expect(generator->AddObjectValueDouble(record, L"price", price, &item), "Double");
    }
    void AddMember(const std::wstring& key, int32_t number) {
        uint64_t item = 0;
        Expect(generator->AddObjectValueInt(root, key.c_str(), number, &item), "AddObjectValueInt");
    }

private:
    uint64_t root = 0;
};

class BuildByPath : public DllBuilder {
public:
    static constexpr const char* kName = "Json_Dll path";

    void BeginArray() {
        uint32_t root = 0;
        records = 0;
        Expect(generator->CreateRootArray(&root), "CreateRootArray");
    }
    void BeginObject() {
        uint32_t root = 0;
        Expect(generator->CreateRootObject(&root), "CreateRootObject");
    }
    void AddRecord(const std::wstring& name, int32_t count, double price) {
        uint32_t item = 0;
        Expect(generator->AddArrayItemObjectByPath(L"/", &item), "AddArrayItemObjectByPath");
        const wchar_t* const record = PathOf(++records);
        Expect(generator->AddObjectItemStringByPath(record, L"name", name.c_str(), &item),
               "String");
        Expect(generator->AddObjectItemIntByPath(record, L"count", count, &item), "Int");
        Expect(generator->AddObjectItemDoubleByPath(record, L"price", price, &item), "Double");
    }
    void AddMember(const std::wstring& key, int32_t number) {
        uint32_t item = 0;
        Expect(generator->AddObjectItemIntByPath(L"/", key.c_str(), number, &item), "Int");
    }

private:
    /// "/123", written from its end.
    const wchar_t* PathOf(size_t position) {
        wchar_t* at = path + std::size(path) - 1;
        for (; position > 0; position /= 10) *--at = static_cast<wchar_t>(L'0' + position % 10);
        *--at = L'/';
        return at;
    }

    size_t records = 0;
    wchar_t path[24] = {};
};

/// A keyed store.
class DllPackage {
public:
    static constexpr const char* kName = "Json_Dll";

    void LoadText(const std::wstring& text) {
        Expect(package->LoadString(text.c_str()), "LoadString");
    }
    void Clear() { Expect(package->RemoveAll(), "RemoveAll"); }
    void Set(const std::wstring& key, double number) {
        Expect(package->SetValueNumber(key.c_str(), number), "SetValueNumber");
    }
    double Get(const std::wstring& key) {
        double number = 0;
        Expect(package->GetValueNumber(key.c_str(), &number), "GetValueNumber");
        return number;
    }
    bool Contains(const std::wstring& key) {
        bool found = false;
        package->ContainsKey(key.c_str(), &found);
        return found;
    }
    void Remove(const std::wstring& key) { Expect(package->RemoveKey(key.c_str()), "RemoveKey"); }
    size_t Count() {
        uint32_t count = 0;
        Expect(package->GetKeyCount(&count), "GetKeyCount");
        return count;
    }

private:
    hosting::Package package = TheLibrary().NewPackage().Get();
};

}  // namespace bench
