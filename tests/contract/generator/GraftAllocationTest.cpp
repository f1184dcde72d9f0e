// Allocations that fail during loads and grafts: each in turn, alone and with all that follow. The
// call then answers -5, or as it does with a source that cannot be read; nothing changes, and
// nothing is lost.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "FailingAllocations.h"
#include "GraftRoute.h"
#include "GraftScene.h"
#include "OutputExhaustion.h"
#include "OutputForm.h"

namespace {

using support::AllGraftRoutes;
using support::FailingAllocations;
using support::Graft;
using support::GraftArguments;
using support::Grafted;
using support::GraftRoute;
using support::GraftScene;
using support::GraftSource;
using support::kUnwrittenHandle;
using support::StateOf;

constexpr int kAllThatFollow = std::numeric_limits<int>::max();
constexpr int kHowMany[] = {1, kAllThatFollow};

/// What a call with failing allocations may answer.
bool IsFailure(const GraftRoute& route, bool isAnsi, int result) {
    return result == -5 || (isAnsi && result == route.BadSourceResult());
}

/// Runs the call with the n-th allocation failing, for every n, until none fails any more.
void FailEach(const GraftRoute& route, const GraftSource& source, bool isAnsi, int count) {
    const GraftArguments arguments = GraftScene::Good(route, source);
    support::PrepareForExhaustion();
    FailingAllocations allocations;
    int failures = 0;
    bool happened = true;
    for (int n = 1; happened; ++n) {
        SCOPED_TRACE(testing::Message() << route << ", allocation " << n);
        {
            GraftScene scene;
            const support::GeneratorState before = StateOf(*scene);
            allocations.Fail(n, count);
            const Grafted grafted = Graft(route, *scene, arguments);
            happened = allocations.Happened();
            allocations.Stop();
            if (grafted.result == 1) {
                EXPECT_EQ(GraftScene::AnswerOf(route), grafted);
            } else {
                ++failures;
                EXPECT_TRUE(happened);
                EXPECT_TRUE(IsFailure(route, isAnsi, grafted.result)) << grafted;
                EXPECT_EQ(kUnwrittenHandle, grafted.handle);
                EXPECT_EQ(before, StateOf(*scene));
                scene.ExpectNextHandle(GraftScene::kNext);
                EXPECT_EQ(1, Graft(route, *scene, arguments).result);
            }
            EXPECT_TRUE(source.IsClosed());
        }
        EXPECT_EQ(0, allocations.LiveBlocks()) << "memory is lost";
    }
    EXPECT_GT(failures, 0) << route;
}

class GraftAllocation : public testing::TestWithParam<int> {};

TEST_P(GraftAllocation, SmallSources) {
    for (const GraftRoute& route : AllGraftRoutes())
        FailEach(route, GraftSource(route, std::wstring(L"{\"a\":[1,{\"b\":\"a text\"}]}")), false,
                 GetParam());
}

TEST_P(GraftAllocation, LargeSources) {
    std::wstring json = L"[0";
    for (int i = 0; i < 3000; ++i) json += L",{\"a name\":\"and a text that is not short\"}";
    for (const GraftRoute& route : AllGraftRoutes())
        FailEach(route, GraftSource(route, json + L"]"), false, GetParam());
}

TEST_P(GraftAllocation, AnsiSources) {
    for (const GraftRoute& route : support::FileRoutes())
        FailEach(route, GraftSource(route, std::string("[\"\xE9. and a text\",{\"a\":[1,2]}]")),
                 true, GetParam());
}

/// The graft that overwrites a member goes its own way in the end.
TEST_P(GraftAllocation, Overwriting) {
    for (const GraftRoute& route : support::GraftsOnly()) {
        if (!route.TakesKey()) continue;
        const GraftSource source(route, std::wstring(L"{\"a\":[1,{\"b\":\"a text\"}]}"));
        GraftArguments arguments = GraftScene::Good(route, source);
        arguments.key = L"old";
        support::PrepareForExhaustion();
        FailingAllocations allocations;
        bool happened = true;
        for (int n = 1; happened; ++n) {
            SCOPED_TRACE(testing::Message() << route << ", allocation " << n);
            const GraftScene scene;
            EXPECT_EQ(GraftScene::kNext, support::HandleAt(*scene, L"/object/old"));
            const support::GeneratorState before = StateOf(*scene);
            allocations.Fail(n, GetParam());
            const Grafted grafted = Graft(route, *scene, arguments);
            happened = allocations.Happened();
            allocations.Stop();
            const bool succeeds = grafted.result == 1;
            EXPECT_EQ((succeeds ? Grafted{1, GraftScene::kNext} : Grafted{-5, kUnwrittenHandle}),
                      grafted);
            EXPECT_EQ(succeeds, !(before == StateOf(*scene)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(HowMany, GraftAllocation, testing::ValuesIn(kHowMany));

}  // namespace
