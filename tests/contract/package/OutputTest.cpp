// The whole package as text and as bytes in every encoding, compared byte by byte.

#include <gtest/gtest.h>

#include "PackageReference.h"
#include "PackageState.h"
#include "Selectors.h"

namespace {

using support::kAllSelectors;
using support::kUnknownSelectors;
using support::LoadedPackage;
using support::NewPackage;
using support::Package;
using support::PackageText;

std::string BytesOf(QXJSON::IJsonPackage& package, int encoding) {
    const void* data = nullptr;
    size_t length = 0;
    EXPECT_EQ(1, package.GetBytes(&data, &length, encoding));
    EXPECT_NE(nullptr, data);
    return data == nullptr ? "" : std::string(static_cast<const char*>(data), length);
}

struct Row {
    const wchar_t* loaded;
    const wchar_t* text;
    const char* ascii;
};

const Row kRows[] = {
    {L"{}", L"{}", "{}"},
    {L"{ \"b\" : 1 , \"a\" : [ ] , \"c\" : { } }", L"{\"b\":1,\"a\":[],\"c\":{}}",
     "{\"b\":1,\"a\":[],\"c\":{}}"},
    {L"{\"t\":true,\"f\":false,\"n\":null}", L"{\"t\":true,\"f\":false,\"n\":null}",
     "{\"t\":true,\"f\":false,\"n\":null}"},
    {L"{\"n\":[0,-1,1.50,3.0,-0.0,1e3,1e300,18446744073709551615]}",
     L"{\"n\":[0,-1,1.5,3.0,-0.0,1000.0,1e300,18446744073709551615]}",
     "{\"n\":[0,-1,1.5,3.0,-0.0,1000.0,1e300,18446744073709551615]}"},
    {L"{\"s\":\"\\\"\\\\\\/\\b\\t\\n\\f\\r\"}", L"{\"s\":\"\\\"\\\\/\\b\\t\\n\\f\\r\"}",
     "{\"s\":\"\\\"\\\\/\\b\\t\\n\\f\\r\"}"},
    {L"{\"s\":\"\\u0000\\u0001\\u000b\\u001f\x7F\"}",
     L"{\"s\":\"\\u0000\\u0001\\u000B\\u001F\x7F\"}",
     "{\"s\":\"\\u0000\\u0001\\u000B\\u001F\x7F\"}"},
    {L"{\"s\":\"\x80\xE9\xFF\"}", L"{\"s\":\"\x80\xE9\xFF\"}", "{\"s\":\"\\u0080\\u00E9\\u00FF\"}"},
    {L"{\"\xE9\":\"\x20AC\x4E2D\xFFFD\xFEFF\"}", L"{\"\xE9\":\"\x20AC\x4E2D\xFFFD\xFEFF\"}",
     "{\"\\u00E9\":\"\\u20AC\\u4E2D\\uFFFD\\uFEFF\"}"},
    {L"{\"s\":[\"\xD834\xDD1E\",\"\xDBFF\xDFFF\",\"\xD800\xDC00\"]}",
     L"{\"s\":[\"\xD834\xDD1E\",\"\xDBFF\xDFFF\",\"\xD800\xDC00\"]}",
     "{\"s\":[\"\\uD834\\uDD1E\",\"\\uDBFF\\uDFFF\",\"\\uD800\\uDC00\"]}"},
    {L"{\"\xD834\xDD1E\":{\"\\u0001\":1}}", L"{\"\xD834\xDD1E\":{\"\\u0001\":1}}",
     "{\"\\uD834\\uDD1E\":{\"\\u0001\":1}}"},
    {L"{\"k\":1,\"k\":2,\"\":{\"\":[{}]}}", L"{\"k\":1,\"k\":2,\"\":{\"\":[{}]}}",
     "{\"k\":1,\"k\":2,\"\":{\"\":[{}]}}"},
};

TEST(PackageOutput, InEveryEncoding) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::PrintToString(row.loaded));
        const Package package = LoadedPackage(row.loaded);
        EXPECT_EQ(row.text, PackageText(*package));
        EXPECT_EQ(row.ascii, BytesOf(*package, 0));
        EXPECT_EQ(support::Encode(row.text, support::Encoding::kUtf16Le), BytesOf(*package, 1));
        EXPECT_EQ(support::Encode(row.text, support::Encoding::kUtf8), BytesOf(*package, 2));
        EXPECT_EQ(support::Encode(row.text, support::Encoding::kUtf16Be), BytesOf(*package, 3));
    }
}

TEST(PackageOutput, EAcuteByteByByte) {
    const Package package = NewPackage();
    EXPECT_EQ(1, package->SetValueString(L"k", L"\xE9"));
    EXPECT_EQ("{\"k\":\"\\u00E9\"}", BytesOf(*package, 0));
    EXPECT_EQ(std::string("{\0\"\0k\0\"\0:\0\"\0\xE9\0\"\0}\0", 18), BytesOf(*package, 1));
    EXPECT_EQ("{\"k\":\"\xC3\xA9\"}", BytesOf(*package, 2));
    EXPECT_EQ(std::string("\0{\0\"\0k\0\"\0:\0\"\0\xE9\0\"\0}", 18), BytesOf(*package, 3));
}

