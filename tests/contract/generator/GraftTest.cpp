// Grafts that succeed: where the tree goes, which handle it gets and what can be done with it.

#include <gtest/gtest.h>

#include "GraftRoute.h"
#include "GraftScene.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "OutputReference.h"
#include "TempFile.h"

namespace {

using support::Answer;
using support::Arguments;
using support::Generator;
using support::GeneratorOf;
using support::GraftScene;
using support::GraftsOnly;
using support::GraftSource;
using support::HandleAt;
using support::JsonOf;
using support::NamedBy;
using support::NewGenerator;
using support::Operation;
using support::PathOf;

/// Grafts `json` with the scene's arguments, changed by `change`.
template <class Change>
Answer GraftJson(const Operation& route, QXJSON::IJsonGenerator& generator,
                 const std::wstring& json, const Change& change) {
    const GraftSource source(route, json);
    Arguments arguments = GraftScene::Good(route, source);
    change(arguments);
    return route.call(generator, arguments);
}

Answer GraftJson(const Operation& route, QXJSON::IJsonGenerator& generator,
                 const std::wstring& json) {
    return GraftJson(route, generator, json, [](Arguments&) {});
}

TEST(Graft, TheTreeBecomesTheLastChild) {
    ASSERT_EQ(8u, GraftsOnly().size());
    for (const Operation& route : GraftsOnly()) {
        SCOPED_TRACE(route.name);
        GraftScene scene;
        const std::wstring tree = L"{\"a\":[1,{\"b\":null}]}";
        EXPECT_EQ((Answer{1, GraftScene::kNext}), GraftJson(route, *scene, tree));
        EXPECT_EQ(GraftScene::DocumentWith(route, tree), JsonOf(*scene));
        EXPECT_EQ(route.hasKey ? L"/object/new" : L"/array/3", PathOf(*scene, GraftScene::kNext));
        scene.ExpectNextHandle(GraftScene::kNext + 1);
    }
}

/// Stored positions count from 0, item paths from 1: the third element is found under either.
TEST(Graft, TheHandleIsThatOfItsPath) {
    for (const Operation& route : GraftsOnly()) {
        SCOPED_TRACE(route.name);
        GraftScene scene;
        const auto handle = static_cast<uint32_t>(GraftJson(route, *scene, L"[[],{}]").Number());
        const std::wstring path = PathOf(*scene, handle);
        EXPECT_EQ(handle, HandleAt(*scene, path.c_str()));
        EXPECT_EQ(handle + 1, HandleAt(*scene, (path + L"/2").c_str()));
        EXPECT_EQ(path + L"/2", PathOf(*scene, handle + 1));
        EXPECT_EQ(0u, HandleAt(*scene, (path + L"/3").c_str()));
    }
}

TEST(Graft, HandlesCountOnThroughAllRoutes) {
    const Generator generator = GeneratorOf(L"{\"object\":{},\"array\":[]}");
    ASSERT_EQ(2u, HandleAt(*generator, L"/object"));
    ASSERT_EQ(3u, HandleAt(*generator, L"/array"));
    uint32_t next = 4;
    std::wstring members;
    std::wstring elements;
    for (int round = 0; round < 3; ++round) {
        for (const Operation& route : GraftsOnly()) {
            const std::wstring key = L"k" + std::to_wstring(next);
            const Answer grafted =
                GraftJson(route, *generator, L"[]", [&](Arguments& a) { a.key = key.c_str(); });
            EXPECT_EQ((Answer{1, next}), grafted) << route;
            if (route.hasKey)
                members += (members.empty() ? L"\"" : L",\"") + key + L"\":[]";
            else
                elements += elements.empty() ? L"[]" : L",[]";
            ++next;
        }
    }
    EXPECT_EQ(L"{\"object\":{" + members + L"},\"array\":[" + elements + L"]}", JsonOf(*generator));
    EXPECT_EQ(L"/array/12", PathOf(*generator, next - 1));
}

/// Roots as parents, empty and not.
TEST(Graft, IntoTheRoot) {
    struct Root {
        const wchar_t* before;
        const wchar_t* after;
        bool isObject;
        const wchar_t* path;
    };
    const Root roots[] = {
        {L"{}", L"{\"k\":[1]}", true, L"/k"},
        {L"{\"a\":0}", L"{\"a\":0,\"k\":[1]}", true, L"/k"},
        {L"[]", L"[[1]]", false, L"/1"},
        {L"[0]", L"[0,[1]]", false, L"/2"},
    };
    for (const Operation& route : GraftsOnly()) {
        for (const Root& root : roots) {
            if (root.isObject != route.hasKey) continue;
            SCOPED_TRACE(testing::Message() << route << testing::PrintToString(root.before));
            const Generator generator = GeneratorOf(root.before);
            const Answer grafted = GraftJson(route, *generator, L"[1]", [](Arguments& a) {
                a.handle = 1;
                a.path = L"/";
                a.key = L"k";
            });
            EXPECT_EQ((Answer{1, 2}), grafted);
            EXPECT_EQ(root.after, JsonOf(*generator));
            EXPECT_EQ(root.path, PathOf(*generator, 2));
        }
    }
}

/// A root that was created by reference has no handle, so that the first graft gets the first one.
TEST(Graft, BelowARootWithoutAHandle) {
    for (const Operation& route : GraftsOnly()) {
        if (route.naming != NamedBy::kPath) continue;
        SCOPED_TRACE(route.name);
        const Generator generator = NewGenerator();
        uint64_t root = 0;
        ASSERT_EQ(1, route.hasKey ? generator->ResetRootObjectValue(&root)
                                  : generator->ResetRootArrayValue(&root));
        const auto toRoot = [](Arguments& a) { a.path = L"/"; };
        EXPECT_EQ((Answer{1, 1}), GraftJson(route, *generator, L"{}", toRoot));
        EXPECT_EQ(route.hasKey ? L"/new" : L"/1", PathOf(*generator, 1));
        EXPECT_EQ(2u, HandleAt(*generator, L"/"));
    }
}

/// By reference, too, one can go on in what was grafted.
TEST(Graft, ItemsAreAddedToWhatWasGrafted) {
    for (const Operation& route : GraftsOnly()) {
        SCOPED_TRACE(route.name);
        GraftScene scene;
        const auto tree =
            static_cast<int32_t>(GraftJson(route, *scene, L"{\"list\":[1]}").Number());
        const std::wstring path = PathOf(*scene, tree);
        uint32_t handle = 0;
        EXPECT_EQ(1, scene->AddObjectItemBoolean(tree, L"on", 1, &handle));
        EXPECT_EQ(tree + 1, handle);
        EXPECT_EQ(1, scene->AddArrayItemIntByPath((path + L"/list").c_str(), 2, &handle));
        EXPECT_EQ(tree + 2, handle);
        EXPECT_EQ(GraftScene::DocumentWith(route, L"{\"list\":[1,2],\"on\":true}"), JsonOf(*scene));
    }
}

TEST(Graft, GraftsIntoGrafts) {
    for (const Operation& route : GraftsOnly()) {
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(route.hasKey ? L"{}" : L"[]");
        uint32_t parent = 1;
        std::wstring expected = route.hasKey ? L"{}" : L"[]";
        for (int level = 0; level < 30; ++level) {
            const std::wstring path = PathOf(*generator, parent);
            const Answer grafted =
                GraftJson(route, *generator, route.hasKey ? L"{}" : L"[]", [&](Arguments& a) {
                    a.handle = parent;
                    a.path = path.c_str();
                    a.key = L"k1";
                });
            EXPECT_EQ((Answer{1, parent + 1}), grafted);
            parent = static_cast<uint32_t>(grafted.Number());
            expected = route.hasKey ? L"{\"k1\":" + expected + L"}" : L"[" + expected + L"]";
        }
        EXPECT_EQ(expected, JsonOf(*generator));
    }
}

/// Two grafts of one source are two trees.
TEST(Graft, EachGraftIsACopy) {
    for (const Operation& route : GraftsOnly()) {
        if (route.hasKey) continue;
        SCOPED_TRACE(route.name);
        const Generator generator = GeneratorOf(L"{\"array\":[]}");
        ASSERT_EQ(2u, HandleAt(*generator, L"/array"));
        const GraftSource source(route, std::wstring(L"[\"text\"]"));
        Arguments arguments = GraftScene::Good(route, source);
        arguments.handle = 2;
        EXPECT_EQ((Answer{1, 3}), route.call(*generator, arguments));
        EXPECT_EQ((Answer{1, 4}), route.call(*generator, arguments));
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->AddArrayItemInt(3, 1, &handle));
        EXPECT_EQ(1, generator->AddArrayItemInt(4, 2, &handle));
        EXPECT_EQ(L"{\"array\":[[\"text\",1],[\"text\",2]]}", JsonOf(*generator));
    }
}

