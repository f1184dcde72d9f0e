// Allocations that fail: one by one in the factory and in the loads, for every one of them, alone
// and with all that follow.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "FailingAllocations.h"
#include "JsonDll.h"
#include "LoadForm.h"
#include "ParserReference.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonParser;
using support::FailingAllocations;
using support::LoadOutcome;
using support::NewParser;
using support::Parser;
using support::TempFile;

constexpr int kAllThatFollow = std::numeric_limits<int>::max();
constexpr int kHowMany[] = {1, 2, kAllThatFollow};

/// The order in which the factory allocates.
constexpr int kFacade = 1;
constexpr int kAdapter = 2;
constexpr int kImplementation = 3;

IJsonParser* Create() { return support::Export<IJsonParser*()>("CreateJsonParser")(); }

/// A parser whose creation lost one allocation.
Parser CreateWithout(int allocation) {
    FailingAllocations allocations;
    allocations.Fail(allocation);
    Parser parser(Create());
    EXPECT_TRUE(allocations.Happened());
    return parser;
}

/// Guarded operations of each kind, with arguments that are good.
void ExpectAllAnswerMinusFive(IJsonParser& p) {
    uint32_t number = 0;
    uint32_t other = 0;
    uint64_t wide = 0;
    double real = 0;
    const wchar_t* text = nullptr;
    const int results[] = {
        p.HasError(),
        p.GetErrorOffset(&wide),
        p.GetErrorMessage(&text),
        p.GetRootValue(&wide, &number),
        p.GetRootItem(&number, &other),
        p.GetMemberItem(1, L"a", &number, &other),
        p.GetChildItemByPath(L"/", 0, &number, &other),
        p.GetMemberName(1, 0, &text),
        p.GetChildCount(1, &number),
        p.GetItemTypeByPath(L"/", &number),
        p.GetItemType(1, &number),
        p.GetItemBoolean(1, &number),
        p.GetItemDouble(1, &real),
        p.GetItemString(1, &text),
        p.GetItemByPath(L"/", &number),
        p.GetArrayJson(1, &text),
        p.GetNumberClass(1, &number),
    };
    int index = 0;
    for (const int result : results) EXPECT_EQ(-5, result) << "operation " << index++;
}

TEST(Allocation, NoFacadeNoObject) {
    FailingAllocations allocations;
    for (int i = 0; i < 3; ++i) {
        allocations.Fail(kFacade);
        EXPECT_EQ(nullptr, Create());
        EXPECT_TRUE(allocations.Happened());
    }
    allocations.Stop();
    EXPECT_EQ(1, Create()->Release());
}

TEST(Allocation, WithoutAnAdapterAllAnswersAreMinusFive) {
    Parser parser = CreateWithout(kAdapter);
    ASSERT_NE(nullptr, parser);
    const TempFile file("[1]");
    for (int i = 0; i < 2; ++i) {
        ExpectAllAnswerMinusFive(*parser);
        EXPECT_EQ(-5, parser->LoadJsonBytes("[1]", 3));
        EXPECT_EQ(-5, parser->LoadJsonString(L"[1]"));
        EXPECT_EQ(-5, parser->LoadJsonFile(file.Name()));
        EXPECT_TRUE(file.IsClosed());
    }
    EXPECT_EQ(1, parser.release()->Release());
}

TEST(Allocation, WithoutAnImplementationALoadBuildsOne) {
    const TempFile file("[1]");
    for (const support::Route route : support::kAllRoutes) {
        Parser parser = CreateWithout(kImplementation);
        ASSERT_NE(nullptr, parser);
        ExpectAllAnswerMinusFive(*parser);
        const support::LoadForm form = {route, support::Encoding::kUtf16Le, false};
        EXPECT_EQ(support::Success(L"[1]"), support::LoadIn(form, *parser, L"[1]")) << form;
    }
    EXPECT_EQ(1, CreateWithout(kImplementation).release()->Release());
}

