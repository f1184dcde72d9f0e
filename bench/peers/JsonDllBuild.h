#pragma once

#include <string>

#include "Form.h"
#include "peers/JsonDll.h"
#include "peers/RapidJson.h"

namespace bench {

/// A document of the library's generator, and how it is written.
class DllBuilder {
public:
    static constexpr const char* kName = "Json_Dll";

    void LoadText(const std::wstring& text) {
        uint32_t root = 0;
        Expect(generator->LoadJsonString(text.c_str(), &root), "LoadJsonString");
    }
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

    void SaveIndented(const std::wstring& file, Form form) {
        Expect(generator->SaveToFileEx(file.c_str(), EncodingNumber(form), 0), "SaveToFileEx");
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

using QXJSON::IJsonGenerator;

// What BuildBy takes from each way of naming the parent of an item: the operations, and what
// stands for a container.

struct HandleAdds {
    static constexpr const char* kName = "Json_Dll handle";
    using Output = uint32_t;
    using Place = uint32_t;

    static constexpr auto kRootObject = &IJsonGenerator::CreateRootObject;
    static constexpr auto kRootArray = &IJsonGenerator::CreateRootArray;
    static constexpr auto kMemberObject = &IJsonGenerator::AddObjectItemObject;
    static constexpr auto kElementObject = &IJsonGenerator::AddArrayItemObject;
    static constexpr auto kMemberArray = &IJsonGenerator::AddObjectItemArray;
    static constexpr auto kElementArray = &IJsonGenerator::AddArrayItemArray;
    static constexpr auto kMemberInt = &IJsonGenerator::AddObjectItemInt;
    static constexpr auto kElementInt = &IJsonGenerator::AddArrayItemInt;
    static constexpr auto kMemberDouble = &IJsonGenerator::AddObjectItemDouble;
    static constexpr auto kMemberText = &IJsonGenerator::AddObjectItemString;

    static int32_t Argument(Place place) { return static_cast<int32_t>(place); }
    static Place Root(Output handle) { return handle; }
    static Place Member(Place, const std::wstring&, Output handle) { return handle; }
    static Place Element(Place, Output handle) { return handle; }
};

struct ReferenceAdds {
    static constexpr const char* kName = "Json_Dll reference";
    using Output = uint64_t;
    using Place = uint64_t;

    static constexpr auto kRootObject = &IJsonGenerator::ResetRootObjectValue;
    static constexpr auto kRootArray = &IJsonGenerator::ResetRootArrayValue;
    static constexpr auto kMemberObject = &IJsonGenerator::AddObjectValueObject;
    static constexpr auto kElementObject = &IJsonGenerator::AddArrayValueObject;
    static constexpr auto kMemberArray = &IJsonGenerator::AddObjectValueArray;
    static constexpr auto kElementArray = &IJsonGenerator::AddArrayValueArray;
    static constexpr auto kMemberInt = &IJsonGenerator::AddObjectValueInt;
    static constexpr auto kElementInt = &IJsonGenerator::AddArrayValueInt;
    static constexpr auto kMemberDouble = &IJsonGenerator::AddObjectValueDouble;
    static constexpr auto kMemberText = &IJsonGenerator::AddObjectValueString;

    static uint64_t Argument(Place place) { return place; }
    static Place Root(Output value) { return value; }
    static Place Member(Place, const std::wstring&, Output value) { return value; }
    static Place Element(Place, Output value) { return value; }
};

struct PathAdds {
    static constexpr const char* kName = "Json_Dll path";
    using Output = uint32_t;
    /// Who names an element by its path counts the elements.
    struct Place {
        std::wstring path;
        size_t containers = 0;

        Place Below(const std::wstring& segment) const {
            return {path.size() == 1 ? path + segment : path + L'/' + segment};
        }
    };

    static constexpr auto kRootObject = &IJsonGenerator::CreateRootObject;
    static constexpr auto kRootArray = &IJsonGenerator::CreateRootArray;
    static constexpr auto kMemberObject = &IJsonGenerator::AddObjectItemObjectByPath;
    static constexpr auto kElementObject = &IJsonGenerator::AddArrayItemObjectByPath;
    static constexpr auto kMemberArray = &IJsonGenerator::AddObjectItemArrayByPath;
    static constexpr auto kElementArray = &IJsonGenerator::AddArrayItemArrayByPath;
    static constexpr auto kMemberInt = &IJsonGenerator::AddObjectItemIntByPath;
    static constexpr auto kElementInt = &IJsonGenerator::AddArrayItemIntByPath;
    static constexpr auto kMemberDouble = &IJsonGenerator::AddObjectItemDoubleByPath;
    static constexpr auto kMemberText = &IJsonGenerator::AddObjectItemStringByPath;

    static const wchar_t* Argument(const Place& place) { return place.path.c_str(); }
    static Place Root(Output) { return {L"/"}; }
    static Place Member(const Place& parent, const std::wstring& key, Output) {
        return parent.Below(key);
    }
    /// The arrays here hold containers alone, so that a count of these gives the position.
    static Place Element(Place& parent, Output) {
        return parent.Below(std::to_wstring(++parent.containers));
    }
};

/// Building item by item, by one of the ways.
template <class Way>
class BuildBy : public DllBuilder {
public:
    static constexpr const char* kName = Way::kName;
    using Place = typename Way::Place;

    Place RootObject() { return Root<Way::kRootObject>(); }
    Place RootArray() { return Root<Way::kRootArray>(); }
    Place AddObject(Place& parent) {
        return Way::Element(parent, Add<Way::kElementObject>(parent));
    }
    Place AddObject(Place& parent, const std::wstring& key) {
        return Way::Member(parent, key, Add<Way::kMemberObject>(parent, key.c_str()));
    }
    Place AddArray(Place& parent) { return Way::Element(parent, Add<Way::kElementArray>(parent)); }
    Place AddArray(Place& parent, const std::wstring& key) {
        return Way::Member(parent, key, Add<Way::kMemberArray>(parent, key.c_str()));
    }
    void AddInt(const Place& parent, int32_t number) { Add<Way::kElementInt>(parent, number); }
    void AddInt(const Place& parent, const std::wstring& key, int32_t number) {
        Add<Way::kMemberInt>(parent, key.c_str(), number);
    }
    void AddDouble(const Place& parent, const std::wstring& key, double number) {
        Add<Way::kMemberDouble>(parent, key.c_str(), number);
    }
    void AddText(const Place& parent, const std::wstring& key, const std::wstring& text) {
        Add<Way::kMemberText>(parent, key.c_str(), text.c_str());
    }

private:
    template <auto operation>
    Place Root() {
        typename Way::Output output = 0;
        Expect((generator.Raw().*operation)(&output), "a root");
        return Way::Root(output);
    }
    template <auto operation, class... Arguments>
    typename Way::Output Add(const Place& parent, Arguments... arguments) {
        typename Way::Output output = 0;
        Expect((generator.Raw().*operation)(Way::Argument(parent), arguments..., &output),
               "an add");
        return output;
    }
};

using BuildByHandle = BuildBy<HandleAdds>;
using BuildByReference = BuildBy<ReferenceAdds>;
using BuildByPath = BuildBy<PathAdds>;

}  // namespace bench
