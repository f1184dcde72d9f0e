// Grafts that fail: every mistake alone and every two together. The one that is found out first
// decides, and nothing changes.

#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "FailingFiles.h"
#include "GraftRoute.h"
#include "GraftScene.h"
#include "JsonDll.h"
#include "OutputForm.h"

namespace {

using support::Answer;
using support::Arguments;
using support::FailingFiles;
using support::FileFunction;
using support::GraftScene;
using support::GraftsOnly;
using support::GraftSource;
using support::HandleAt;
using support::NamedBy;
using support::Operation;
using support::StateOf;

enum class Mistake {
    kBadPlace,      ///< an unknown handle, a path to nothing
    kNoOutput,      ///< no variable for the handle
    kWrongKind,     ///< a parent that is no object or array, as the graft needs it
    kDeadParent,    ///< a handle whose item was overwritten from above
    kNullSource,    ///< no text, no file name
    kBrokenSource,  ///< JSON that does not parse
    kScalarSource,  ///< JSON whose root is neither object nor array
    kNullKey,       ///< no key
    kDeadChild,     ///< a key that had a handle, for a member that was overwritten from above
};

constexpr Mistake kAllMistakes[] = {
    Mistake::kBadPlace,     Mistake::kNoOutput,   Mistake::kWrongKind,
    Mistake::kDeadParent,   Mistake::kNullSource, Mistake::kBrokenSource,
    Mistake::kScalarSource, Mistake::kNullKey,    Mistake::kDeadChild,
};

const char* NameOf(Mistake mistake) {
    constexpr const char* kNames[] = {"bad place",     "no output",   "wrong kind",
                                      "dead parent",   "null source", "broken source",
                                      "scalar source", "null key",    "dead child"};
    return kNames[static_cast<int>(mistake)];
}

/// When a route finds a mistake out: all those of a stage exclude each other.
enum Stage { kPlace, kOutput, kKind, kSource, kKey };

Stage StageOf(Mistake mistake) {
    switch (mistake) {
        case Mistake::kBadPlace:
            return kPlace;
        case Mistake::kNoOutput:
            return kOutput;
        case Mistake::kWrongKind:
        case Mistake::kDeadParent:
            return kKind;
        case Mistake::kNullKey:
        case Mistake::kDeadChild:
            return kKey;
        default:
            return kSource;
    }
}

/// Text by handle is parsed before the parent is looked at.
int RankOf(Mistake mistake, const Operation& route) {
    const Stage stage = StageOf(mistake);
    const bool isParsedFirst = !ReadsFile(route) && route.naming == NamedBy::kHandle;
    if (isParsedFirst && stage == kSource) return kKind;
    if (isParsedFirst && stage == kKind) return kSource;
    return stage;
}

int ResultOf(Mistake mistake, const Operation& route) {
    switch (mistake) {
        case Mistake::kBadPlace:
            return route.naming == NamedBy::kPath ? -10 : -2;
        case Mistake::kNullSource:
        case Mistake::kBrokenSource:
            return BadSourceResult(route);
        case Mistake::kScalarSource:
            return -3;
        case Mistake::kNullKey:
        case Mistake::kDeadChild:
            return -5;
        default:
            return 0;
    }
}

bool CanMake(Mistake mistake, const Operation& route) {
    if (StageOf(mistake) == kKey) return route.hasKey;
    return mistake != Mistake::kDeadParent || route.naming == NamedBy::kHandle;
}

bool CanMakeBoth(Mistake a, Mistake b) {
    const bool isPlace[] = {StageOf(a) == kPlace || StageOf(a) == kKind,
                            StageOf(b) == kPlace || StageOf(b) == kKind};
    return StageOf(a) != StageOf(b) && !(isPlace[0] && isPlace[1]);
}

constexpr int32_t kDead = 5;
constexpr uint32_t kNext = 6;

/// A scene in which the object had a member "gone", under the handle 5.
GraftScene SceneWithLosses() {
    GraftScene scene;
    uint32_t handle = 0;
    EXPECT_EQ(1, scene->AddObjectItemArray(GraftScene::kObject, L"gone", &handle));
    EXPECT_EQ(uint32_t{kDead}, handle);
    EXPECT_EQ(1, scene->AddObjectItemJsonString(1, L"object", L"{\"old\":1}", &handle));
    EXPECT_EQ(uint32_t{GraftScene::kObject}, handle);
    return scene;
}

/// A call that is good but for the mistakes made in it.
class Call {
public:
    explicit Call(const Operation& of)
        : route(of),
          good(of, std::wstring(L"[1]")),
          broken(of, std::wstring(L"[1")),
          scalar(of, std::wstring(L"1")),
          arguments(GraftScene::Good(of, good)) {}