/// Each allocation of the factory in turn. A failure may cost the whole object, or its parts below
/// the facade, but a load on an object that was returned makes all of them again.
TEST(Allocation, EveryAllocationOfTheFactory) {
    FailingAllocations allocations;
    for (const int count : kHowMany) {
        bool happened = true;
        for (int n = kImplementation; happened; ++n) {
            SCOPED_TRACE(n);
            allocations.Fail(n, count);
            Parser parser(Create());
            happened = allocations.Happened();
            allocations.Stop();
            ASSERT_NE(nullptr, parser);
            EXPECT_EQ(support::Success(L"[1]"), support::LoadText(*parser, L"[1]"));
        }
    }
}

constexpr uint32_t kElements = 3000;

std::wstring ManyElements() {
    std::wstring json = L"[0";
    for (uint32_t i = 1; i < kElements; ++i) json += L"," + std::to_wstring(i);
    return json + L"]";
}

/// Asks for the handle of every element, once more where that failed.
void AskForAll(IJsonParser& parser, const FailingAllocations& allocations) {
    uint32_t handle = 0;
    uint32_t type = 0;
    ASSERT_EQ(1, parser.GetRootItem(&handle, &type));
    for (uint32_t i = 0; i < kElements; ++i) {
        int result = parser.GetChildItem(1, i, &handle, &type);
        if (result == -5) {
            EXPECT_TRUE(allocations.Happened());
            EXPECT_EQ(i + 1, handle) << "a call that failed has written a handle";
            result = parser.GetChildItem(1, i, &handle, &type);
        }
        ASSERT_EQ(1, result);
        ASSERT_EQ(i + 2, handle);
    }
}

/// No handle is lost and none is given twice, whichever of them lacked memory.
TEST(Allocation, EveryOneOfManyHandles) {
    const Parser parser = NewParser();
    FailingAllocations allocations;
    bool happened = true;
    for (int n = 1; happened; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        ASSERT_EQ(1, parser->LoadJsonString(ManyElements().c_str()));
        allocations.Fail(n);
        AskForAll(*parser, allocations);
        happened = allocations.Happened();
        allocations.Stop();
        for (uint32_t i = 0; i < kElements; ++i) {
            int32_t number = -1;
            ASSERT_EQ(1, parser->GetItemInt(i + 2, &number));
            ASSERT_EQ(static_cast<int32_t>(i), number);
        }
    }
}

/// A load that is repeated with ever later failures until nothing fails any more.
struct Trial {
    const char* name;
    std::string bytes;
    bool ansi;
};

/// Long enough for the reader's stack, and the document's memory, to grow several times.
std::string LargeDocument() {
    std::string document = "{\"long\":\"" + std::string(150000, 'x') + "\",\"rows\":[";
    for (int i = 0; i < 4000; ++i)
        document += "{\"a name\":[" + std::to_string(i) + ",\"and a text that is not short\"]},";
    return document + "null]}";
}

const Trial kTrials[] = {
    {"small", "[1,{\"a\":\"text\"}]", false},
    {"large", LargeDocument(), false},
    {"broken", "[1,{\"a\":\"text\"", false},
    {"large and broken", LargeDocument() + "]", false},
    {"a number", "12", false},
    {"empty", "", false},
    {"ANSI", "[\"\xE9. and a text\",{\"a\":[1,2]}]", true},
    {"broken ANSI", "[\"\xE9. and a text\",{\"a\":[1,2}", true},
    {"large ANSI", "[" + LargeDocument() + ",\"\xE9.\"]", true},
    {"ANSI number", "\"\xE9.\"", true},
};

/// Loads with failing allocations, judged against what the load does with all it needs.
class Attempts {
public:
    Attempts(const Trial& trial, const LoadOutcome& whole, uint64_t utf8Offset)
        : ansi(trial.ansi), expected(whole), firstError(support::Failure(12, utf8Offset)) {}

    /// Lets the n-th allocation (and those that follow) fail, for every n.
    template <class Load>
    void Run(int count, const Load& load) {
        const Parser parser = NewParser();
        FailingAllocations allocations;
        // The first failure of the process leaves blocks of the language's runtime behind.
        allocations.Fail(1, count);
        load(*parser);
        allocations.Stop();
        ASSERT_EQ(1, parser->LoadJsonBytes("[1]", 3));
        const long blocks = allocations.LiveBlocks();
        bool happened = true;
        for (int n = 1; happened; ++n) {
            SCOPED_TRACE("allocation " + std::to_string(n));
            ASSERT_EQ(1, parser->LoadJsonString(L"[[],\"earlier\"]"));
            allocations.Fail(n, count);
            const int result = load(*parser);
            happened = allocations.Happened();
            allocations.Stop();
            Judge(*parser, result, happened);
            ASSERT_EQ(1, parser->LoadJsonBytes("[1]", 3));
            EXPECT_EQ(blocks, allocations.LiveBlocks()) << "memory is lost";
            failures += happened ? 1 : 0;
        }
    }

