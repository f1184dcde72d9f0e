// Building documents, by handle and by reference, and handing them back.

#include <limits>

#include "Host.h"
#include "TempFile.h"

namespace hosts {
namespace {

using support::TempFile;

// ---- Values ------------------------------------------------------------------------------------

constexpr uint8_t kBlob[] = {0, 1, 2, 255};
constexpr const wchar_t* kText = L"\u00C6r\u00F8";

/// Every type of value, under a key and as an element; all of them by the one `Add` or `Append`.
template <class Builder>
void AddEveryType(const Builder& object) {
    const std::wstring string = kText;
    object.Add(L"flag", true).Get();
    object.Add(L"int", -5).Get();
    object.Add(L"uint", 3000000000u).Get();
    object.Add(L"int64", int64_t{-9007199254740993}).Get();
    object.Add(L"uint64", UINT64_MAX).Get();
    object.Add(L"real", 0.1).Get();
    object.Add(L"small", 0.5f).Get();
    object.Add(L"whole", 3.0).Get();
    object.Add(L"nothing", nullptr).Get();
    object.Add(L"pointer", kText).Get();
    object.Add(L"string", string).Get();
    object.Add(L"view", std::wstring_view(string).substr(1)).Get();
    object.Add(L"literal", L"x").Get();
    object.Add(L"bytes", Bytes{kBlob, sizeof kBlob}).Get();
    object.AddObject(L"object").Get().Add(L"deep", 1).Get();
    object.AddArray(L"array").Get().Append(1).Get();
}

constexpr const wchar_t* kEveryMember =
    L"{\"flag\":true,\"int\":-5,\"uint\":3000000000,\"int64\":-9007199254740993,"
    L"\"uint64\":18446744073709551615,\"real\":0.1,\"small\":0.5,\"whole\":3,\"nothing\":null,"
    L"\"pointer\":\"\u00C6r\u00F8\",\"string\":\"\u00C6r\u00F8\",\"view\":\"r\u00F8\","
    L"\"literal\":\"x\",\"bytes\":\"AAEC/w==\",\"object\":{\"deep\":1},\"array\":[1]}";

template <class Builder>
void AppendEveryType(const Builder& array) {
    const std::wstring string = kText;
    array.Append(false).Get();
    array.Append(-5).Get();
    array.Append(3000000000u).Get();
    array.Append(int64_t{-9007199254740993}).Get();
    array.Append(UINT64_MAX).Get();
    array.Append(0.1).Get();
    array.Append(0.5f).Get();
    array.Append(nullptr).Get();
    array.Append(kText).Get();
    array.Append(string).Get();
    array.Append(std::wstring_view(string).substr(1)).Get();
    array.Append(Bytes{kBlob, sizeof kBlob}).Get();
    array.AppendObject().Get().Add(L"deep", 1).Get();
    array.AppendArray().Get().Append(1).Get();
}

constexpr const wchar_t* kEveryElement =
    L"[false,-5,3000000000,-9007199254740993,18446744073709551615,0.1,0.5,null,"
    L"\"\u00C6r\u00F8\",\"\u00C6r\u00F8\",\"r\u00F8\",\"AAEC/w==\",{\"deep\":1},[1]]";

TEST(HostBuilding, EveryTypeByHandle) {
    const Generator generator = NewGenerator();
    AddEveryType(generator.NewObject().Get());
    EXPECT_EQ(kEveryMember, generator.Text().Get());
    AppendEveryType(generator.NewArray().Get());
    EXPECT_EQ(kEveryElement, generator.Text().Get());
}

TEST(HostBuilding, EveryTypeByReference) {
    const Generator generator = NewGenerator();
    AddEveryType(generator.NewObjectValue().Get());
    EXPECT_EQ(kEveryMember, generator.Text().Get());
    AppendEveryType(generator.NewArrayValue().Get());
    EXPECT_EQ(kEveryElement, generator.Text().Get());
}

/// The least and the greatest value of an integer type, by all ways into a document.
template <class T>
void ExpectBounds(const wchar_t* json) {
    SCOPED_TRACE(testing::PrintToString(json));
    const T least = (std::numeric_limits<T>::min)(), greatest = (std::numeric_limits<T>::max)();
    const Generator generator = NewGenerator();
    const Container array = generator.NewArray().Get();
    array.Append(least).Get();
    array.Append(greatest).Get();
    EXPECT_EQ(L"[" + std::wstring(json) + L"]", generator.Text().Get());

    const ValueContainer object = generator.NewObjectValue().Get();
    object.Add(L"least", least).Get();
    object.Add(L"greatest", greatest).Get();
    const Parser parser = Loaded(generator.Text().Get());
    EXPECT_EQ(least, parser.As<T>(L"/least").Get());
    EXPECT_EQ(greatest, parser.RootValue().Get().MemberAs<T>(L"greatest").Get());
    EXPECT_EQ(greatest, parser.At(L"/greatest").Get().As<T>().Get());
}

TEST(HostBuilding, IntegersByAnyNameOfTheirType) {
    ExpectBounds<signed char>(L"-128,127");
    ExpectBounds<unsigned char>(L"0,255");
    ExpectBounds<short>(L"-32768,32767");
    ExpectBounds<unsigned short>(L"0,65535");
    ExpectBounds<int>(L"-2147483648,2147483647");
    ExpectBounds<unsigned>(L"0,4294967295");
    ExpectBounds<long>(L"-2147483648,2147483647");
    ExpectBounds<unsigned long>(L"0,4294967295");
    ExpectBounds<DWORD>(L"0,4294967295");
    ExpectBounds<long long>(L"-9223372036854775808,9223372036854775807");
    ExpectBounds<unsigned long long>(L"0,18446744073709551615");
    ExpectBounds<size_t>(L"0,18446744073709551615");
}

TEST(HostBuilding, WhatComesBackNamesTheValue) {
    const Generator generator = NewGenerator();
    const Container root = generator.NewObject().Get();
    const uint32_t number = root.Add(L"number", 1).Get();
    EXPECT_EQ(number, root.Add(L"number", 2).Get());
    EXPECT_EQ(L"{\"number\":2}", generator.Text().Get());
    EXPECT_EQ(number, generator.At(L"/number").Get().Raw());
    EXPECT_EQ(L"/number", generator.PathOf(number).Get());

    const ValueContainer value = generator.NewObjectValue().Get();
    const ValueContainer list = value.AddArray(L"list").Get();
    EXPECT_EQ(1, list.Append(L"text").Code());
    EXPECT_NE(0u, list.Raw());
}

TEST(HostBuilding, Paths) {
    const Generator generator = NewGenerator();
    const Container root = generator.NewObject().Get();
    const Container list = root.AddArray(L"list").Get();
    const uint32_t second = (list.Append(1).Get(), list.Append(2).Get());
    EXPECT_EQ(L"/", generator.PathOf(root.Raw()).Get());
    EXPECT_EQ(L"/list", generator.PathOf(list.Raw()).Get());
    EXPECT_EQ(L"/list/2", generator.PathOf(second).Get());
    EXPECT_EQ(list.Raw(), generator.At(L"/list").Get().Raw());
    EXPECT_EQ(-10, generator.At(L"/nothing").Code());
    EXPECT_EQ(-2, generator.PathOf(99).Code());
    EXPECT_EQ(L"", *generator.PathOf(99));
}

TEST(HostBuilding, Failures) {
    const Generator generator = NewGenerator();
    const Container object = generator.NewObject().Get();
    const Container array = object.AddArray(L"array").Get();
    const wchar_t* const none = nullptr;
    EXPECT_EQ(-3, array.Add(L"key", 1).Code());
    EXPECT_EQ(-3, object.Append(1).Code());
    EXPECT_EQ(-4, object.Add(L"text", none).Code());
    EXPECT_EQ(-5, object.Add(none, 1).Code());
    EXPECT_EQ(0, object.Add(L"blob", Bytes{kBlob, size_t{UINT32_MAX} + 1}).Code());
    EXPECT_EQ(-2, Container(generator.Raw(), 77).Add(L"key", 1).Code());
    EXPECT_EQ(-3, object.AppendObject().Code());
    EXPECT_THROW((void)array.AddObject(L"key").Get(), Error);
    EXPECT_EQ(L"{\"array\":[]}", generator.Text().Get());

    const ValueContainer value = generator.NewArrayValue().Get();
    EXPECT_EQ(-3, value.Add(L"key", 1).Code());
    EXPECT_EQ(-4, value.Append(none).Code());
    const ValueContainer inner = value.AppendObject().Get();
    EXPECT_EQ(-1, inner.Add(none, 1).Code());
    EXPECT_EQ(-2, ValueContainer(generator.Raw(), 0).Append(1).Code());
    EXPECT_EQ(L"[{}]", generator.Text().Get());
}

TEST(HostBuilding, Grafts) {
    const TempFile file("[1,2]");
    const Generator generator = NewGenerator();
    const Container root = generator.NewObject().Get();
    root.AddJson(L"text", L"{\"a\":0}").Get().Add(L"b", 1).Get();
    root.AddJsonFile(L"file", file.Name()).Get().Append(3).Get();
    const Container list = root.AddArray(L"list").Get();
    list.AppendJson(L"[]").Get().Append(4).Get();
    list.AppendJsonFile(file.Name()).Get();
    EXPECT_EQ(LR"({"text":{"a":0,"b":1},"file":[1,2,3],"list":[[4],[1,2]]})",
              generator.Text().Get());
    EXPECT_EQ(0, root.AddJson(L"bad", L"{").Code());
    EXPECT_EQ(-3, root.AddJson(L"bad", L"1").Code());
    EXPECT_EQ(-3, list.AppendJsonFile(L"no such file.json").Code());
    EXPECT_EQ(0, list.AddJson(L"key", L"{}").Code());
}

TEST(HostBuilding, ADocumentThatWasLoadedGrows) {
    const Generator generator = NewGenerator();
    generator.Load(L"{\"list\":[1]}").Get();
    generator.At(L"/list").Get().Append(2).Get();
    EXPECT_EQ(L"{\"list\":[1,2]}", generator.Text().Get());
}

// ---- Output ------------------------------------------------------------------------------------

using namespace std::string_literals;

struct Form {
    Encoding encoding;
    std::string mark;
    std::string bytes;  ///< of ["e acute"]
};

const Form kForms[] = {
    {Encoding::kAscii, "", "[\"\\u00E9\"]"},
    {Encoding::kUtf16Le, "\xFF\xFE", "[\0\"\0\xE9\0\"\0]\0"s},
    {Encoding::kUtf8, "\xEF\xBB\xBF", "[\"\xC3\xA9\"]"},
    {Encoding::kUtf16Be, "\xFE\xFF", "\0[\0\"\0\xE9\0\"\0]"s},
};

TEST(HostBuilding, EncodedAndSaved) {
    const Generator generator = NewGenerator();
    generator.NewArray().Get().Append(L"\u00E9").Get();
    for (const Form& form : kForms) {
        SCOPED_TRACE(static_cast<int>(form.encoding));
        EXPECT_EQ(form.bytes, Text(generator.Encoded(form.encoding).Get()));
        const TempFile file;
        EXPECT_TRUE(generator.Save(file.Name(), form.encoding));
        EXPECT_EQ(form.mark + form.bytes, file.Bytes());
    }
}

TEST(HostBuilding, SavedIndented) {
    const Generator generator = NewGenerator();
    generator.Load(L"{\"a\":[1]}").Get();
    const TempFile file;
    EXPECT_TRUE(generator.SaveIndented(file.Name(), Encoding::kAscii));
    EXPECT_EQ("{\n    \"a\": [\n        1\n    ]\n}", file.Bytes());
}

TEST(HostBuilding, OutputsThatFail) {
    const Generator generator = NewGenerator();
    EXPECT_EQ(L"", generator.Text().Get());
    EXPECT_EQ(0, generator.Encoded(Encoding::kUtf8).Code());
    EXPECT_EQ(0, generator.Save(L"", Encoding::kUtf8).Code());
    EXPECT_EQ(0, generator.Save(nullptr, Encoding::kUtf8).Code());
    EXPECT_EQ(0, generator.SaveIndented(L"no such folder\\x.json", Encoding::kUtf8).Code());
}

}  // namespace
}  // namespace hosts