    void Make(Mistake mistake) {
        switch (mistake) {
            case Mistake::kBadPlace:
                arguments.handle = 999;
                arguments.path = L"/nowhere";
                return;
            case Mistake::kNoOutput:
                arguments.outputs[0] = support::kMissing;
                return;
            case Mistake::kWrongKind:
                arguments.handle = GraftScene::kText;
                arguments.path = L"/text";
                return;
            case Mistake::kDeadParent:
                arguments.handle = kDead;
                return;
            case Mistake::kNullSource:
                arguments.payload.text = nullptr;
                return;
            case Mistake::kBrokenSource:
                arguments.payload.text = broken.Argument();
                return;
            case Mistake::kScalarSource:
                arguments.payload.text = scalar.Argument();
                return;
            case Mistake::kNullKey:
                arguments.key = nullptr;
                return;
            case Mistake::kDeadChild:
                arguments.key = L"gone";
                return;
        }
    }

    void ExpectFailure(int result) const {
        GraftScene scene = SceneWithLosses();
        scene.ExpectFailure(result, route, arguments);
        scene.ExpectNextHandle(kNext);
        EXPECT_TRUE(good.IsClosed() && broken.IsClosed() && scalar.IsClosed());
    }

private:
    const Operation& route;
    GraftSource good, broken, scalar;
    Arguments arguments;
};

TEST(GraftMistakes, EachAlone) {
    for (const Operation& route : GraftsOnly()) {
        for (const Mistake mistake : kAllMistakes) {
            if (!CanMake(mistake, route)) continue;
            SCOPED_TRACE(testing::Message() << route << ": " << NameOf(mistake));
            Call call(route);
            call.Make(mistake);
            call.ExpectFailure(ResultOf(mistake, route));
        }
    }
}

TEST(GraftMistakes, TheFirstOfTwoDecides) {
    int pairs = 0;
    for (const Operation& route : GraftsOnly()) {
        for (const Mistake first : kAllMistakes) {
            for (const Mistake second : kAllMistakes) {
                if (!CanMake(first, route) || !CanMake(second, route)) continue;
                if (!CanMakeBoth(first, second) || RankOf(first, route) > RankOf(second, route))
                    continue;
                SCOPED_TRACE(testing::Message()
                             << route << ": " << NameOf(first) << " and " << NameOf(second));
                Call call(route);
                call.Make(first);
                call.Make(second);
                call.ExpectFailure(ResultOf(first, route));
                ++pairs;
            }
        }
    }
    EXPECT_GT(pairs, 100);
}

/// The call without mistakes, in the scene that all of the above use.
TEST(GraftMistakes, None) {
    for (const Operation& route : GraftsOnly()) {
        const GraftScene scene = SceneWithLosses();
        const GraftSource source(route, std::wstring(L"[1]"));
        EXPECT_EQ((Answer{1, kNext}), route.call(*scene, GraftScene::Good(route, source)));
        EXPECT_EQ(GraftScene::DocumentWith(route, L"[1]"), support::JsonOf(*scene));
    }
}

TEST(GraftMistakes, UnknownHandles) {
    for (const Operation& route : GraftsOnly()) {
        if (route.naming != NamedBy::kHandle) continue;
        SCOPED_TRACE(route.name);
        const GraftSource source(route, std::wstring(L"[1]"));
        GraftScene scene;
        for (const int32_t handle : {0, -1, -2, INT_MIN, INT_MAX, 5, 6, 1000, 65537}) {
            Arguments arguments = GraftScene::Good(route, source);
            arguments.handle = handle;
            scene.ExpectFailure(-2, route, arguments);
        }
        scene.ExpectNextHandle(GraftScene::kNext);
    }
}

/// A position below something that does not exist faults before it is looked for.
TEST(GraftMistakes, PathsToNothing) {
    struct Row {
        const wchar_t* path;
        int result;
    };
    const Row rows[] = {
        {nullptr, -10},       {L"", -10},           {L"object", -10},      {L"array", -10},
        {L"~/object", -10},   {L"//", -10},         {L"//object", -10},    {L"/nowhere", -10},
        {L"/Object", -10},    {L"/object/", -10},   {L"/object/new", -10}, {L"/array/", -10},
        {L"/array/0", -10},   {L"/array/-1", -10},  {L"/array/3", -10},    {L"/array/x1", -10},
        {L"/array/one", -10}, {L"/text/1", -10},    {L"/text/a", -10},     {L"/object~", -10},
        {L"/obj~0ect", -10},  {L"/obj~2ect", -10},  {L"/~object", -10},    {L"#/object", -10},
        {L"/nowhere/1", -5},  {L"/nowhere/a1", -5}, {L"/array/9/1", -5},
    };
    for (const Operation& route : GraftsOnly()) {
        if (route.naming != NamedBy::kPath) continue;
        const GraftSource source(route, std::wstring(L"[1]"));
        GraftScene scene;
        for (const Row& row : rows) {
            SCOPED_TRACE(testing::Message() << route << testing::PrintToString(row.path));
            Arguments arguments = GraftScene::Good(route, source);
            arguments.path = row.path;
            scene.ExpectFailure(row.result, route, arguments);
        }
        scene.ExpectNextHandle(GraftScene::kNext);
    }
}

/// Parents of every kind but the right one. No file is opened for them.
TEST(GraftMistakes, ParentsOfTheWrongKind) {
    FailingFiles files;
    const wchar_t* document =
        L"{\"object\":{},\"array\":[],\"string\":\"\",\"number\":1,\"true\":true,\"false\":false,"
        L"\"null\":null,\"double\":1.5,\"spare\":0}";
    for (const Operation& route : GraftsOnly()) {
        const GraftSource source(route, std::wstring(L"[1]"));
        for (const std::wstring kind :
             {L"object", L"array", L"string", L"number", L"true", L"false", L"null", L"double"}) {
            if (kind == (route.hasKey ? L"object" : L"array")) continue;
            SCOPED_TRACE(testing::Message() << route << testing::PrintToString(kind));
            const support::Generator generator = support::GeneratorOf(document);
            const std::wstring path = L"/" + kind;
            Arguments arguments = GraftScene::Good(route, source);
            arguments.path = path.c_str();
            arguments.handle = static_cast<int32_t>(HandleAt(*generator, path.c_str()));
            const support::GeneratorState before = StateOf(*generator);
            files.Stop();
            EXPECT_EQ(Answer(0), route.call(*generator, arguments));
            EXPECT_EQ(0, files.Calls(FileFunction::kOpen));
            EXPECT_EQ(before, StateOf(*generator));
            EXPECT_EQ(3u, HandleAt(*generator, L"/spare"));
        }
    }
}

/// Whatever is wrong before the source is looked at leaves its file alone; the good call opens it.
TEST(GraftMistakes, FilesThatAreNotNeededAreNotOpened) {
    FailingFiles files;
    for (const Operation& route : GraftsOnly()) {
        if (!ReadsFile(route)) continue;
        for (const Mistake mistake : kAllMistakes) {
            if (!CanMake(mistake, route) || StageOf(mistake) == kSource) continue;
            SCOPED_TRACE(testing::Message() << route << ": " << NameOf(mistake));
            Call call(route);
            call.Make(mistake);
            files.Stop();
            call.ExpectFailure(ResultOf(mistake, route));
            EXPECT_EQ(StageOf(mistake) == kKey ? 1 : 0, files.Calls(FileFunction::kOpen));
        }
    }
}

/// Before there is a root there is one parent, a null under the path "/".
TEST(GraftMistakes, BeforeThereIsARoot) {
    for (const Operation& route : GraftsOnly()) {
        SCOPED_TRACE(route.name);
        const GraftSource source(route, std::wstring(L"[1]"));
        const support::Generator generator = support::NewGenerator();
        const bool isByPath = route.naming == NamedBy::kPath;
        Arguments arguments = GraftScene::Good(route, source);
        const auto expect = [&](int result) {
            EXPECT_EQ(Answer(result), route.call(*generator, arguments));
            EXPECT_EQ(L"", support::JsonOf(*generator));
        };
        expect(isByPath ? -10 : -2);
        arguments.path = L"/";
        arguments.handle = 1;
        expect(isByPath ? 0 : -2);
        EXPECT_EQ(1u, HandleAt(*generator, L"/"));
        expect(0);
    }
}

}  // namespace
