// Grafts under keys that the object has already: a member with a handle is overwritten where it
// stands, one without is joined by a second of its name.

#include <gtest/gtest.h>

#include "GraftRoute.h"
#include "GraftScene.h"
#include "JsonDll.h"
#include "OutputForm.h"

namespace {

using support::Answer;
using support::Arguments;
using support::Generator;
using support::GeneratorOf;
using support::GraftSource;
using support::HandleAt;
using support::JsonOf;
using support::Operation;
using support::Operations;
using support::PathOf;
using support::StateOf;

/// The grafts that make members.
Operations MemberRoutes() {
    return OperationsIf(support::GraftsOnly(), [](const Operation& route) { return route.hasKey; });
}

/// Grafts `json` under `key` into the object with this handle, or this path.
Answer GraftUnder(const Operation& route, QXJSON::IJsonGenerator& generator, int32_t parent,
                  const wchar_t* path, const wchar_t* key, const wchar_t* json) {
    const GraftSource source(route, std::wstring(json));
    Arguments arguments;
    arguments.handle = parent;
    arguments.path = path;
    arguments.key = key;
    arguments.payload.text = source.Argument();
    return route.call(generator, arguments);
}

Answer GraftIntoRoot(const Operation& route, QXJSON::IJsonGenerator& generator, const wchar_t* key,
                     const wchar_t* json) {
    return GraftUnder(route, generator, 1, L"/", key, json);
}

TEST(GraftOverwrite, TwiceUnderOneKey) {
    ASSERT_EQ(4u, MemberRoutes().size());
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{\"a\":1}");
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"[1,2,3]"));
        EXPECT_EQ((Answer{1, 3}), GraftIntoRoot(route, *generator, L"z", L"{}"));
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"{\"b\":[]}"));
        EXPECT_EQ(L"{\"a\":1,\"k\":{\"b\":[]},\"z\":{}}", JsonOf(*generator));
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"[]"));
        EXPECT_EQ(L"{\"a\":1,\"k\":[],\"z\":{}}", JsonOf(*generator));
        EXPECT_EQ(4u, HandleAt(*generator, L"/a"));
    }
}

/// Whatever a member was, and however it got its handle.
TEST(GraftOverwrite, MembersOfEveryKind) {
    using Add = int (*)(QXJSON::IJsonGenerator & generator, uint32_t * handle);
    const Add adds[] = {
        [](QXJSON::IJsonGenerator& g, uint32_t* h) { return g.AddObjectItemObject(1, L"k", h); },
        [](QXJSON::IJsonGenerator& g, uint32_t* h) { return g.AddObjectItemArray(1, L"k", h); },
        [](QXJSON::IJsonGenerator& g, uint32_t* h) { return g.AddObjectItemNull(1, L"k", h); },
        [](QXJSON::IJsonGenerator& g, uint32_t* h) {
            return g.AddObjectItemBooleanByPath(L"/", L"k", 1, h);
        },
        [](QXJSON::IJsonGenerator& g, uint32_t* h) {
            return g.AddObjectItemDouble(1, L"k", 1.5, h);
        },
        [](QXJSON::IJsonGenerator& g, uint32_t* h) {
            return g.AddObjectItemString(1, L"k", L"a text that is not short", h);
        },
    };
    for (const Operation& route : MemberRoutes()) {
        for (const Add add : adds) {
            SCOPED_TRACE(route.name);
            const Generator generator = GeneratorOf(L"{\"a\":1}");
            uint32_t handle = 0;
            ASSERT_EQ(1, add(*generator, &handle));
            ASSERT_EQ(1, generator->AddObjectItemInt(1, L"z", 2, &handle));
            EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"[true]"));
            EXPECT_EQ(L"{\"a\":1,\"k\":[true],\"z\":2}", JsonOf(*generator));
            EXPECT_EQ(4u, HandleAt(*generator, L"/a"));
        }
    }
}

TEST(GraftOverwrite, ALoadedMemberWhoseHandleWasAskedFor) {
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{\"a\":{\"x\":1,\"y\":2},\"b\":3}");
        EXPECT_EQ(2u, HandleAt(*generator, L"/a"));
        EXPECT_EQ(3u, HandleAt(*generator, L"/a/x"));
        EXPECT_EQ((Answer{1, 3}), GraftUnder(route, *generator, 2, L"/a", L"x", L"[1]"));
        EXPECT_EQ(L"{\"a\":{\"x\":[1],\"y\":2},\"b\":3}", JsonOf(*generator));
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"a", L"{\"x\":{}}"));
        EXPECT_EQ(L"{\"a\":{\"x\":{}},\"b\":3}", JsonOf(*generator));
    }
}

