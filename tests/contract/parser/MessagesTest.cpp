// The sentences for the last load: exactly, whenever and however often they are asked for.

#include <gtest/gtest.h>

#include <set>

#include "JsonDll.h"
#include "LoadForm.h"
#include "Messages.h"

namespace {

using support::NewParser;
using support::Parser;

/// A load for each message code that a load can leave: 16 and 17 take a handler that stops the
/// reader, and comments; 22 belongs to the package.
struct Leaving {
    int code;
    const wchar_t* text;  ///< given to LoadJsonString where `load` is null
    int (*load)(QXJSON::IJsonParser&) = nullptr;
};

int LoadMissingFile(QXJSON::IJsonParser& parser) {
    return parser.LoadJsonFile(L"C:\\no such folder\\no such file.json");
}

int LoadNullFile(QXJSON::IJsonParser& parser) { return parser.LoadJsonFile(nullptr); }

int LoadEmptyFile(QXJSON::IJsonParser& parser) { return support::LoadFile(parser, "").result; }

const Leaving kLeaving[] = {
    {0, L"[1]"},
    {1, nullptr, &LoadEmptyFile},
    {2, L"[] 1"},
    {3, L"[x]"},
    {4, L"{1}"},
    {5, L"{\"a\" 1}"},
    {6, L"{\"a\":1"},
    {7, L"[1"},
    {8, L"[\"\\uxyzw\"]"},
    {9, L"[\"\\uD800\"]"},
    {10, L"[\"\\q\"]"},
    {11, L"[\"a"},
    {12, L"[\"\xDC00\"]"},
    {13, L"[1e309]"},
    {14, L"[1.]"},
    {15, L"[1e]"},
    {18, nullptr},
    {19, nullptr, &LoadNullFile},
    {20, nullptr, &LoadMissingFile},
    {21, L""},
};

TEST(Messages, EachCodeThatALoadCanLeave) {
    const Parser parser = NewParser();
    for (const Leaving& row : kLeaving) {
        SCOPED_TRACE(row.code);
        const int result = row.load ? row.load(*parser) : parser->LoadJsonString(row.text);
        EXPECT_EQ(row.code == 0 ? 1 : 0, result);
        const wchar_t* text = nullptr;
        EXPECT_EQ(1, parser->GetErrorMessage(&text));
        EXPECT_STREQ(model::EnglishMessage(row.code), text);
        EXPECT_EQ(row.code == 0 ? 0 : 1, parser->HasError());
    }
}

TEST(Messages, TextsOutliveTheParserAndAreTheSameForAll) {
    std::set<const wchar_t*> texts;
    for (int i = 0; i < 3; ++i) {
        const Parser parser = NewParser();
        EXPECT_EQ(0, parser->LoadJsonString(L"[1"));
        const wchar_t* text = nullptr;
        EXPECT_EQ(1, parser->GetErrorMessage(&text));
        texts.insert(text);
    }
    ASSERT_EQ(1u, texts.size());
    EXPECT_STREQ(model::EnglishMessage(7), *texts.begin());
}

TEST(Messages, AskingChangesNothing) {
    const Parser parser = NewParser();
    const auto outcome = support::LoadText(*parser, L"[1,x]");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(0, parser->GetErrorMessage(nullptr));
        EXPECT_EQ(0, parser->GetErrorOffset(nullptr));
        EXPECT_EQ(outcome, support::OutcomeOf(*parser, 0));
    }
    EXPECT_EQ(support::Failure(3, 8), outcome);
}

TEST(Messages, ASuccessfulLoadClearsTheError) {
    const Parser parser = NewParser();
    EXPECT_EQ(support::Failure(7, 4), support::LoadText(*parser, L"[1"));
    EXPECT_EQ(support::Success(L"[1]"), support::LoadText(*parser, L"[1]"));
}

}  // namespace
