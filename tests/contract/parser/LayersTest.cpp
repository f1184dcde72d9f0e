// The life of a parser: before the first load, from load to load, next to other parsers, and after
// a failure that the guard had to end.

#include <gtest/gtest.h>

#include <string>

#include "JsonDll.h"
#include "LoadForm.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonParser;
using support::LoadOutcome;
using support::NewParser;
using support::Parser;
using support::Success;

constexpr uint32_t kUntouched = 4711;

/// The address of nothing: reading or writing there is an access violation.
template <class T>
T* BadPointer() {
    return reinterpret_cast<T*>(uintptr_t{8});
}

TEST(Layers, BeforeAnyLoad) {
    const Parser parser = NewParser();
    EXPECT_EQ((LoadOutcome{1, 0, 0, L""}), support::OutcomeOf(*parser, 1));
    uint32_t handle = kUntouched;
    uint32_t type = kUntouched;
    uint64_t value = kUntouched;
    EXPECT_EQ(0, parser->GetRootItem(&handle, &type));
    EXPECT_EQ(0, parser->GetRootValue(&value, &type));
    EXPECT_EQ(-2, parser->GetItemType(1, &type));
    EXPECT_EQ(kUntouched, handle);
    EXPECT_EQ(kUntouched, type);
    EXPECT_EQ(kUntouched, value);
}

TEST(Layers, ReleaseReturnsOne) {
    const auto create = support::Export<IJsonParser*()>("CreateJsonParser");
    ASSERT_NE(nullptr, create);
    EXPECT_EQ(1, create()->Release());
    IJsonParser* loaded = create();
    EXPECT_EQ(1, loaded->LoadJsonString(L"{\"a\":[1,{\"b\":\"text\"}]}"));
    EXPECT_EQ(1, loaded->Release());
    IJsonParser* failed = create();
    EXPECT_EQ(0, failed->LoadJsonString(L"{\"a\":[1,{\"b\":\"te"));
    EXPECT_EQ(1, failed->Release());
}

int LoadNine(IJsonParser& parser) {
    const support::TempFile file("[9]");
    return parser.LoadJsonFile(file.Name());
}

/// Each way a second load can go, after which nothing of the first may be left.
struct NextLoad {
    const char* name;
    int (*load)(IJsonParser& parser);
    LoadOutcome outcome;
};

const NextLoad kNextLoads[] = {
    {"text", [](IJsonParser& p) { return p.LoadJsonString(L"[7]"); }, Success(L"[7]")},
    {"bytes", [](IJsonParser& p) { return p.LoadJsonBytes("[8]", 3); }, Success(L"[8]")},
    {"file", &LoadNine, Success(L"[9]")},
    {"broken text", [](IJsonParser& p) { return p.LoadJsonString(L"[[7],"); },
     support::Failure(3, 10)},
    {"empty bytes", [](IJsonParser& p) { return p.LoadJsonBytes("", 0); }, support::Failure(21, 0)},
    {"a number", [](IJsonParser& p) { return p.LoadJsonString(L"17"); }, support::Failure(3, 0)},
    {"null text", [](IJsonParser& p) { return p.LoadJsonString(nullptr); },
     support::Failure(18, 0)},
    {"null bytes", [](IJsonParser& p) { return p.LoadJsonBytes(nullptr, 3); },
     support::Failure(18, 0)},
    {"null name", [](IJsonParser& p) { return p.LoadJsonFile(nullptr); }, support::Failure(19, 0)},
    {"no file", [](IJsonParser& p) { return p.LoadJsonFile(L"no such.json"); },
     support::Failure(20, 0)},
    {"bad bytes", [](IJsonParser& p) { return p.LoadJsonBytes(BadPointer<char>(), 3); },
     support::Escaped()},
    {"too deep",
     [](IJsonParser& p) { return p.LoadJsonString(std::wstring(200000, L'[').c_str()); },
     support::Escaped()},
};

TEST(Layers, NothingOfAnEarlierLoadSurvives) {
    for (const wchar_t* earlier :
         {L"{\"a\":[1,2,[3]],\"b\":{\"c\":null}}", L"[[[],{}],\"text\"", L""}) {
        for (const NextLoad& next : kNextLoads) {
            SCOPED_TRACE(testing::PrintToString(earlier) + ", then " + next.name);
            const Parser parser = NewParser();
            parser->LoadJsonString(earlier);
            uint32_t root = 0;
            uint32_t child = 0;
            uint32_t type = 0;
            parser->GetRootItem(&root, &type);
            parser->GetChildItem(root, 1, &child, &type);

            const int result = next.load(*parser);
            EXPECT_EQ(-2, parser->GetItemType(1, &type));
            EXPECT_EQ(-2, parser->GetItemType(2, &type));
            EXPECT_EQ(next.outcome, support::OutcomeOf(*parser, result));
        }
    }
}

TEST(Layers, HandlesCountFromOneAfterEveryLoad) {
    const Parser parser = NewParser();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(1, parser->LoadJsonString(L"[[],{}]"));
        uint32_t root = 0;
        uint32_t child = 0;
        uint32_t type = 0;
        EXPECT_EQ(1, parser->GetRootItem(&root, &type));
        EXPECT_EQ(1u, root);
        EXPECT_EQ(1, parser->GetChildItem(root, 1, &child, &type));
        EXPECT_EQ(2u, child);
        EXPECT_EQ(4u, type);
    }
}

TEST(Layers, ParsersAreIndependent) {
    const Parser first = NewParser();
    const Parser second = NewParser();
    ASSERT_NE(first.get(), second.get());
    const LoadOutcome good = support::LoadText(*first, L"{\"a\":[1,2]}");
    const LoadOutcome bad = support::LoadText(*second, L"[1,");
    EXPECT_EQ(Success(L"{\"a\":[1,2]}"), good);
    EXPECT_EQ(support::Failure(3, 6), bad);
    EXPECT_EQ(good, support::OutcomeOf(*first, 1));
    EXPECT_EQ(bad, support::OutcomeOf(*second, 0));

    uint32_t child = 0;
    uint32_t type = 0;
    EXPECT_EQ(1, first->GetMemberItem(1, L"a", &child, &type));
    EXPECT_EQ(1, second->LoadJsonString(L"[[[]]]"));
    EXPECT_EQ(-2, second->GetItemType(child, &type));
    {
        const Parser third = NewParser();
        EXPECT_EQ(Success(L"[3]"), support::LoadText(*third, L"[3]"));
    }
    EXPECT_EQ(1, first->GetItemType(child, &type));
    EXPECT_EQ(5u, type);
    EXPECT_EQ(good, support::OutcomeOf(*first, 1));
}

TEST(Layers, ALoadThatFaultsLeavesNoErrorBehind) {
    const Parser parser = NewParser();
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(support::Failure(7, 2), support::LoadBytes(*parser, "[1"));
        EXPECT_EQ(support::Escaped(),
                  support::OutcomeOf(*parser, parser->LoadJsonBytes(BadPointer<char>(), 100)));
        EXPECT_EQ(Success(L"[1]"), support::LoadBytes(*parser, "[1]"));
    }
}

/// The system's own measure of a text's length returns 0 where there is nothing to read.
TEST(Layers, WideTextThatCannotBeReadIsEmpty) {
    const Parser parser = NewParser();
    EXPECT_EQ(support::Failure(21, 0),
              support::OutcomeOf(*parser, parser->LoadJsonString(BadPointer<wchar_t>())));
    EXPECT_EQ(Success(L"[1]"), support::LoadText(*parser, L"[1]"));
}

}  // namespace
