// Allocations that fail during loads and grafts: each in turn, alone and with all that follow. The
// call then returns -5, or as it does with a source that cannot be read; nothing changes, and
// nothing is lost.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "FailingAllocations.h"
#include "GraftRoute.h"
#include "GraftScene.h"
#include "OutputForm.h"

namespace {

using support::AllGraftRoutes;
using support::Answer;
using support::Arguments;
using support::FailingAllocations;
using support::GraftScene;
using support::GraftSource;
using support::Operation;
using support::StateOf;

constexpr int kAllThatFollow = std::numeric_limits<int>::max();
constexpr int kHowMany[] = {1, kAllThatFollow};

/// What a call with failing allocations may return.
bool IsFailure(const Operation& route, bool isAnsi, int result) {
    return result == -5 || (isAnsi && result == BadSourceResult(route));
}

/// Runs the call with the n-th allocation failing, for every n, until none fails any more.
void FailEach(const Operation& route, const GraftSource& source, bool isAnsi, int count) {
    const Arguments arguments = GraftScene::Good(route, source);
    support::NewGenerator();  // a thread's first object takes memory that stays with the thread
    FailingAllocations allocations;
    int failures = 0;
    bool happened = true;
    for (int n = 1; happened; ++n) {
        SCOPED_TRACE(testing::Message() << route << ", allocation " << n);
        {
            GraftScene scene;
            const support::GeneratorState before = StateOf(*scene);
            allocations.Fail(n, count);
            const Answer grafted = route.call(*scene, arguments);
            happened = allocations.Happened();
            allocations.Stop();
            if (grafted.result == 1) {
                EXPECT_EQ(GraftScene::AnswerOf(route), grafted);
            } else {
                ++failures;
                EXPECT_TRUE(happened);
                EXPECT_TRUE(IsFailure(route, isAnsi, grafted.result)) << grafted;
                EXPECT_TRUE(grafted.outputs.empty());
                EXPECT_EQ(before, StateOf(*scene));
                scene.ExpectNextHandle(GraftScene::kNext);
                EXPECT_EQ(1, route.call(*scene, arguments).result);
            }
            EXPECT_TRUE(source.IsClosed());
        }
        EXPECT_EQ(0, allocations.LiveBlocks()) << "memory is lost";
    }
    EXPECT_GT(failures, 0) << route;
}

class GraftAllocation : public testing::TestWithParam<int> {};

TEST_P(GraftAllocation, SmallSources) {
    for (const Operation& route : AllGraftRoutes())
        FailEach(route, GraftSource(route, std::wstring(L"{\"a\":[1,{\"b\":\"a text\"}]}")), false,
                 GetParam());
}

TEST_P(GraftAllocation, LargeSources) {
    std::wstring json = L"[0";
    for (int i = 0; i < 3000; ++i) json += L",{\"a name\":\"and a text that is not short\"}";
    for (const Operation& route : AllGraftRoutes())
        FailEach(route, GraftSource(route, json + L"]"), false, GetParam());
}

TEST_P(GraftAllocation, AnsiSources) {
    for (const Operation& route : support::FileRoutes())
        FailEach(route, GraftSource(route, std::string("[\"\xE9. and a text\",{\"a\":[1,2]}]")),
                 true, GetParam());
}

/// The graft that overwrites a member goes its own way in the end.
TEST_P(GraftAllocation, Overwriting) {
    for (const Operation& route : support::GraftsOnly()) {
        if (!route.hasKey) continue;
        const GraftSource source(route, std::wstring(L"{\"a\":[1,{\"b\":\"a text\"}]}"));
        Arguments arguments = GraftScene::Good(route, source);
        arguments.key = L"old";
        FailingAllocations allocations;
        bool happened = true;
        for (int n = 1; happened; ++n) {
            SCOPED_TRACE(testing::Message() << route << ", allocation " << n);
            const GraftScene scene;
            EXPECT_EQ(GraftScene::kNext, support::HandleAt(*scene, L"/object/old"));
            const support::GeneratorState before = StateOf(*scene);
            allocations.Fail(n, GetParam());
            const Answer grafted = route.call(*scene, arguments);
            happened = allocations.Happened();
            allocations.Stop();
            const bool succeeds = grafted.result == 1;
            EXPECT_EQ((succeeds ? Answer{1, GraftScene::kNext} : Answer(-5)), grafted);
            EXPECT_EQ(succeeds, !(before == StateOf(*scene)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(HowMany, GraftAllocation, testing::ValuesIn(kHowMany));

}  // namespace
