#include <gtest/gtest.h>

#include <set>

#include "JsonDll.h"
#include "Mistakes.h"
#include "Operations.h"
#include "Sites.h"
#include "TempFile.h"

namespace {

using namespace support;

std::wstring NumberOf(uint64_t number) { return std::to_wstring(number); }

/// What an operation answers to Calls::Good on a fresh parser that holds kEveryKind, whose values
/// have the handles 1 (the root) and then 2, 3, ... in the order of its members, as far as known.
struct Expectation {
    const char* operation;
    int result;
    std::vector<std::wstring> outputs;
};

const std::vector<Expectation>& Expectations() {
    static const std::vector<Expectation> rows = {
        {"HasError", 0, {}},
        {"GetErrorOffset", 1, {L"0"}},
        {"GetErrorMessage", 1, {L"No error."}},
        {"GetRootValue", 1, {L"<root>", L"4"}},
        {"GetRootItem", 1, {L"1", L"4"}},
        {"GetMemberValue", 1, {L"<flag>", L"2"}},
        {"GetChildValue", 1, {L"<inner>", L"6"}},
        {"GetMemberItemByPath", 1, {L"4", L"2"}},
        {"GetChildItemByPath", 1, {L"7", L"1"}},
        {"GetMemberItem", 1, {L"4", L"2"}},
        {"GetChildItem", 1, {L"7", L"1"}},
        {"GetMemberNameOfValue", 1, {L"inner"}},
        {"GetMemberNameByPath", 1, {L"inner"}},
        {"GetMemberName", 1, {L"inner"}},
        {"GetChildCountOfValue", 1, {L"2"}},
        {"GetChildCountByPath", 1, {L"2"}},
        {"GetChildCount", 1, {L"2"}},
        {"GetValueType", 1, {L"4"}},
        {"GetItemTypeByPath", 1, {L"4"}},
        {"GetMemberItemType", 1, {L"4"}},
        {"GetItemType", 1, {L"4"}},
        {"GetMemberBooleanOfValue", 1, {L"1"}},
        {"GetValueBoolean", 1, {L"1"}},
        {"GetItemBooleanByPath", 1, {L"1"}},
        {"GetMemberBoolean", 1, {L"1"}},
        {"GetItemBoolean", 1, {L"1"}},
        {"GetMemberDoubleOfValue", 1, {L"7"}},
        {"GetValueDouble", 1, {L"7"}},
        {"GetMemberFloatOfValue", 1, {L"7"}},
        {"GetValueFloat", 1, {L"7"}},
        {"GetMemberUInt64OfValue", 1, {L"7"}},
        {"GetValueUInt64", 1, {L"7"}},
        {"GetMemberInt64OfValue", 1, {L"7"}},
        {"GetValueInt64", 1, {L"7"}},
        {"GetMemberUIntOfValue", 1, {L"7"}},
        {"GetValueUInt", 1, {L"7"}},
        {"GetMemberIntOfValue", 1, {L"7"}},
        {"GetValueInt", 1, {L"7"}},
        {"GetItemDoubleByPath", 1, {L"7"}},
        {"GetItemFloatByPath", 1, {L"7"}},
        {"GetItemUInt64ByPath", 1, {L"7"}},
        {"GetItemInt64ByPath", 1, {L"7"}},
        {"GetItemUIntByPath", 1, {L"7"}},
        {"GetItemIntByPath", 1, {L"7"}},
        {"GetMemberDouble", 1, {L"7"}},
        {"GetItemDouble", 1, {L"7"}},
        {"GetMemberFloat", 1, {L"7"}},
        {"GetItemFloat", 1, {L"7"}},
        {"GetMemberUInt64", 1, {L"7"}},
        {"GetItemUInt64", 1, {L"7"}},
        {"GetMemberInt64", 1, {L"7"}},
        {"GetItemInt64", 1, {L"7"}},
        {"GetMemberUInt", 1, {L"7"}},
        {"GetItemUInt", 1, {L"7"}},
        {"GetMemberInt", 1, {L"7"}},
        {"GetItemInt", 1, {L"7"}},
        {"GetMemberBlobOfValue", 1, {L"ABC", L"3"}},
        {"GetValueBlob", 1, {L"ABC", L"3"}},
        {"GetItemBlobByPath", 1, {L"ABC", L"3"}},
        {"GetMemberBlob", 1, {L"ABC", L"3"}},
        {"GetItemBlob", 1, {L"ABC", L"3"}},
        {"GetMemberStringOfValue", 1, {L"QUJD"}},
        {"GetValueString", 1, {L"QUJD"}},
        {"GetItemStringByPath", 1, {L"QUJD"}},
        {"GetMemberString", 1, {L"QUJD"}},
        {"GetItemString", 1, {L"QUJD"}},
        {"GetMemberObjectValue", 1, {L"<object>", L"4"}},
        {"GetObjectItemByPath", 1, {L"2", L"4"}},
        {"GetMemberObjectItem", 1, {L"2", L"4"}},
        {"GetMemberArrayValue", 1, {L"<array>", L"5"}},
        {"GetArrayItemByPath", 1, {L"3", L"5"}},
        {"GetMemberArrayItem", 1, {L"3", L"5"}},
        {"GetItemByPath", 1, {L"2"}},
        {"GetObjectJsonByPath", 1, {L"{\"inner\":1}"}},
        {"GetObjectJson", 1, {L"{\"inner\":1}"}},
        {"GetMemberObjectJson", 1, {L"{\"inner\":1}"}},
        {"GetArrayJsonByPath", 1, {L"[10,20]"}},
        {"GetArrayJson", 1, {L"[10,20]"}},
        {"GetMemberArrayJson", 1, {L"[10,20]"}},
        {"GetNumberClassByPath", 1, {L"0"}},
        {"GetMemberNumberClass", 1, {L"0"}},
        {"GetNumberClass", 1, {L"0"}},
        {"ExistsItemByPath", 1, {}},
        {"ExistsMember", 1, {}},
        {"ExistsMemberByPath", 1, {}},
        {"GetVariantOfValue", 1, {L"number 7"}},
        {"GetItemVariant", 1, {L"number 7"}},
    };
    return rows;
}

/// An output of an expectation; a reference is not known before the document is loaded.
std::wstring Resolved(QXJSON::IJsonParser& parser, const std::wstring& output) {
    if (output == L"<root>") return NumberOf(SiteOfRoot(parser).reference);
    if (output == L"<inner>") {
        uint64_t inner = 0;
        uint32_t type = 0;
        parser.GetMemberValue(SiteOfMember(parser, L"object").reference, L"inner", &inner, &type);
        return NumberOf(inner);
    }
    if (output.empty() || output[0] != L'<') return output;
    const std::wstring key = output.substr(1, output.size() - 2);
    return NumberOf(SiteOfMember(parser, key.c_str()).reference);
}

TEST(ReadingOperations, StandInTheirSlots) {
    const auto& operations = Operations();
    ASSERT_EQ(91u, operations.size());
    std::set<std::string> names;
    for (size_t slot = 0; slot < operations.size(); ++slot) {
        EXPECT_EQ(slot, operations[slot].slot) << operations[slot].name;
        EXPECT_TRUE(names.insert(operations[slot].name).second) << operations[slot].name;
    }
}

TEST(ReadingOperations, EachAnswersAGoodCall) {
    constexpr size_t kFirst = 3;  // after the loads
    const auto& rows = Expectations();
    ASSERT_EQ(Operations().size() - kFirst - 1, rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const Operation& operation = Operations()[kFirst + i];
        SCOPED_TRACE(operation.name);
        ASSERT_STREQ(rows[i].operation, operation.name);
        const Parser parser = Loaded(kEveryKind);
        const Calls calls(*parser);
        Answer expected{rows[i].result, {}};
        for (const std::wstring& output : rows[i].outputs)
            expected.outputs.push_back(Resolved(*parser, output));
        EXPECT_EQ(expected, operation.call(*parser, calls.Good(operation)));
    }
}

TEST(ReadingOperations, LoadsAndReleaseAnswerOne) {
    const TempFile file("[1]");
    Parser parser = NewParser();
    Arguments arguments;
    arguments.bytes = "[1]";
    arguments.index = 3;
    EXPECT_EQ((Answer{1, {}}), OperationNamed("LoadJsonBytes").call(*parser, arguments));
    arguments.path = L"[1]";
    EXPECT_EQ((Answer{1, {}}), OperationNamed("LoadJsonString").call(*parser, arguments));
    arguments.path = file.Name();
    EXPECT_EQ((Answer{1, {}}), OperationNamed("LoadJsonFile").call(*parser, arguments));
    EXPECT_EQ((Answer{1, {}}), OperationNamed("Release").call(*parser.release(), arguments));
}

}  // namespace