/// Key, text, path and file belong to the caller again when the call is over.
TEST(Graft, NothingOfTheCallersIsKept) {
    for (const Operation& route : GraftsOnly()) {
        SCOPED_TRACE(route.name);
        GraftScene scene;
        std::wstring key = L"new";
        std::wstring path = route.hasKey ? L"/object" : L"/array";
        std::wstring text = L"{\"a key\":\"a text\"}";
        {
            const GraftSource source(route, text);
            Arguments arguments = GraftScene::Good(route, source);
            arguments.key = key.c_str();
            arguments.path = path.c_str();
            if (!ReadsFile(route)) arguments.payload.text = text.c_str();
            EXPECT_EQ(GraftScene::AnswerOf(route), route.call(*scene, arguments));
        }
        for (std::wstring* mine : {&key, &path, &text}) mine->assign(mine->size(), L'#');
        EXPECT_EQ(GraftScene::DocumentWith(route, L"{\"a key\":\"a text\"}"), JsonOf(*scene));
        EXPECT_EQ(route.hasKey ? L"/object/new" : L"/array/3", PathOf(*scene, GraftScene::kNext));
    }
}

/// What a generator returned is as good a source as any.
TEST(Graft, AGeneratorTakesItsOwnOutput) {
    const std::wstring json = L"{\"a\":[1,\"\xE9\xD834\xDD1E\",NaN]}";
    for (const int32_t selector : support::kAllSelectors) {
        const Generator generator = GeneratorOf(json);
        const support::TempFile file;
        ASSERT_EQ(1, generator->SaveToFile(file.Name(), selector));
        const wchar_t* text = nullptr;
        uint32_t handle = 0;
        ASSERT_EQ(1, generator->GetJsonString(&text));
        EXPECT_EQ(1, generator->AddObjectItemJsonString(1, L"text", text, &handle));
        EXPECT_EQ(1, generator->AddObjectItemJsonFile(1, L"file", file.Name(), &handle));
        EXPECT_STREQ(json.c_str(), text);
        EXPECT_EQ(
            json.substr(0, json.size() - 1) + L",\"text\":" + json + L",\"file\":" + json + L"}",
            JsonOf(*generator));
        ASSERT_EQ(1, generator->GetJsonString(&text));
        const std::wstring grown = text;
        EXPECT_EQ(1, generator->LoadJsonString(text, &handle));
        EXPECT_EQ(grown, JsonOf(*generator));
    }
}

