// NaN and the infinities: the compact outputs write them; an indented file ends before the first
// one and keeps only the whole blocks written until then.

#include <gtest/gtest.h>

#include <algorithm>

#include "OutputForm.h"
#include "OutputReference.h"
#include "TempFile.h"

namespace {

using support::ExpectAllForms;
using support::Generator;
using support::GeneratorOf;
using support::OutputForm;
using support::WriteIn;
using support::Written;

constexpr const wchar_t* kNumbers[] = {L"NaN", L"Infinity", L"-Infinity"};

TEST(OutputNan, ASmallIndentedFileIsEmpty) {
    for (const wchar_t* number : kNumbers) {
        for (const std::wstring& json : {L"[" + std::wstring(number) + L"]",
                                         L"{\"a\":1,\"b\":" + std::wstring(number) + L"}"}) {
            SCOPED_TRACE(testing::PrintToString(json));
            const Generator generator = GeneratorOf(json);
            for (const int32_t selector : support::kAllSelectors)
                for (const int32_t style : {0, 1})
                    EXPECT_EQ((Written{1, ""}),
                              WriteIn({OutputForm::kIndentedFile, selector, style}, *generator));
            EXPECT_EQ(json, support::JsonOf(*generator));
            ExpectAllForms(model::Parse(json), *generator);
        }
    }
}

/// Whether so many characters in front bring the number near the end of a block in any encoding.
bool IsNearABlock(size_t characters) {
    constexpr size_t kAround = 14;  // what stands around them
    constexpr size_t kNear = 4;
    return (characters + kAround + kNear) % 130 <= 2 * kNear;
}

TEST(OutputNan, TheWholeBlocksBeforeItStay) {
    size_t longest = 0;
    for (size_t characters = 90; characters < 540; ++characters) {
        if (!IsNearABlock(characters)) continue;
        const std::wstring json = L"[\"" + std::wstring(characters, L'x') + L"\",NaN,\"rest\"]";
        const Generator generator = GeneratorOf(json);
        const model::Document document = model::Parse(json);
        for (const int32_t selector : support::kAllSelectors) {
            const OutputForm form = {OutputForm::kIndentedFile, selector, 0};
            const Written expected = support::ReferenceIn(form, document);
            EXPECT_EQ(0u, expected.bytes->size() % 260);
            EXPECT_EQ(expected, WriteIn(form, *generator)) << form << ", " << characters;
            longest = std::max(longest, expected.bytes->size());
        }
    }
    EXPECT_EQ(4u * 260, longest);
}

TEST(OutputNan, InNestedAndLongDocuments) {
    std::wstring front;
    for (int i = 0; i < 500; ++i) front += L"{\"k\":[1.5,\"\xE9\",{}]},";
    for (const wchar_t* number : kNumbers) {
        const std::wstring rest = number + (L"," + front) + L"0]";
        for (const std::wstring& json :
             {L"[" + front + rest, L"[" + front + L"[[{\"deep\":[" + number + L"]}]]]"}) {
            const Generator generator = GeneratorOf(json);
            ExpectAllForms(model::Parse(json), *generator);
        }
    }
}

TEST(OutputNan, AFileThatEndsEarlyReplacesWhatWasThere) {
    const Generator generator = GeneratorOf(L"[NaN]");
    const support::TempFile file(std::string(5000, '#'));
    EXPECT_EQ(1, generator->SaveToFileEx(file.Name(), 2, 0));
    EXPECT_TRUE(file.IsClosed());
    EXPECT_EQ("", file.Bytes());
}

TEST(OutputNan, WholeFilesFollow) {
    const Generator generator = GeneratorOf(L"[NaN]");
    for (const OutputForm& form : support::FileForms()) {
        uint32_t root = 0;
        ASSERT_EQ(1, generator->LoadJsonString(L"[[NaN]]", &root));
        WriteIn(form, *generator);
        ASSERT_EQ(1, generator->LoadJsonString(L"[[1]]", &root));
        ExpectAllForms(model::Parse(L"[[1]]"), *generator);
    }
}

}  // namespace
