// Documents of the data folder, where there is one: the environment variable JSON_TEST_DATA names
// it. Documents of the test's own are always there.

#include <gtest/gtest.h>

#include "Encode.h"
#include "JsonDll.h"
#include "LoadOutcome.h"
#include "OutputForm.h"
#include "OutputReference.h"
#include "TempFile.h"
#include "TestData.h"

namespace {

using support::DocumentsIn;
using support::Generator;
using support::GeneratorOf;
using support::JsonOf;
using support::LargeDocument;
using support::NewGenerator;
using support::OutputForm;
using support::TempFile;
using support::TestDocument;
using support::Written;

/// Texts that must come back as they are.
const TestDocument kRoundTrips[] = {
    {L"literals", "[null,true,false]"},
    {L"empty containers", "[[],{},[[]],{\"a\":{}}]"},
    {L"integers", "[0,-1,2147483647,-2147483648,4294967295,18446744073709551615]"},
    {L"wide integers", "[-9223372036854775808,9223372036854775807]"},
    {L"doubles", "[0.0,-0.0,1.5,-0.25,3.141592653589793,1e300,5e-324]"},
    {L"texts", "[\"\",\"a\\nb\\t\\\"\\\\/\",\"\xC3\xA9\",\"\xF0\x9D\x84\x9E\",\"\\u0000\\u001F\"]"},
    {L"nested", "{\"a\":{\"b\":[{\"c\":{}}]},\"\":[],\"a\":1}"},
};

TEST(GeneratorLoadData, TextsComeBackUnchanged) {
    std::vector<TestDocument> documents = DocumentsIn(L"roundtrip");
    documents.insert(documents.end(), std::begin(kRoundTrips), std::end(kRoundTrips));
    for (const TestDocument& document : documents) {
        SCOPED_TRACE(testing::PrintToString(document.name));
        const model::Document reference = [&] {
            rapidjson::GenericDocument<rapidjson::UTF16<>> parsed;
            parsed.Parse<rapidjson::kParseDefaultFlags, rapidjson::UTF8<>>(document.bytes.c_str());
            return parsed;
        }();
        const Generator generator = GeneratorOf(model::ReferenceText(reference));
        EXPECT_EQ(document.bytes, support::Encode(JsonOf(*generator), support::Encoding::kUtf8));

        const TempFile file(document.bytes);
        uint32_t root = 0;
        EXPECT_EQ(1, generator->LoadJsonFile(file.Name(), &root));
        EXPECT_EQ((Written{1, document.bytes}),
                  support::WriteIn({OutputForm::kBytes, 2}, *generator));
    }
}

/// Reads a file with the parser: what became of it as compact text.
std::wstring ReadBack(const wchar_t* fileName) {
    const support::Parser parser = support::NewParser();
    EXPECT_EQ(1, parser->LoadJsonFile(fileName));
    return support::TreeOf(*parser);
}

void ExpectToComeBack(const std::string& bytes) {
    const TempFile source(bytes);
    const Generator generator = NewGenerator();
    uint32_t root = 0;
    ASSERT_EQ(1, generator->LoadJsonFile(source.Name(), &root));
    const std::wstring text = JsonOf(*generator);
    EXPECT_TRUE(ReadBack(source.Name()) == text) << "loaded differently from the parser";

    // Reading a double is not exact to the last bit, so that a second reading may differ.
    const std::wstring expected = model::ReferenceText(model::Parse(text));
    for (const OutputForm& form : support::FileForms()) {
        if (form.style == 1) continue;
        const TempFile copy;
        ASSERT_EQ(1, support::SaveIn(form, *generator, copy.Name()));
        EXPECT_TRUE(copy.IsClosed());
        EXPECT_TRUE(ReadBack(copy.Name()) == expected) << form;
    }
    for (const int32_t selector : support::kAllSelectors) {
        const uint8_t* data = nullptr;
        uint64_t length = 0;
        ASSERT_EQ(1, generator->GetJsonBytes(&data, &length, selector));
        const support::Parser parser = support::NewParser();
        EXPECT_EQ(1, parser->LoadJsonBytes(reinterpret_cast<const char*>(data),
                                           static_cast<uint32_t>(length)));
        EXPECT_TRUE(support::TreeOf(*parser) == expected) << "bytes in encoding " << selector;
    }
}

TEST(GeneratorLoadData, LargeDocumentsComeBackInEveryEncoding) {
    std::vector<TestDocument> documents = DocumentsIn(L".");
    documents.push_back({L"own", LargeDocument()});
    for (const TestDocument& document : documents) {
        SCOPED_TRACE(testing::PrintToString(document.name));
        ExpectToComeBack(document.bytes);
    }
}

/// What is grafted comes in as what is loaded.
TEST(GeneratorLoadData, LargeDocumentsAreGrafted) {
    std::vector<TestDocument> documents = DocumentsIn(L".");
    documents.push_back({L"own", LargeDocument()});
    for (const TestDocument& document : documents) {
        SCOPED_TRACE(testing::PrintToString(document.name));
        const TempFile source(document.bytes);
        const Generator generator = NewGenerator();
        uint32_t handle = 0;
        ASSERT_EQ(1, generator->LoadJsonFile(source.Name(), &handle));
        const std::wstring text = JsonOf(*generator);
        ASSERT_EQ(1, generator->CreateRootArray(&handle));
        EXPECT_EQ(1, generator->AddArrayItemJsonFile(1, source.Name(), &handle));
        EXPECT_EQ(1, generator->AddArrayItemJsonStringByPath(L"/", text.c_str(), &handle));
        const std::wstring second = model::ReferenceText(model::Parse(text));
        EXPECT_TRUE(L"[" + text + L"," + second + L"]" == JsonOf(*generator));
    }
}

}  // namespace
