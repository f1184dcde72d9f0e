// Outputs that have nothing to write, or are not told how or where to.

#include <gtest/gtest.h>

#include <cstdint>

#include "JsonDll.h"
#include "OutputForm.h"
#include "TempFile.h"

namespace {

using support::AllOutputForms;
using support::FileForms;
using support::Generator;
using support::GeneratorOf;
using support::kAllSelectors;
using support::kUnknownSelectors;
using support::NewGenerator;
using support::OutputForm;
using support::TempFile;
using support::WriteIn;
using support::Written;

constexpr int32_t kUnknownStyles[] = {-1, 2, 3, 0x100, 0x10001, INT32_MIN, INT32_MAX};

const Written kEmptyFile = {1, ""};

/// Saves over a file that holds something and is longer than what could come.
Written SaveOver(const OutputForm& form, QXJSON::IJsonGenerator& generator) {
    const TempFile file(std::string(1000, '#'));
    const int result = support::SaveIn(form, generator, file.Name());
    EXPECT_TRUE(file.IsClosed());
    return {result, file.Bytes()};
}

void ExpectEmptyFile(const OutputForm& form, QXJSON::IJsonGenerator& generator) {
    EXPECT_EQ(kEmptyFile, WriteIn(form, generator)) << form;
    EXPECT_EQ(kEmptyFile, SaveOver(form, generator)) << form;
}

TEST(OutputSelectors, AFileInAnUnknownEncodingIsEmpty) {
    const Generator generator = GeneratorOf(L"{\"a\":[1,\"\xE9\"]}");
    for (const int32_t selector : kUnknownSelectors) {
        ExpectEmptyFile({OutputForm::kFile, selector}, *generator);
        for (const int32_t style : {0, 1, 2})
            ExpectEmptyFile({OutputForm::kIndentedFile, selector, style}, *generator);
    }
}

TEST(OutputSelectors, AFileInAnUnknownStyleIsEmpty) {
    const Generator generator = GeneratorOf(L"{\"a\":[1,\"\xE9\"]}");
    for (const int32_t style : kUnknownStyles)
        for (const int32_t selector : kAllSelectors)
            ExpectEmptyFile({OutputForm::kIndentedFile, selector, style}, *generator);
}

TEST(OutputSelectors, BytesInAnUnknownEncodingAreNone) {
    const Generator generator = GeneratorOf(L"[1]");
    for (const int32_t selector : kUnknownSelectors) {
        const uint8_t some = 0;
        const uint8_t* data = &some;
        uint64_t length = 4711;
        EXPECT_EQ(1, generator->GetJsonBytes(&data, &length, selector)) << selector;
        EXPECT_EQ(nullptr, data) << selector;
        EXPECT_EQ(4711u, length) << selector;
    }
    EXPECT_EQ((Written{1, "[1]"}), WriteIn({OutputForm::kBytes, 2}, *generator));
}

TEST(OutputSelectors, WithoutAVariableForTheOutput) {
    for (const wchar_t* json : {L"{\"a\":1}", L"[]", L""}) {
        const Generator generator = NewGenerator();
        uint32_t root = 0;
        generator->LoadJsonString(json, &root);
        EXPECT_EQ(0, generator->GetJsonString(nullptr));
        for (const int32_t selector : support::kKnownAndUnknownSelectors) {
            const uint8_t some = 0;
            const uint8_t* data = &some;
            uint64_t length = 4711;
            EXPECT_EQ(0, generator->GetJsonBytes(nullptr, &length, selector));
            EXPECT_EQ(0, generator->GetJsonBytes(&data, nullptr, selector));
            EXPECT_EQ(0, generator->GetJsonBytes(nullptr, nullptr, selector));
            EXPECT_EQ(4711u, length);
        }
        EXPECT_EQ(json, support::JsonOf(*generator));
    }
}

void ExpectNothingToWrite(QXJSON::IJsonGenerator& generator) {
    EXPECT_EQ((Written{1, ""}), WriteIn({OutputForm::kText}, generator));
    for (const OutputForm& form : FileForms()) ExpectEmptyFile(form, generator);
    ExpectEmptyFile({OutputForm::kFile, 4}, generator);
    ExpectEmptyFile({OutputForm::kIndentedFile, 2, 2}, generator);
    for (const int32_t selector : support::kKnownAndUnknownSelectors) {
        const uint8_t some = 0;
        const uint8_t* data = &some;
        uint64_t length = 4711;
        EXPECT_EQ(0, generator.GetJsonBytes(&data, &length, selector)) << selector;
        EXPECT_EQ(nullptr, data) << selector;
        EXPECT_EQ(4711u, length) << selector;
    }
}

TEST(OutputSelectors, BeforeThereIsARoot) {
    const Generator generator = NewGenerator();
    ExpectNothingToWrite(*generator);
    uint32_t handle = 0;
    EXPECT_EQ(0, generator->LoadJsonString(L"[1", &handle));
    EXPECT_EQ(-3, generator->LoadJsonString(L"1", &handle));
    EXPECT_EQ(-3, generator->LoadJsonFile(L"no such.json", &handle));
    EXPECT_EQ(-10, generator->AddObjectItemNullByPath(L"/a", L"b", &handle));
    ExpectNothingToWrite(*generator);
}

/// An output that had nothing to write is followed by whole ones.
TEST(OutputSelectors, ARootThatCameLater) {
    const Generator generator = NewGenerator();
    ExpectNothingToWrite(*generator);
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->LoadJsonString(L"{\"a\":[]}", &handle));
    support::ExpectAllForms(model::Parse(L"{\"a\":[]}"), *generator);
    EXPECT_EQ(1, generator->CreateRootArray(&handle));
    support::ExpectAllForms(model::Parse(L"[]"), *generator);
}

}  // namespace
