// The layout of compact and of indented output, for documents of every shape.

#include <gtest/gtest.h>

#include "OutputForm.h"
#include "OutputReference.h"

namespace {

using support::ExpectAllForms;
using support::Generator;
using support::GeneratorOf;
using support::OutputForm;
using support::WriteIn;
using support::Written;

struct Layout {
    const wchar_t* json;
    const char* compact;
    const char* indented;
};

const Layout kLayouts[] = {
    {L" { } ", "{}", "{}"},
    {L"[ ]", "[]", "[]"},
    {L"[[],{}]", "[[],{}]", "[\n    [],\n    {}\n]"},
    {L"{ \"a\" : 1 }", "{\"a\":1}", "{\n    \"a\": 1\n}"},
    {L"[1, 2]", "[1,2]", "[\n    1,\n    2\n]"},
    {L"{\"a\":{\"b\":{}}}", "{\"a\":{\"b\":{}}}", "{\n    \"a\": {\n        \"b\": {}\n    }\n}"},
    {L"{\"a\":1,\"b\":[],\"c\":[1,{\"d\":null}],\"e\":true}",
     "{\"a\":1,\"b\":[],\"c\":[1,{\"d\":null}],\"e\":true}",
     "{\n    \"a\": 1,\n    \"b\": [],\n    \"c\": [\n        1,\n        {\n"
     "            \"d\": null\n        }\n    ],\n    \"e\": true\n}"},
    {L"{\"z\":1,\"a\":2,\"z\":3}", "{\"z\":1,\"a\":2,\"z\":3}",
     "{\n    \"z\": 1,\n    \"a\": 2,\n    \"z\": 3\n}"},
    {L"{\"\":\"\"}", "{\"\":\"\"}", "{\n    \"\": \"\"\n}"},
};

TEST(OutputLayout, CompactAndIndented) {
    for (const Layout& layout : kLayouts) {
        SCOPED_TRACE(testing::PrintToString(layout.json));
        const Generator generator = GeneratorOf(layout.json);
        EXPECT_EQ((Written{1, layout.compact}), WriteIn({OutputForm::kBytes, 2}, *generator));
        EXPECT_EQ((Written{1, layout.compact}), WriteIn({OutputForm::kFile, 0}, *generator));
        for (const int32_t style : {0, 1})
            EXPECT_EQ((Written{1, layout.indented}),
                      WriteIn({OutputForm::kIndentedFile, 0, style}, *generator));
        ExpectAllForms(model::Parse(layout.json), *generator);
    }
}

/// Members stand in the order in which they came, and under their own names as often as they came.
TEST(OutputLayout, MembersInTheOrderOfTheirComing) {
    const Generator generator = support::NewGenerator();
    uint64_t root = 0;
    uint64_t value = 0;
    ASSERT_EQ(1, generator->ResetRootObjectValue(&root));
    for (const wchar_t* key : {L"b", L"a", L"b", L"C", L"c"})
        ASSERT_EQ(1, generator->AddObjectValueNull(root, key, &value));
    const std::wstring text = L"{\"b\":null,\"a\":null,\"b\":null,\"C\":null,\"c\":null}";
    EXPECT_EQ(text, support::JsonOf(*generator));
    ExpectAllForms(model::Parse(text), *generator);
}

std::wstring Repeated(const std::wstring& part, int count) {
    std::wstring all;
    while (count-- > 0) all += part;
    return all;
}

TEST(OutputLayout, DeepDocuments) {
    for (const auto& [open, close] : {std::pair(L"[", L"]"), std::pair(L"{\"k\":", L"}")}) {
        const std::wstring json = Repeated(open, 500) + L"[]" + Repeated(close, 500);
        ExpectAllForms(model::Parse(json), *GeneratorOf(json));
    }
}

TEST(OutputLayout, WideDocuments) {
    std::wstring members = L"{\"k\":0";
    for (int i = 0; i < 20000; ++i) members += L",\"k" + std::to_wstring(i) + L"\":[]";
    for (const std::wstring& json : {members + L"}", L"[0" + Repeated(L",0", 50000) + L"]"})
        ExpectAllForms(model::Parse(json), *GeneratorOf(json));
}

TEST(OutputLayout, LongTextsAndKeys) {
    const std::wstring text = Repeated(L"long \x4E2D\xD834\xDD1E", 20000);
    const std::wstring json = L"{\"" + text + L"\":[\"" + text + L"\"]}";
    ExpectAllForms(model::Parse(json), *GeneratorOf(json));
}

}  // namespace
