#include <gtest/gtest.h>

#include "BuildItems.h"
#include "PackageDelegate.h"
#include "PackageState.h"
#include "Specimen.h"

namespace support {
namespace {

using building::Document;
using building::Value;

/// Sixteen keys with the others that Refill sets.
constexpr const wchar_t* kNumbers[] = {L"number", L"a", L"b", L"c", L"d", L"e",
                                       L"f",      L"g", L"h", L"i", L"j"};

const wchar_t* KeyFor(Asks asks) {
    switch (asks) {
        case Asks::kDouble:
            return L"number";
        case Asks::kBoolean:
            return L"flag";
        case Asks::kAnyText:
        case Asks::kGiveToImport:
            return L"object";
        case Asks::kRemove:
            return L"j";
        default:
            return L"text";
    }
}

class PackageSpecimen final : public Specimen {
public:
    PackageSpecimen() {
        EXPECT_EQ(1, package->SetDelegate(&delegate));
        Refill();
    }

    Subject Object() override { return *package; }

    Arguments Good(const Operation& operation, bool overwrites) override {
        const bool stores = operation.asks == Asks::kStore || operation.asks == Asks::kSetExported;
        Arguments arguments;
        arguments.key = stores ? (overwrites ? L"old" : L"new") : KeyFor(operation.asks);
        if (operation.asks == Asks::kStore)
            arguments.payload = building::SomeItem(operation.kind).payload;
        if (operation.kind == Kind::kVariant)
            arguments.payload = building::TextVariant(L"a text").payload;
        if (operation.name == "SetValue") {
            arguments.payload.text = L"[1,{\"x\":2}]";
            arguments.payload.word = 1;
        }
        if (operation.asks != Asks::kStore)
            arguments.payload.text = operation.asks == Asks::kSave            ? FileToSave()
                                     : operation.Takes(parameters::kFileName) ? FileToLoad()
                                                                              : L"{\"loaded\":1}";
        if (operation.asks == Asks::kSetting) arguments.payload.word = 1;
        arguments.object = SomeObject();
        arguments.delegate = &delegate;
        return arguments;
    }

    std::wstring Seen() override {
        std::ostringstream seen;
        seen << PackageStateOf(*package);
        const std::string narrow = seen.str();
        return {narrow.begin(), narrow.end()};
    }

    void ExpectNoNewHandle() override {}

    void Refill() override {
        EXPECT_EQ(1, package->LoadString(L"{}"));
        EXPECT_EQ(1, package->SetValue(L"object", L"{\"inner\":1}", true));
        EXPECT_EQ(1, package->SetValue(L"array", L"[10,20]", true));
        EXPECT_EQ(1, package->SetValueBoolean(L"flag", true));
        EXPECT_EQ(1, package->SetValueString(L"text", L"QUJD"));
        EXPECT_EQ(1, package->SetValueString(L"old", L"o"));
        for (const wchar_t* key : kNumbers) EXPECT_EQ(1, package->SetValueNumber(key, 7));
    }

    void UseUpReserve() override {
        EXPECT_EQ(1, package->SetValueString(L"old", LongText()));
        EXPECT_EQ(1, package->SetValueNumber(L"old", 0));
    }

    void ExpectUsable() override {
        expected = Document();
        expected.Parse(PackageText(*package).c_str());
        Get();
        Set();
        ExpectSame(building::TextOf(expected), PackageText(*package),
                   "what was set later is not there");
        uint32_t count = 0;
        EXPECT_EQ(1, package->GetKeyCount(&count));
        EXPECT_EQ(expected.MemberCount(), count);
    }

    int Release() override { return package.release()->Release(); }

private:
    void Get() {
        const wchar_t* text = L"";
        double number = 0;
        bool flag = false;
        const void* data = nullptr;
        uint32_t size = 0;
        EXPECT_EQ(1, package->GetValue(L"OBJECT", &text));
        EXPECT_STREQ(L"{\"inner\":1}", text);
        EXPECT_EQ(1, package->GetValueNumber(L"number", &number));
        EXPECT_EQ(7, number);
        EXPECT_EQ(1, package->GetValueBoolean(L"flag", &flag));
        EXPECT_TRUE(flag);
        EXPECT_EQ(1, package->GetValueBlob(L"text", &data, &size));
        EXPECT_EQ("ABC", std::string(static_cast<const char*>(data), size));
        EXPECT_EQ(-1, package->GetValueString(L"missing", &text));
    }

    void Set() {
        auto& allocator = expected.GetAllocator();
        EXPECT_EQ(1, package->SetValueNumber(L"after", 1));
        expected.AddMember(L"after", Value(1), allocator);
        EXPECT_EQ(1, package->SetValueString(L"string", L"s"));
        expected.AddMember(L"string", Value(L"s"), allocator);
        EXPECT_EQ(1, package->SetValueBoolean(L"Old", false));
        const auto old = expected.FindMember(L"old");
        ASSERT_NE(expected.MemberEnd(), old);
        old->value.SetBool(false);
        EXPECT_EQ(1, package->SetValue(L"json", L"[]", true));
        expected.AddMember(L"json", Value(rapidjson::kArrayType), allocator);
        EXPECT_EQ(1, package->RemoveKey(L"a"));
        expected.EraseMember(expected.FindMember(L"a"));
    }

    RecordingDelegate delegate{L"[1]"};
    Package package = NewPackage();
    Document expected;
};

}  // namespace

std::unique_ptr<Specimen> NewPackageSpecimen() { return std::make_unique<PackageSpecimen>(); }

}  // namespace support