/// An element gets the handle that its position had before the array was overwritten.
TEST(Graft, AnElementAtAPositionThatHadAHandle) {
    for (const Operation& route : GraftsOnly()) {
        if (route.hasKey) continue;
        SCOPED_TRACE(route.name);
        GraftScene scene;
        EXPECT_EQ(5u, HandleAt(*scene, L"/array/2"));
        uint32_t handle = 0;
        ASSERT_EQ(1, scene->AddObjectItemArray(1, L"array", &handle));
        EXPECT_EQ(3u, handle);
        EXPECT_EQ((Answer{1, 6}), GraftJson(route, *scene, L"[\"first\"]"));
        EXPECT_EQ((Answer{1, 5}), GraftJson(route, *scene, L"[\"second\"]"));
        EXPECT_EQ((Answer{1, 7}), GraftJson(route, *scene, L"[\"third\"]"));
        EXPECT_EQ(1, scene->AddArrayItemInt(5, 2, &handle));
        EXPECT_EQ(8u, handle);
        EXPECT_NE(std::wstring::npos,
                  JsonOf(*scene).find(L"\"array\":[[\"first\"],[\"second\",2],[\"third\"]]"));
    }
}

/// A parent that is no longer where it was under its handle, but something else is.
TEST(Graft, IntoWhatStandsUnderTheHandleNow) {
    for (const Operation& route : GraftsOnly()) {
        SCOPED_TRACE(route.name);
        GraftScene scene;
        uint32_t handle = 0;
        const wchar_t* key = route.hasKey ? L"object" : L"array";
        const wchar_t* other = route.hasKey ? L"{\"b\":{}}" : L"[true]";
        ASSERT_EQ(1, scene->AddObjectItemJsonString(1, key, other, &handle));
        EXPECT_EQ(GraftScene::Good(route).handle, handle);
        EXPECT_EQ((Answer{1, 5}), GraftJson(route, *scene, L"[]"));
        const wchar_t* now =
            route.hasKey ? L"\"object\":{\"b\":{},\"new\":[]}" : L"\"array\":[true,[]]";
        EXPECT_NE(std::wstring::npos, JsonOf(*scene).find(now));
    }
}

}  // namespace