TEST(PackageOutput, TwoUnitsByteByByte) {
    const Package package = NewPackage();
    EXPECT_EQ(1, package->SetValueString(L"", L"\xD834\xDD1E"));
    EXPECT_EQ("{\"\":\"\\uD834\\uDD1E\"}", BytesOf(*package, 0));
    EXPECT_EQ(std::string("{\0\"\0\"\0:\0\"\0\x34\xD8\x1E\xDD\"\0}\0", 18), BytesOf(*package, 1));
    EXPECT_EQ("{\"\":\"\xF0\x9D\x84\x9E\"}", BytesOf(*package, 2));
    EXPECT_EQ(std::string("\0{\0\"\0\"\0:\0\"\xD8\x34\xDD\x1E\0\"\0}", 18), BytesOf(*package, 3));
}

/// Every unit but the halves of pairs, in one text.
TEST(PackageOutput, EveryCharacterOfOneUnit) {
    std::wstring all;
    for (unsigned unit = 1; unit < 0x10000; ++unit)
        if (unit < 0xD800 || unit > 0xDFFF) all += static_cast<wchar_t>(unit);
    const Package package = NewPackage();
    EXPECT_EQ(1, package->SetValueString(L"k", all.c_str()));
    const std::wstring text = PackageText(*package);
    for (const int32_t encoding : kAllSelectors)
        EXPECT_TRUE(model::ReferencePackageBytes(text, encoding) == BytesOf(*package, encoding));
    EXPECT_EQ(std::string::npos, BytesOf(*package, 0).find_first_of('\xC3'));
    const Package again = NewPackage();
    EXPECT_EQ(1, again->LoadString(text.c_str()));
    const wchar_t* value = nullptr;
    EXPECT_EQ(1, again->GetValueString(L"k", &value));
    EXPECT_TRUE(all == value);
}

/// Half a pair is text like any other in UTF-16; no other form can carry it, and the output ends.
TEST(PackageOutput, HalfAPairEndsTheBytes) {
    for (const wchar_t* half : {L"\xD800", L"a\xDC00z", L"\xDC00\xD800", L"\xD834 \xDD1E"}) {
        SCOPED_TRACE(testing::PrintToString(half));
        const Package package = LoadedPackage(L"{\"a\":1}");
        EXPECT_EQ(1, package->SetValueString(L"b", half));
        EXPECT_EQ(1, package->SetValueNumber(L"c", 2));
        const std::wstring text = std::wstring(L"{\"a\":1,\"b\":\"") + half + L"\",\"c\":2}";
        EXPECT_EQ(text, PackageText(*package));
        for (const int32_t encoding : kAllSelectors)
            EXPECT_EQ(model::ReferencePackageBytes(text, encoding), BytesOf(*package, encoding))
                << encoding;
        EXPECT_EQ(1, package->RemoveKey(L"b"));
        EXPECT_EQ("{\"a\":1,\"c\":2}", BytesOf(*package, 2));
    }
}

TEST(PackageOutput, UnknownEncodingsAnswerOneAndGiveNothing) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    for (const int32_t encoding : kUnknownSelectors) {
        SCOPED_TRACE(encoding);
        const void* data = &data;
        size_t length = 4711;
        EXPECT_EQ(1, package->GetBytes(&data, &length, encoding));
        EXPECT_EQ(nullptr, data);
        EXPECT_EQ(4711u, length);
    }
}

TEST(PackageOutput, MissingOutputsAnswerZero) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    const void* data = nullptr;
    size_t length = 4711;
    EXPECT_EQ(0, package->GetText(nullptr));
    for (const int32_t encoding : kAllSelectors) {
        EXPECT_EQ(0, package->GetBytes(nullptr, &length, encoding));
        EXPECT_EQ(0, package->GetBytes(&data, nullptr, encoding));
        EXPECT_EQ(0, package->GetBytes(nullptr, nullptr, encoding));
    }
    EXPECT_EQ(4711u, length);
    EXPECT_EQ(L"{\"a\":1}", PackageText(*package));
}

TEST(PackageOutput, FollowsEveryChange) {
    const Package package = NewPackage();
    const auto expect = [&](const std::wstring& text) {
        EXPECT_EQ(text, PackageText(*package));
        EXPECT_EQ(support::Encode(text, support::Encoding::kUtf8), BytesOf(*package, 2));
        EXPECT_EQ(support::Encode(text, support::Encoding::kUtf16Be), BytesOf(*package, 3));
    };
    expect(L"{}");
    EXPECT_EQ(1, package->SetValueString(L"a", L"a long text to begin with"));
    expect(L"{\"a\":\"a long text to begin with\"}");
    EXPECT_EQ(1, package->SetValueNumber(L"a", 1));
    expect(L"{\"a\":1}");
    EXPECT_EQ(1, package->SetValue(L"b", L"[1,{}]", true));
    expect(L"{\"a\":1,\"b\":[1,{}]}");
    EXPECT_EQ(1, package->RemoveKey(L"a"));
    expect(L"{\"b\":[1,{}]}");
    EXPECT_EQ(1, package->RemoveAll());
    expect(L"{}");
    EXPECT_EQ(1, package->LoadString(L"{\"c\":null}"));
    expect(L"{\"c\":null}");
}

TEST(PackageOutput, GrowsAsNeeded) {
    const Package package = NewPackage();
    for (size_t size = 1; size <= 4'000'000; size = size * 3 + 1) {
        const std::wstring value(size, L'\xE9');
        ASSERT_EQ(1, package->SetValueString(L"k", value.c_str()));
        const std::wstring text = L"{\"k\":\"" + value + L"\"}";
        EXPECT_TRUE(text == PackageText(*package)) << size;
        for (const int32_t encoding : kAllSelectors)
            EXPECT_TRUE(model::ReferencePackageBytes(text, encoding) == BytesOf(*package, encoding))
                << size << ", encoding " << encoding;
    }
}

}  // namespace
