// Documents of the data folder, where there is one: the environment variable JSON_TEST_DATA names
// it. Its folder "jsonchecker" holds documents that say in their names whether they are good.
// Without the folder, documents of the test's own stand in.

#include <gtest/gtest.h>

#include "JsonDll.h"
#include "LoadForm.h"
#include "ParserReference.h"
#include "TempFile.h"
#include "TestData.h"

namespace {

using support::DocumentsIn;
using support::NewParser;
using support::Parser;
using support::TestDocument;

using Documents = std::vector<TestDocument>;

std::string Repeated(const char* text, int count) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
}

/// Documents named as those of the folder "jsonchecker" are.
Documents OwnChecks() {
    return {
        {L"pass1.json", "{\"lists\":[[],[{}],[[[1.0e-2]]]],\"text\":\"\\u20AC \xE2\x82\xAC\"}"},
        {L"pass2.json", Repeated("[", 19) + "\"deep enough\"" + Repeated("]", 19)},
        {L"pass3.json", "\r\n{ \"outer\" : { \"inner\" : -12.5E+3 , \"\" : null } }\n"},
        {L"fail1_EXCLUDE.json", "\"a string is no payload\""},
        {L"fail2_EXCLUDE.json", Repeated("[", 20) + "\"deeper\"" + Repeated("]", 20)},
        {L"fail3.json", "[\"left open\""},
        {L"fail4.json", "[\"one too many\",]"},
        {L"fail5.json", "[\"closed twice\"]]"},
        {L"fail6.json", "{\"closed\":true} false"},
        {L"fail7.json", "{\"zeros\":007}"},
        {L"fail8.json", "{\"hex\":0xA}"},
        {L"fail9.json", "[\"bad escape \\x41\"]"},
        {L"fail10.json", "[\"line\nbreak\"]"},
        {L"fail11.json", "[\"mixed\"}"},
        {L"fail12.json", "{\"no value\"}"},
        {L"fail13.json", "[1 + 1]"},
    };
}

/// Texts that a parser and a writer give back as they are.
Documents OwnRoundTrips() {
    return {
        {L"literals", "[null,true,false]"},
        {L"numbers", "[0,-1,1.5,-0.25,4294967295,9223372036854775807]"},
        {L"texts", "[\"\",\"a\\nb\",\"\xC3\xA9\",\"\xF0\x9D\x84\x9E\"]"},
        {L"nested", "{\"a\":{\"b\":[{\"c\":{}}]},\"\":[]}"},
    };
}

Documents Either(const Documents& found, const Documents& own) {
    return found.empty() ? own : found;
}

bool Contains(const std::wstring& name, const wchar_t* part) {
    return name.find(part) != std::wstring::npos;
}

support::LoadOutcome ExpectAsReference(const TestDocument& document) {
    const Parser parser = NewParser();
    const support::TempFile file(document.bytes);
    const auto outcome = support::LoadBytes(*parser, document.bytes);
    EXPECT_EQ(model::ReferenceLoadBytes(document.bytes), outcome);
    EXPECT_EQ(model::ReferenceLoadFile(file.Name()),
              support::OutcomeOf(*parser, parser->LoadJsonFile(file.Name())));
    return outcome;
}

TEST(LoadingData, NamesTellWhichDocumentsAreGood) {
    for (const TestDocument& document : Either(DocumentsIn(L"jsonchecker"), OwnChecks())) {
        SCOPED_TRACE(testing::PrintToString(document.name));
        const int result = ExpectAsReference(document).result;
        if (Contains(document.name, L"EXCLUDE")) continue;
        EXPECT_EQ(Contains(document.name, L"pass") ? 1 : 0, result);
    }
}

TEST(LoadingData, DocumentsComeBackAsTheyWere) {
    for (const TestDocument& document : Either(DocumentsIn(L"roundtrip"), OwnRoundTrips())) {
        SCOPED_TRACE(testing::PrintToString(document.name));
        const auto outcome = ExpectAsReference(document);
        EXPECT_EQ(document.bytes, support::Encode(outcome.tree, support::Encoding::kUtf8));
    }
}

TEST(LoadingData, LargeDocuments) {
    for (const TestDocument& document :
         Either(DocumentsIn(L"."), {{L"own", support::LargeDocument()}})) {
        SCOPED_TRACE(testing::PrintToString(document.name));
        EXPECT_EQ(1, ExpectAsReference(document).result);
    }
}

}  // namespace
