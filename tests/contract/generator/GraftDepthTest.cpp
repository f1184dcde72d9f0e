// Sources that are nested deeper than the stack of the caller carries: loading and grafting them
// returns -5, changes nothing, closes the file and leaves a generator that works.

#include <gtest/gtest.h>

#include "FailingAllocations.h"
#include "GraftRoute.h"
#include "GraftScene.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "ProcessUse.h"
#include "StackThread.h"

namespace {

using support::AllGraftRoutes;
using support::Answer;
using support::Arguments;
using support::FileRoutes;
using support::GraftScene;
using support::GraftSource;
using support::JsonOf;
using support::Operation;

std::string Repeated(const std::string& part, int count) {
    std::string all;
    while (count-- > 0) all += part;
    return all;
}

struct Nesting {
    const char* name;
    std::string open;
    std::string close;

    std::string Document(int times) const {
        return Repeated(open, times) + "0" + Repeated(close, times);
    }
};

const Nesting kNestings[] = {
    {"arrays", "[", "]"},
    {"objects", "{\"\":", "}"},
    {"both", "[{\"key\":", "}]"},
};

constexpr int kTooDeep = 200'000;

/// The bytes of text: as they are in a file, as UTF-16 in text.
std::string BytesFor(const Operation& route, const std::string& ascii) {
    if (ReadsFile(route)) return ascii;
    std::string wide;
    for (const char c : ascii) wide += {c, '\0'};
    return wide;
}

void ExpectTooDeep(const Operation& route, const std::string& json) {
    SCOPED_TRACE(route.name);
    const GraftSource source(route, BytesFor(route, json));
    const Arguments arguments = GraftScene::Good(route, source);
    GraftScene scene;
    scene.ExpectFailure(-5, route, arguments);
    support::OnStackOf(support::kSmallStack, [&] { scene.ExpectFailure(-5, route, arguments); });
    EXPECT_TRUE(source.IsClosed());

    const GraftSource flat(route, std::wstring(L"{\"a\":[1]}"));
    EXPECT_EQ(GraftScene::AnswerOf(route), route.call(*scene, GraftScene::Good(route, flat)));
    EXPECT_EQ(GraftScene::DocumentWith(route, L"{\"a\":[1]}"), JsonOf(*scene));
}

TEST(GraftDepth, TooDeep) {
    for (const Nesting& nesting : kNestings) {
        SCOPED_TRACE(nesting.name);
        for (const Operation& route : AllGraftRoutes()) {
            ExpectTooDeep(route, nesting.Document(kTooDeep));
            ExpectTooDeep(route, Repeated(nesting.open, kTooDeep));
        }
    }
}

TEST(GraftDepth, TooDeepInTheSecondAttempt) {
    for (const Operation& route : FileRoutes())
        ExpectTooDeep(route, "[\"\xE9.\"," + kNestings[0].Document(kTooDeep) + "]");
}

TEST(GraftDepth, ThreeHundredLevelsOnASmallStack) {
    for (const Nesting& nesting : kNestings) {
        const std::string json = nesting.Document(nesting.open.size() > 5 ? 150 : 300);
        for (const Operation& route : AllGraftRoutes()) {
            SCOPED_TRACE(testing::Message() << nesting.name << route.name);
            const GraftSource source(route, BytesFor(route, json));
            const GraftScene scene;
            Answer grafted;
            std::wstring text;
            support::OnStackOf(support::kSmallStack, [&] {
                grafted = route.call(*scene, GraftScene::Good(route, source));
                text = JsonOf(*scene);
            });
            EXPECT_EQ(GraftScene::AnswerOf(route), grafted);
            EXPECT_EQ(GraftScene::DocumentWith(route, std::wstring(json.begin(), json.end())),
                      text);
        }
    }
}

TEST(GraftDepth, AThousandLevelsOnAnOrdinaryStack) {
    for (const Nesting& nesting : kNestings) {
        const std::string json = nesting.Document(nesting.open.size() > 5 ? 500 : 1000);
        for (const Operation& route : AllGraftRoutes()) {
            SCOPED_TRACE(testing::Message() << nesting.name << route.name);
            const GraftSource source(route, BytesFor(route, json));
            const GraftScene scene;
            EXPECT_EQ(GraftScene::AnswerOf(route),
                      route.call(*scene, GraftScene::Good(route, source)));
            EXPECT_EQ(GraftScene::DocumentWith(route, std::wstring(json.begin(), json.end())),
                      JsonOf(*scene));
        }
    }
}

/// Grafts into one another make a document that is deeper than the stack carries calls.
TEST(GraftDepth, ADocumentThatGrowsDeep) {
    constexpr int kLevels = 500;
    constexpr int kGrafts = 100;
    const support::Generator generator = support::GeneratorOf(L"[]");
    const std::wstring tree = std::wstring(kLevels, L'[') + std::wstring(kLevels, L']');
    uint64_t innermost = 0;
    ASSERT_EQ(1, generator->ResetRootArrayValue(&innermost));
    uint32_t handle = 0;
    ASSERT_EQ(1, generator->AddArrayItemJsonStringByPath(L"/", L"[]", &handle));
    for (int i = 0; i < kTooDeep; ++i)
        ASSERT_EQ(1, generator->AddArrayValueArray(innermost, &innermost));
    for (int i = 0; i < kGrafts; ++i) {
        uint32_t grafted = 0;
        EXPECT_EQ(1, generator->AddArrayItemJsonString(static_cast<int32_t>(handle), tree.c_str(),
                                                       &grafted));
        EXPECT_EQ(handle + 1 + static_cast<uint32_t>(i), grafted);
    }
    std::wstring expected = L"[[" + tree;
    for (int i = 1; i < kGrafts; ++i) expected += L"," + tree;
    expected += L"]," + std::wstring(kTooDeep, L'[') + std::wstring(kTooDeep, L']') + L"]";
    EXPECT_TRUE(expected == JsonOf(*generator));
    EXPECT_EQ(1, generator->LoadJsonString(tree.c_str(), &handle));
    EXPECT_EQ(tree, JsonOf(*generator));
}

/// No memory is lost.
void ExpectNoLoss(const Operation& route) {
    SCOPED_TRACE(route.name);
    const GraftSource source(route, BytesFor(route, Repeated("[", kTooDeep)));
    const Arguments arguments = GraftScene::Good(route, source);
    const GraftScene scene;
    const support::FailingAllocations allocations;
    for (int i = 0; i < 10; ++i) EXPECT_EQ(-5, route.call(*scene, arguments).result);
    EXPECT_EQ(0, allocations.LiveBlocks());
}

/// Nor is a file left open. The first round lets the system open what it keeps.
TEST(GraftDepth, NothingIsLost) {
    for (const Operation& route : AllGraftRoutes()) ExpectNoLoss(route);
    const DWORD handles = support::HandleCount();
    for (const Operation& route : AllGraftRoutes()) ExpectNoLoss(route);
    EXPECT_EQ(handles, support::HandleCount());
}

}  // namespace
