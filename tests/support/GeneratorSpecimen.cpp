#include <gtest/gtest.h>

#include "BuildItems.h"
#include "GraftScene.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "Specimen.h"

namespace support {
namespace {

using building::Document;
using building::Value;

constexpr uint32_t kRoot = 1, kObject = 2, kArray = 3, kChild = 4, kOld = 6, kElement = 7;
constexpr rapidjson::SizeType kFull = 16;

/// Holds {"object":{"child":{"inner":0},"old":0,...},"array":[{},...],"spare":[0,...],...}, of
/// which those that are named have handles, but for "spare".
class GeneratorSpecimen final : public Specimen {
public:
    GeneratorSpecimen() { Refill(); }

    Subject Object() override { return *generator; }

    Arguments Good(const Operation& operation, bool overwrites) override {
        Arguments arguments;
        if (operation.asks == Asks::kStore)
            arguments.payload = operation.kind == Kind::kVariant
                                    ? building::TextVariant(L"a text").payload
                                    : building::SomeItem(operation.kind).payload;
        const bool toObject = operation.hasKey;
        arguments.handle = operation.asks == Asks::kPath ? kChild : toObject ? kObject : kArray;
        arguments.reference = Reference(toObject ? L"/object" : L"/array");
        arguments.path = operation.asks == Asks::kItem ? L"/object/m2"
                         : toObject                    ? L"/object"
                                                       : L"/array";
        arguments.key = overwrites ? L"old" : L"new";
        if (operation.asks != Asks::kStore) {
            arguments.payload.text = operation.asks == Asks::kSave            ? FileToSave()
                                     : operation.Takes(parameters::kFileName) ? FileToLoad()
                                                                              : L"{\"j\":[1]}";
        }
        return arguments;
    }

    std::wstring Seen() override { return JsonOf(*generator); }

    void ExpectNoNewHandle() override {
        const std::wstring path = L"/spare/" + std::to_wstring(++spares);
        EXPECT_EQ(++issued, HandleAt(*generator, path.c_str()));
    }

    void Refill() override {
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
        EXPECT_EQ(kRoot, HandleAt(*generator, L"/"));
        EXPECT_EQ(1, generator->AddObjectItemObject(kRoot, L"object", &handle));
        EXPECT_EQ(1, generator->AddObjectItemArray(kRoot, L"array", &handle));
        EXPECT_EQ(1, generator->AddObjectItemObject(kObject, L"child", &handle));
        EXPECT_EQ(1, generator->AddObjectItemInt(kChild, L"inner", 0, &handle));
        EXPECT_EQ(1, generator->AddObjectItemInt(kObject, L"old", 0, &handle));
        EXPECT_EQ(1, generator->AddArrayItemObject(kArray, &handle));
        EXPECT_EQ(uint32_t{kElement}, handle);
        issued = kElement;
        spares = 0;
        uint64_t spare = 0;
        EXPECT_EQ(1, generator->AddObjectValueArray(root, L"spare", &spare));
        FillUp(L"/spare");
        FillUp(L"");
        FillUp(L"/object");
        FillUp(L"/array");
    }

    void UseUpReserve() override {
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->AddObjectItemString(kObject, L"old", LongText(), &handle));
        EXPECT_EQ(1, generator->AddObjectItemInt(kObject, L"old", 0, &handle));
    }

    void ExpectUsable() override {
        expected = Document();
        expected.Parse<rapidjson::kParseNanAndInfFlag>(Seen().c_str());
        ExpectHandlesToLead();
        AddByHandle();
        AddByPath();
        AddByReference();
        ExpectSame(building::TextOf(expected), Seen(), "what was added later is not there");
    }

    int Release() override { return generator.release()->Release(); }

private:
    uint64_t Reference(const std::wstring& pointer) {
        return building::ReferenceOf(*building::Resolve(building::At(root), pointer));
    }

    void FillUp(const std::wstring& pointer) {
        const Value& value = building::At(Reference(pointer));
        const uint64_t parent = Reference(pointer);
        uint64_t reference = 0;
        while ((value.IsArray() ? value.Size() : value.MemberCount()) < kFull) {
            if (value.IsArray()) {
                ASSERT_EQ(1, generator->AddArrayValueInt(parent, 0, &reference));
            } else {
                const std::wstring key = L"m" + std::to_wstring(value.MemberCount());
                ASSERT_EQ(1, generator->AddObjectValueInt(parent, key.c_str(), 0, &reference));
            }
        }
    }

    void ExpectHandlesToLead() {
        EXPECT_EQ(L"/object/child", PathOf(*generator, kChild));
        EXPECT_EQ(uint32_t{kChild}, HandleAt(*generator, L"/object/child"));
        EXPECT_EQ(uint32_t{kElement}, HandleAt(*generator, L"/array/1"));
    }

    void ExpectMember(const wchar_t* pointer, const wchar_t* key, int number) {
        Value* const object = building::Resolve(expected, pointer);
        ASSERT_TRUE(object && object->IsObject());
        auto& allocator = expected.GetAllocator();
        object->AddMember(building::NewString(key, allocator), Value(number), allocator);
    }

    void ExpectElement(int number) {
        Value* const array = building::Resolve(expected, L"/array");
        ASSERT_TRUE(array && array->IsArray());
        array->PushBack(number, expected.GetAllocator());
    }

    void AddByHandle() {
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->AddObjectItemInt(kChild, L"after", 1, &handle));
        ExpectMember(L"/object/child", L"after", 1);
        EXPECT_EQ(L"/object/child/after", PathOf(*generator, handle));
        EXPECT_EQ(1, generator->AddObjectItemInt(kElement, L"after", 2, &handle));
        ExpectMember(L"/array/0", L"after", 2);
        EXPECT_EQ(1, generator->AddObjectItemInt(kObject, L"after", 3, &handle));
        ExpectMember(L"/object", L"after", 3);
        EXPECT_EQ(1, generator->AddObjectItemInt(kObject, L"old", 4, &handle));
        EXPECT_EQ(uint32_t{kOld}, handle);
        Value* const old = building::Resolve(expected, L"/object/old");
        if (old) old->SetInt(4);
        EXPECT_EQ(1, generator->AddArrayItemInt(kArray, 5, &handle));
        ExpectElement(5);
    }

    void AddByPath() {
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->AddObjectItemIntByPath(L"/object/child", L"path", 6, &handle));
        ExpectMember(L"/object/child", L"path", 6);
        EXPECT_EQ(1, generator->AddArrayItemIntByPath(L"/array", 7, &handle));
        ExpectElement(7);
    }

    void AddByReference() {
        uint64_t reference = 0;
        EXPECT_EQ(1, generator->AddObjectValueInt(Reference(L"/object"), L"value", 8, &reference));
        ExpectMember(L"/object", L"value", 8);
        EXPECT_EQ(1, generator->AddArrayValueInt(Reference(L"/array"), 9, &reference));
        ExpectElement(9);
        EXPECT_EQ(1, generator->AddObjectValueInt(root, L"value", 10, &reference));
        ExpectMember(L"", L"value", 10);
    }

    Generator generator = NewGenerator();
    uint64_t root = 0;
    uint32_t issued = 0;
    int spares = 0;
    Document expected;
};

}  // namespace

std::unique_ptr<Specimen> NewGeneratorSpecimen() { return std::make_unique<GeneratorSpecimen>(); }

}  // namespace support
