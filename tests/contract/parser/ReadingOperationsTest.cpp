// What each operation returns for a good call, from the list of all operations.

#include <gtest/gtest.h>

#include "JsonDll.h"
#include "Mistakes.h"
#include "ParserOperationList.h"
#include "Sites.h"
#include "TempFile.h"

namespace {

using namespace support;

std::wstring NumberOf(uint64_t number) { return std::to_wstring(number); }

/// What operations return for Calls::Good on a new parser that holds kEveryKind, whose values have
/// the handles 1 (the root) and then 2, 3, ... in the order of its members, as far as known.
struct Expectation {
    Asks asks;
    std::vector<std::wstring> outputs;
    std::vector<std::wstring> byReference = {};  ///< where they differ
};

const std::vector<Expectation>& Expectations() {
    static const std::vector<Expectation> rows = {
        {Asks::kRoot, {L"1", L"4"}, {L"<root>", L"4"}},
        {Asks::kMember, {L"4", L"2"}, {L"<flag>", L"2"}},
        {Asks::kChild, {L"7", L"1"}, {L"<inner>", L"6"}},
        {Asks::kObject, {L"2", L"4"}, {L"<object>", L"4"}},
        {Asks::kArray, {L"3", L"5"}, {L"<array>", L"5"}},
        {Asks::kItem, {L"2"}},
        {Asks::kName, {L"inner"}},
        {Asks::kCount, {L"2"}},
        {Asks::kValueType, {L"4"}},
        {Asks::kItemType, {L"4"}},
        {Asks::kBoolean, {L"1"}},
        {Asks::kDouble, {L"7"}},
        {Asks::kFloat, {L"7"}},
        {Asks::kUInt64, {L"7"}},
        {Asks::kInt64, {L"7"}},
        {Asks::kUInt, {L"7"}},
        {Asks::kInt, {L"7"}},
        {Asks::kBlob, {L"ABC", L"3"}},
        {Asks::kString, {L"QUJD"}},
        {Asks::kObjectText, {L"{\"inner\":1}"}},
        {Asks::kArrayText, {L"[10,20]"}},
        {Asks::kNumberClass, {L"0"}},
        {Asks::kExistence, {}},
        {Asks::kVariant, {L"number 7"}},
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

Answer ExpectedOf(QXJSON::IJsonParser& parser, const Operation& operation) {
    for (const Expectation& row : Expectations()) {
        if (row.asks != operation.asks) continue;
        const bool byReference =
            !row.byReference.empty() &&
            (operation.naming == NamedBy::kReference || operation.Takes(parameters::kOutReference));
        Answer expected = 1;
        for (const std::wstring& output : byReference ? row.byReference : row.outputs)
            expected.outputs.push_back(Resolved(parser, output));
        return expected;
    }
    ADD_FAILURE() << "no expectation for " << operation.name;
    return 0;
}

TEST(ReadingOperations, EachAnswersAGoodCall) {
    const Operations asking = OperationsIf(ParserOperations(), [](const Operation& operation) {
        return operation.naming != NamedBy::kNone || operation.asks == Asks::kRoot;
    });
    for (const Operation& operation : asking) {
        SCOPED_TRACE(operation.name);
        const Parser parser = Loaded(kEveryKind);
        const Calls calls(*parser);
        const Answer expected = ExpectedOf(*parser, operation);
        EXPECT_EQ(expected, operation.call(*parser, calls.Good(operation)));
    }
}

TEST(ReadingOperations, TheQueriesOfTheLoadAnswer) {
    const Parser parser = Loaded(kEveryKind);
    EXPECT_EQ(Answer(0), ParserOperation("HasError").call(*parser, {}));
    EXPECT_EQ((Answer{1, {L"0"}}), ParserOperation("GetErrorOffset").call(*parser, {}));
    EXPECT_EQ((Answer{1, {L"No error."}}), ParserOperation("GetErrorMessage").call(*parser, {}));
}

TEST(ReadingOperations, LoadsAndReleaseAnswerOne) {
    const TempFile file("[1]");
    Parser parser = NewParser();
    Arguments arguments;
    arguments.payload.bytes = reinterpret_cast<const uint8_t*>("[1]");
    arguments.payload.word = 3;
    EXPECT_EQ(Answer(1), ParserOperation("LoadJsonBytes").call(*parser, arguments));
    arguments.payload.text = L"[1]";
    EXPECT_EQ(Answer(1), ParserOperation("LoadJsonString").call(*parser, arguments));
    arguments.payload.text = file.Name();
    EXPECT_EQ(Answer(1), ParserOperation("LoadJsonFile").call(*parser, arguments));
    EXPECT_EQ(Answer(1), ParserOperation("Release").call(*parser.release(), arguments));
}

}  // namespace
