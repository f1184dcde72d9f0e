#pragma once

#include <string>

#include "Checksum.h"
#include "Form.h"
#include "peers/JsonDll.h"

namespace bench {

// The library's parser, by each of its ways of naming a value.

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

}  // namespace bench
