// What operations return before a load, after one that failed, and after the next one.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CatchFault.h"
#include "JsonDll.h"
#include "Mistakes.h"
#include "ParserOperationList.h"
#include "PathRoutes.h"
#include "Sites.h"

namespace {

using namespace support;

/// The state that the last load left.
struct LoadState {
    int hasError;
    uint64_t offset;
    const wchar_t* message;
};

void ExpectState(QXJSON::IJsonParser& parser, const LoadState& expected) {
    uint64_t offset = 99;
    const wchar_t* message = nullptr;
    EXPECT_EQ(expected.hasError, parser.HasError());
    EXPECT_EQ(1, parser.GetErrorOffset(&offset));
    EXPECT_EQ(expected.offset, offset);
    EXPECT_EQ(1, parser.GetErrorMessage(&message));
    EXPECT_STREQ(expected.message, message);
}

/// No operation finds anything in a parser whose document has none of the values it is asked for.
void ExpectNothingFound(QXJSON::IJsonParser& parser, uint32_t handle) {
    Arguments arguments;
    arguments.handle = handle;
    arguments.path = L"/nowhere";
    arguments.key = L"key";
    for (const Operation& operation : ReadingOperations()) {
        const int result = ResultOf(Mistake::kBadPlace, operation);
        EXPECT_EQ(Answer(result), operation.call(parser, arguments))
            << operation.name << ", handle " << handle;
    }
}

void ExpectNoRoot(QXJSON::IJsonParser& parser) {
    for (const char* name : {"GetRootValue", "GetRootItem"})
        EXPECT_EQ(Answer(0), ParserOperation(name).call(parser, {})) << name;
}

TEST(ReadingStates, BeforeAnyLoad) {
    const Parser parser = NewParser();
    ExpectState(*parser, {0, 0, L"No error."});
    ExpectNoRoot(*parser);
    for (const uint32_t handle : {0u, 1u, 2u}) ExpectNothingFound(*parser, handle);
    ExpectPath(*parser, L"/1", LeadsNowhere());
    ExpectPath(*parser, L"/a/1", Faults());
    ExpectState(*parser, {0, 0, L"No error."});
    EXPECT_EQ(1, parser->LoadJsonString(L"[5]"));
    ExpectPath(*parser, L"/1", LeadsTo(5));
}

/// The root is a null then, which only a path can name.
TEST(ReadingStates, BeforeAnyLoadTheRootIsNull) {
    const Parser parser = NewParser();
    uint32_t handle = 0, type = 99;
    EXPECT_EQ(1, parser->GetItemTypeByPath(L"/", &type));
    EXPECT_EQ(3u, type);
    EXPECT_TRUE(parser->ExistsItemByPath(L"/"));
    EXPECT_FALSE(parser->ExistsMemberByPath(L"/", L"a"));
    EXPECT_EQ(-3, parser->GetChildCountByPath(L"/", &type));
    EXPECT_EQ(0, parser->GetObjectJsonByPath(L"/", nullptr));
    EXPECT_EQ(1, parser->GetItemByPath(L"/", &handle));
    EXPECT_EQ(1u, handle);
    ExpectNoRoot(*parser);
}

/// A root that is no container is refused by the load, not forgotten.
TEST(ReadingStates, ARefusedRootKeepsItsPath) {
    const Parser parser = NewParser();
    EXPECT_EQ(0, parser->LoadJsonString(L"5"));
    ExpectPath(*parser, L"/", LeadsTo(5));
    ExpectNoRoot(*parser);
    EXPECT_EQ(0, parser->LoadJsonString(L"[1,2"));
    uint32_t type = 99;
    EXPECT_EQ(1, parser->GetItemTypeByPath(L"/", &type));
    EXPECT_EQ(3u, type);
}

TEST(ReadingStates, AfterAFailedLoad) {
    struct Row {
        const wchar_t* json;
        LoadState state;
    };
    const Row rows[] = {
        {nullptr, {1, 0, L"The pointer to the json text is null."}},
        {L"", {1, 0, L"The string is empty."}},
        {L"  ", {1, 0, L"The string is empty."}},
        {L"5", {1, 0, L"Invalid value."}},
        {L"\"text\"", {1, 0, L"Invalid value."}},
        {L"[1,2", {1, 8, L"Missing a comma or ']' after an array element."}},
        {L"{\"a\":1", {1, 12, L"Missing a comma or '}' after an object member."}},
        {L"[1] 2", {1, 10, L"The root must not be followed by other values."}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << (row.json ? row.json : L"(null)"));
        const Parser parser = Loaded(kEveryKind);
        const uint32_t last = SiteOfMember(*parser, L"object").handle;
        EXPECT_EQ(0, parser->LoadJsonString(row.json));
        ExpectState(*parser, row.state);
        ExpectNoRoot(*parser);
        for (uint32_t handle = 0; handle <= last; ++handle) ExpectNothingFound(*parser, handle);
        ExpectState(*parser, row.state);
        EXPECT_EQ(1, parser->LoadJsonString(L"[5]"));
        ExpectState(*parser, {0, 0, L"No error."});
        ExpectPath(*parser, L"/1", LeadsTo(5));
    }
}

/// A new load, whether it succeeds or not, takes all handles back and starts again with 1.
TEST(ReadingStates, HandlesEndWithTheDocument) {
    for (const wchar_t* next : {kEveryKind, L"[]", L"{\"a\":", L"5"}) {
        SCOPED_TRACE(testing::Message() << next);
        const Parser parser = Loaded(kEveryKind);
        const Calls calls(*parser);
        const uint32_t last = NextHandle(*parser, kSparePath);
        const bool loaded = parser->LoadJsonString(next) == 1;
        for (uint32_t handle = 0; handle <= last + 1; ++handle) ExpectNothingFound(*parser, handle);
        if (!loaded) continue;
        EXPECT_EQ(1u, SiteOfRoot(*parser).handle);
        for (uint32_t handle = 2; handle <= last + 1; ++handle) ExpectNothingFound(*parser, handle);
    }
}

/// What every operation returns about every value, root and members, of a document.
std::vector<Answer> Dump(QXJSON::IJsonParser& parser) {
    std::vector<Answer> answers;
    const Site root = SiteOfRoot(parser);
    for (const wchar_t* key : {L"object", L"array", L"flag", L"number", L"text", L"spare"}) {
        const Site member = SiteOfMember(parser, key);
        for (const Operation& operation : ReadingOperations()) {
            answers.push_back(operation.call(parser, AtMember(operation, root, member, key)));
            answers.push_back(operation.call(parser, At(root)));
        }
    }
    return answers;
}

/// Every operation with everything wrong that can be wrong, in every way that does not end the
/// process; the operations that return bool fault in a frame that catches it.
void MakeAllMistakes(QXJSON::IJsonParser& parser) {
    const Calls calls(parser);
    const auto wild = reinterpret_cast<const wchar_t*>(uintptr_t{16});
    for (const Operation& operation : ParserOperations()) {
        if (operation.asks == Asks::kLoad || operation.asks == Asks::kRelease) continue;
        for (const Mistake mistake : kAllMistakes) {
            if (!CanMake(mistake, operation)) continue;
            Arguments arguments = calls.Good(operation);
            calls.Make(mistake, operation, arguments);
            operation.call(parser, arguments);
        }
        for (const wchar_t* path : {L"", L"x", L"/a~b", L"/missing/1"}) {
            if (operation.naming != NamedBy::kPath || operation.returnsBool) continue;
            Arguments arguments = calls.Good(operation);
            arguments.path = path;
            operation.call(parser, arguments);
        }
        if (operation.returnsBool) continue;
        Arguments arguments = calls.Good(operation);
        arguments.path = arguments.key = wild;
        if (operation.naming == NamedBy::kReference) arguments.reference = 16;
        for (auto& output : arguments.outputs) output = kWild;
        operation.call(parser, arguments);
    }
    CatchFault([&] { parser.ExistsItemByPath(L"/missing/1"); });
    CatchFault([&] { parser.ExistsMemberByPath(L"/missing/1", L"k"); });
    CatchFault([&] { parser.ExistsMember(1, wild); });
}

TEST(ReadingStates, MistakesChangeNoLaterAnswer) {
    const Parser parser = Loaded(kEveryKind);
    const std::vector<Answer> before = Dump(*parser);
    MakeAllMistakes(*parser);
    ExpectState(*parser, {0, 0, L"No error."});
    const std::vector<Answer> after = Dump(*parser);
    ASSERT_EQ(before.size(), after.size());
    for (size_t i = 0; i < before.size(); ++i) EXPECT_EQ(before[i], after[i]) << i;
}

/// The same for what a failed load left.
TEST(ReadingStates, MistakesChangeNoMessage) {
    const Parser parser = NewParser();
    EXPECT_EQ(0, parser->LoadJsonString(L"[1,2"));
    for (int i = 0; i < 3; ++i) {
        MakeAllMistakes(*parser);
        ExpectState(*parser, {1, 8, L"Missing a comma or ']' after an array element."});
    }
}

TEST(ReadingStates, ParsersDoNotShareHandles) {
    const Parser one = Loaded(kEveryKind);
    const Parser other = Loaded(kEveryKind);
    const Calls calls(*one);
    for (uint32_t handle = 1; handle <= 6; ++handle) ExpectNothingFound(*other, handle);
    EXPECT_EQ(1u, SiteOfRoot(*other).handle);
    ExpectNothingFound(*other, 2);
}

}  // namespace
