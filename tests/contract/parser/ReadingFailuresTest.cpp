// The result of each mistake in a call, and which of two mistakes decides.

#include <gtest/gtest.h>

#include "JsonDll.h"
#include "Mistakes.h"
#include "ParserOperationList.h"
#include "Sites.h"

namespace {

using namespace support;

class ReadingFailures : public testing::Test {
protected:
    Parser parser = Loaded(kEveryKind);
    Calls calls{*parser};

    void ExpectFailure(const Operation& operation, const Arguments& arguments, int result) {
        EXPECT_EQ(Answer(result), operation.call(*parser, arguments));
    }
};

TEST_F(ReadingFailures, OneMistakeDecidesTheResult) {
    for (const Operation& operation : ReadingOperations()) {
        for (const Mistake mistake : kAllMistakes) {
            if (!CanMake(mistake, operation)) continue;
            SCOPED_TRACE(testing::Message() << operation.name << ", " << NameOf(mistake));
            Arguments arguments = calls.Good(operation);
            calls.Make(mistake, operation, arguments);
            ExpectFailure(operation, arguments, ResultOf(mistake, operation));
        }
    }
}

TEST_F(ReadingFailures, OfTwoMistakesTheOneFoundFirstDecides) {
    size_t pairs = 0;
    for (const Operation& operation : ReadingOperations()) {
        for (const Mistake first : kAllMistakes) {
            for (const Mistake second : kAllMistakes) {
                if (!CanMake(first, operation) || !CanMake(second, operation)) continue;
                if (PartOf(first, operation) == PartOf(second, operation)) continue;
                if (!IsFoundBefore(first, second, operation)) continue;
                SCOPED_TRACE(testing::Message() << operation.name << ", " << NameOf(first)
                                                << " and " << NameOf(second));
                Arguments arguments = calls.Good(operation);
                calls.Make(first, operation, arguments);
                calls.Make(second, operation, arguments);
                ExpectFailure(operation, arguments, ResultOf(first, operation));
                ++pairs;
            }
        }
    }
    EXPECT_LT(200u, pairs);
}

TEST_F(ReadingFailures, OneMissingOutputLeavesTheOtherUnwritten) {
    for (const Operation& operation : ParserOperations()) {
        if (operation.outputs == 0) continue;
        for (size_t missing = 0; missing < operation.outputs; ++missing) {
            SCOPED_TRACE(testing::Message() << operation.name << ", output " << missing);
            Arguments arguments = calls.Good(operation);
            arguments.outputs[missing] = kMissing;
            ExpectFailure(operation, arguments, 0);
        }
    }
}

TEST_F(ReadingFailures, EveryHandleThatWasNotIssuedIsUnknown) {
    for (const Operation& operation : ReadingOperations()) {
        if (operation.naming != NamedBy::kHandle) continue;
        for (const uint32_t handle : {0u, 7u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
            SCOPED_TRACE(testing::Message() << operation.name << ", handle " << handle);
            Arguments arguments = calls.Good(operation);
            arguments.handle = handle;
            ExpectFailure(operation, arguments, ResultOf(Mistake::kBadPlace, operation));
        }
    }
}

TEST_F(ReadingFailures, EveryIndexFromTheCountOnIsOutOfRange) {
    for (const Operation& operation : ReadingOperations()) {
        if (!operation.hasIndex) continue;
        for (const uint32_t index : {1u, 2u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
            SCOPED_TRACE(testing::Message() << operation.name << ", index " << index);
            Arguments arguments = calls.Good(operation);
            arguments.index = index;
            ExpectFailure(operation, arguments, 0);
        }
    }
}

TEST_F(ReadingFailures, ANullReferenceIsUnknownAndANullPathIsBad) {
    for (const Operation& operation : ReadingOperations()) {
        if (operation.naming == NamedBy::kHandle) continue;
        SCOPED_TRACE(operation.name);
        Arguments arguments = calls.Good(operation);
        arguments.reference = 0;
        arguments.path = nullptr;
        ExpectFailure(operation, arguments, ResultOf(Mistake::kBadPlace, operation));
    }
}

/// A variant without a key is that of the value itself: only the place, the output and the value's
/// own type can be wrong.
TEST_F(ReadingFailures, VariantsWithoutAKey) {
    for (const Operation& operation : ReadingOperations()) {
        if (operation.asks != Asks::kVariant) continue;
        SCOPED_TRACE(operation.name);
        Arguments arguments = calls.Good(operation);
        arguments.key = nullptr;
        ExpectFailure(operation, arguments, -3);
        arguments.outputs[0] = kMissing;
        ExpectFailure(operation, arguments, 0);
        calls.Make(Mistake::kBadPlace, operation, arguments);
        ExpectFailure(operation, arguments, -2);
    }
}

TEST_F(ReadingFailures, TheQueriesOfTheLoadRefuseNullOutputs) {
    EXPECT_EQ(0, parser->GetErrorOffset(nullptr));
    EXPECT_EQ(0, parser->GetErrorMessage(nullptr));
    uint64_t offset = 99;
    EXPECT_EQ(1, parser->GetErrorOffset(&offset));
    EXPECT_EQ(0u, offset);
}

}  // namespace