/// The second member gets a handle, under a path that leads to the first one: a further graft
/// overwrites that.
TEST(GraftOverwrite, AMemberWithoutAHandleIsJoinedByASecond) {
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{\"k\":1,\"z\":2}");
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"[\"second\"]"));
        EXPECT_EQ(L"{\"k\":1,\"z\":2,\"k\":[\"second\"]}", JsonOf(*generator));
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"[\"third\"]"));
        EXPECT_EQ(L"{\"k\":[\"third\"],\"z\":2,\"k\":[\"second\"]}", JsonOf(*generator));
        EXPECT_EQ(3u, HandleAt(*generator, L"/z"));
    }
}

TEST(GraftOverwrite, AMemberThatCameWithAGraftHasNoHandle) {
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{}");
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"a", L"{\"b\":1}"));
        EXPECT_EQ((Answer{1, 3}), GraftUnder(route, *generator, 2, L"/a", L"b", L"[]"));
        EXPECT_EQ(L"{\"a\":{\"b\":1,\"b\":[]}}", JsonOf(*generator));
    }
}

TEST(GraftOverwrite, KeysCompareExactly) {
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{}");
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"[1]"));
        EXPECT_EQ((Answer{1, 3}), GraftIntoRoot(route, *generator, L"K", L"[2]"));
        EXPECT_EQ((Answer{1, 4}), GraftIntoRoot(route, *generator, L"k ", L"[3]"));
        EXPECT_EQ((Answer{1, 3}), GraftIntoRoot(route, *generator, L"K", L"[4]"));
        EXPECT_EQ(L"{\"k\":[1],\"K\":[4],\"k \":[3]}", JsonOf(*generator));
    }
}

/// What was below the member keeps its handles and paths. They lead somewhere again once something
/// stands there.
TEST(GraftOverwrite, HandlesBelowWhatWasOverwritten) {
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{}");
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"{\"x\":[[1]]}"));
        EXPECT_EQ(3u, HandleAt(*generator, L"/k/x"));
        EXPECT_EQ(4u, HandleAt(*generator, L"/k/x/1"));

        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"{\"y\":[]}"));
        EXPECT_EQ(L"/k/x", PathOf(*generator, 3));
        EXPECT_EQ(0u, HandleAt(*generator, L"/k/x"));
        uint32_t handle = 0;
        EXPECT_NE(1, generator->AddArrayItemInt(3, 1, &handle));

        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", L"{\"y\":0,\"x\":[[2]]}"));
        EXPECT_EQ(3u, HandleAt(*generator, L"/k/x"));
        EXPECT_EQ(1, generator->AddArrayItemInt(4, 3, &handle));
        EXPECT_EQ(5u, handle);
        EXPECT_EQ(L"{\"k\":{\"y\":0,\"x\":[[2,3]]}}", JsonOf(*generator));
    }
}

/// A key whose member went with something above it has a handle that leads nowhere: such a graft
/// faults, and the object stays as it is.
TEST(GraftOverwrite, AMemberThatIsGone) {
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{\"spare\":0}");
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"a", L"{}"));
        EXPECT_EQ((Answer{1, 3}), GraftUnder(route, *generator, 2, L"/a", L"k", L"{}"));
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"a", L"{\"other\":1}"));
        const support::GeneratorState before = StateOf(*generator);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(Answer(-5), GraftUnder(route, *generator, 2, L"/a", L"k", L"[1]"));
        EXPECT_EQ(before, StateOf(*generator));
        EXPECT_EQ((Answer{1, 4}), GraftUnder(route, *generator, 2, L"/a", L"k2", L"[1]"));
        EXPECT_EQ(L"{\"spare\":0,\"a\":{\"other\":1,\"k2\":[1]}}", JsonOf(*generator));
    }
}

/// Below an array the parent's kind is found out before the key.
TEST(GraftOverwrite, AMemberThatIsGoneWithItsObject) {
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{}");
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"a", L"{}"));
        EXPECT_EQ((Answer{1, 3}), GraftUnder(route, *generator, 2, L"/a", L"k", L"{}"));
        EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"a", L"[1]"));
        EXPECT_EQ(Answer(0), GraftUnder(route, *generator, 2, L"/a", L"k", L"[1]"));
        EXPECT_EQ(L"{\"a\":[1]}", JsonOf(*generator));
    }
}

/// Overwriting with a copy of what stands above, many times over.
TEST(GraftOverwrite, ManyTimes) {
    for (const Operation& route : MemberRoutes()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{\"a\":1}");
        for (int i = 0; i < 50; ++i) {
            const std::wstring json = L"[" + std::to_wstring(i) + L"]";
            EXPECT_EQ((Answer{1, 2}), GraftIntoRoot(route, *generator, L"k", json.c_str()));
        }
        EXPECT_EQ(L"{\"a\":1,\"k\":[49]}", JsonOf(*generator));
        EXPECT_EQ(3u, HandleAt(*generator, L"/a"));
    }
}

}  // namespace