    int Failures() const { return failures; }
    int KeptFirstError() const { return kept; }

private:
    void Judge(IJsonParser& parser, int result, bool happened) {
        if (result == -5) {
            EXPECT_TRUE(happened);
            uint32_t handle = 0;
            uint32_t type = 0;
            EXPECT_NE(1, parser.GetRootItem(&handle, &type))
                << "the earlier document is still there";
            return;
        }
        const LoadOutcome outcome = Seen(parser, result, happened);
        const bool isFirst = happened && ansi && outcome == firstError;
        kept += isFirst ? 1 : 0;
        EXPECT_EQ(isFirst ? firstError : expected, outcome);
    }

    /// A parser whose message buffer could not be allocated has no messages, and is otherwise
    /// whole.
    LoadOutcome Seen(IJsonParser& parser, int result, bool happened) {
        const wchar_t* const untouched = L"untouched";
        const wchar_t* message = untouched;
        if (parser.GetErrorMessage(&message) != 0) return support::OutcomeOf(parser, result);
        EXPECT_TRUE(happened);
        EXPECT_EQ(untouched, message);
        EXPECT_EQ(1 - result, parser.HasError());
        LoadOutcome outcome = {result, 0, 0, support::TreeOf(parser)};
        EXPECT_EQ(1, parser.GetErrorOffset(&outcome.offset));
        outcome.code =
            ansi && outcome.offset == firstError.offset ? firstError.code : expected.code;
        return outcome;
    }

    bool ansi;
    LoadOutcome expected;
    LoadOutcome firstError;
    int failures = 0;
    int kept = 0;
};

/// Just after the byte that is not UTF-8.
uint64_t Utf8Offset(const std::string& bytes) { return bytes.find('\xE9') + 1; }

class AllocationInLoads : public testing::TestWithParam<int> {};

TEST_P(AllocationInLoads, Bytes) {
    for (const Trial& trial : kTrials) {
        SCOPED_TRACE(trial.name);
        const auto size = static_cast<uint32_t>(trial.bytes.size());
        Attempts attempts(trial, model::ReferenceLoadBytes(trial.bytes), Utf8Offset(trial.bytes));
        attempts.Run(GetParam(),
                     [&](IJsonParser& p) { return p.LoadJsonBytes(trial.bytes.data(), size); });
        EXPECT_GT(attempts.Failures(), 0);
        EXPECT_EQ(trial.ansi, attempts.KeptFirstError() > 0);
    }
}

TEST_P(AllocationInLoads, Text) {
    for (const Trial& trial : kTrials) {
        if (trial.ansi) continue;
        SCOPED_TRACE(trial.name);
        const std::wstring text(trial.bytes.begin(), trial.bytes.end());
        Attempts attempts(trial, model::ReferenceLoadText(text), 0);
        attempts.Run(GetParam(), [&](IJsonParser& p) { return p.LoadJsonString(text.c_str()); });
        EXPECT_GT(attempts.Failures(), 0);
    }
}

TEST_P(AllocationInLoads, File) {
    for (const Trial& trial : kTrials) {
        SCOPED_TRACE(trial.name);
        const TempFile file(trial.bytes);
        Attempts attempts(trial, model::ReferenceLoadFile(file.Name()), Utf8Offset(trial.bytes));
        attempts.Run(GetParam(), [&](IJsonParser& p) {
            const int result = p.LoadJsonFile(file.Name());
            EXPECT_TRUE(file.IsClosed());
            return result;
        });
        EXPECT_GT(attempts.Failures(), 0);
        EXPECT_EQ(trial.ansi, attempts.KeptFirstError() > 0);
    }
}

INSTANTIATE_TEST_SUITE_P(HowMany, AllocationInLoads, testing::ValuesIn(kHowMany));

}  // namespace
