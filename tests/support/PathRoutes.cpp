#include "PathRoutes.h"

#include <gtest/gtest.h>

#include "CatchFault.h"
#include "Mistakes.h"
#include "ParserOperationList.h"

namespace support {
namespace {

Arguments Along(const wchar_t* path) {
    Arguments arguments;
    arguments.path = path;
    arguments.key = L"key";
    return arguments;
}

void ExpectNumber(QXJSON::IJsonParser& parser, const wchar_t* path, int32_t number) {
    const Arguments arguments = Along(path);
    auto answerOf = [&](const char* name) { return ParserOperation(name).call(parser, arguments); };
    const std::wstring shown = Show(number);
    for (const char* getter : {"GetItemIntByPath", "GetItemInt64ByPath", "GetItemUIntByPath",
                               "GetItemUInt64ByPath", "GetItemDoubleByPath", "GetItemFloatByPath"})
        EXPECT_EQ((Answer{1, {shown}}), answerOf(getter)) << getter;
    EXPECT_EQ((Answer{1, {L"1"}}), answerOf("GetItemTypeByPath"));
    EXPECT_EQ((Answer{1, {L"0"}}), answerOf("GetNumberClassByPath"));
    EXPECT_TRUE(parser.ExistsItemByPath(path));
    // Found, but of another kind.
    EXPECT_FALSE(parser.ExistsMemberByPath(path, L"key"));
    EXPECT_EQ(-3, answerOf("GetItemStringByPath").result);
    EXPECT_EQ(-3, answerOf("GetItemBlobByPath").result);
    EXPECT_EQ(-3, answerOf("GetItemBooleanByPath").result);
    EXPECT_EQ(-3, answerOf("GetMemberItemByPath").result);
    EXPECT_EQ(-3, answerOf("GetChildItemByPath").result);
    EXPECT_EQ(-3, answerOf("GetMemberNameByPath").result);
    EXPECT_EQ(-3, answerOf("GetChildCountByPath").result);
    EXPECT_EQ(0, answerOf("GetObjectItemByPath").result);
    EXPECT_EQ(0, answerOf("GetArrayItemByPath").result);
    EXPECT_EQ(0, answerOf("GetObjectJsonByPath").result);
    EXPECT_EQ(0, answerOf("GetArrayJsonByPath").result);
    uint32_t handle = 0;
    int32_t read = 0;
    EXPECT_EQ(1, parser.GetItemByPath(path, &handle));
    EXPECT_EQ(1, parser.GetItemInt(handle, &read));
    EXPECT_EQ(number, read);
}

void ExpectResults(QXJSON::IJsonParser& parser, const wchar_t* path, bool fault) {
    for (const Operation& operation : ReadingOperations()) {
        if (operation.naming != NamedBy::kPath || (fault && operation.returnsBool)) continue;
        const int result = fault ? -5 : ResultOf(Mistake::kBadPlace, operation);
        Arguments arguments = Along(path);
        EXPECT_EQ(Answer(result), operation.call(parser, arguments)) << operation.name;
        for (auto& output : arguments.outputs) output = kMissing;
        EXPECT_EQ(Answer(result), operation.call(parser, arguments)) << operation.name;
    }
}

/// The operations that return bool let the fault out.
void ExpectEscape(QXJSON::IJsonParser& parser, const wchar_t* path) {
    EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION, CatchFault([&] { parser.ExistsItemByPath(path); }));
    EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION,
              CatchFault([&] { parser.ExistsMemberByPath(path, L"key"); }));
}

}  // namespace

void ExpectPath(QXJSON::IJsonParser& parser, const wchar_t* path, const PathOutcome& expected) {
    if (expected.kind == PathOutcome::kNumber) return ExpectNumber(parser, path, expected.number);
    const bool fault = expected.kind == PathOutcome::kFault;
    ExpectResults(parser, path, fault);
    if (fault) ExpectEscape(parser, path);
}

}  // namespace support
