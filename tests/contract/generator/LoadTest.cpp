// Loading a document in place of the one there is: results, handles, and that a load that fails
// changes nothing. What the sources may look like is the subject of the Graft tests, which take the
// loads along.

#include <gtest/gtest.h>

#include "GraftRoute.h"
#include "GraftScene.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "TempFile.h"

namespace {

using support::Answer;
using support::Arguments;
using support::Asks;
using support::Generator;
using support::GeneratorOf;
using support::GraftScene;
using support::GraftSource;
using support::HandleAt;
using support::JsonOf;
using support::NewGenerator;
using support::Operation;
using support::Operations;
using support::PathOf;
using support::TempFile;

/// Both loads.
Operations Loads() {
    return OperationsIf(support::AllGraftRoutes(),
                        [](const Operation& route) { return route.asks == Asks::kLoad; });
}

struct Row {
    const wchar_t* json;
    int fromText;
    int fromFile;
};

/// Text that does not parse has another result than a file that does not.
const Row kRows[] = {
    {L"{}", 1, 1},          {L"[]", 1, 1},         {L"[1,2]", 1, 1},    {L"{\"a\":NaN}", 1, 1},
    {L"5", -3, -3},         {L"\"text\"", -3, -3}, {L"true", -3, -3},   {L"null", -3, -3},
    {L"-Infinity", -3, -3}, {L"", 0, -3},          {L" \r\n\t", 0, -3}, {L"[1", 0, -3},
    {L"[1,]", 0, -3},       {L"{} {}", 0, -3},     {L"[]5", 0, -3},     {L"text", 0, -3},
};

TEST(GeneratorLoad, ResultsOfTextAndOfFiles) {
    ASSERT_EQ(2u, Loads().size());
    for (const Row& row : kRows) {
        for (const Operation& load : Loads()) {
            SCOPED_TRACE(testing::Message() << load << " of " << testing::PrintToString(row.json));
            const int expected = ReadsFile(load) ? row.fromFile : row.fromText;
            const GraftSource source(load, std::wstring(row.json));
            const Generator generator = NewGenerator();
            const Answer grafted = load.call(*generator, GraftScene::Good(load, source));
            EXPECT_EQ(expected == 1 ? Answer(1, 1) : Answer(expected), grafted);
            EXPECT_EQ(expected == 1 ? row.json : L"", JsonOf(*generator));
            EXPECT_EQ(expected == 1 ? L"/" : L"", PathOf(*generator, 1));
        }
    }
}

TEST(GeneratorLoad, NullSources) {
    for (const Operation& load : Loads()) {
        GraftScene scene;
        scene.ExpectFailure(BadSourceResult(load), load, Arguments());
        scene.ExpectNextHandle(GraftScene::kNext);
    }
}

/// The variable for the handle is asked for first.
TEST(GeneratorLoad, WithoutAVariableForTheHandle) {
    for (const Operation& load : Loads()) {
        for (const wchar_t* json : {L"[1]", L"5", L"[", L""}) {
            const GraftSource source(load, std::wstring(json));
            GraftScene scene;
            Arguments arguments = GraftScene::Good(load, source);
            arguments.outputs[0] = support::kMissing;
            scene.ExpectFailure(0, load, arguments);
            arguments.payload.text = nullptr;
            scene.ExpectFailure(0, load, arguments);
            scene.ExpectNextHandle(GraftScene::kNext);
        }
    }
}

TEST(GeneratorLoad, TheRootHasTheHandleOneAndEarlierHandlesEnd) {
    for (const Operation& load : Loads()) {
        const GraftSource source(load, std::wstring(L"{\"object\":{},\"list\":[1]}"));
        GraftScene scene;
        EXPECT_EQ((Answer{1, 1}), load.call(*scene, GraftScene::Good(load, source)));
        EXPECT_EQ(L"/", PathOf(*scene, 1));
        for (uint32_t handle = 2; handle < 10; ++handle) EXPECT_EQ(L"", PathOf(*scene, handle));
        EXPECT_EQ(2u, HandleAt(*scene, L"/list"));
        EXPECT_EQ(3u, HandleAt(*scene, L"/object"));
        EXPECT_EQ(1u, HandleAt(*scene, L"/"));
        EXPECT_EQ(4u, HandleAt(*scene, L"/list/1"));
    }
}

TEST(GeneratorLoad, LoadsFollowEachOther) {
    const Generator generator = NewGenerator();
    for (int i = 0; i < 20; ++i) {
        const Operation load = Loads()[i % 2];
        const std::wstring json = L"{\"turn\":" + std::to_wstring(i) + L",\"more\":[]}";
        const GraftSource source(load, json);
        EXPECT_EQ((Answer{1, 1}), load.call(*generator, GraftScene::Good(load, source)));
        EXPECT_EQ(json, JsonOf(*generator));
        EXPECT_EQ(2u, HandleAt(*generator, L"/more"));
    }
}

/// A loaded document is one like any other: items go into it by handle, path and reference.
TEST(GeneratorLoad, ItemsAreAddedToWhatWasLoaded) {
    for (const Operation& load : Loads()) {
        const GraftSource source(load, std::wstring(L"{\"a\":{\"b\":[true]}}"));
        const Generator generator = NewGenerator();
        ASSERT_EQ((Answer{1, 1}), load.call(*generator, GraftScene::Good(load, source)));
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->AddObjectItemInt(1, L"c", 7, &handle));
        EXPECT_EQ(2u, handle);
        EXPECT_EQ(1, generator->AddArrayItemStringByPath(L"/a/b", L"x", &handle));
        EXPECT_EQ(3u, handle);
        EXPECT_EQ(L"/a/b/2", PathOf(*generator, handle));
        EXPECT_EQ(L"{\"a\":{\"b\":[true,\"x\"]},\"c\":7}", JsonOf(*generator));
    }
}

/// A load in place of each kind of document that can be there.
TEST(GeneratorLoad, InPlaceOfAnything) {
    using Begin = void (*)(QXJSON::IJsonGenerator&);
    const Begin begins[] = {
        [](QXJSON::IJsonGenerator&) {},
        [](QXJSON::IJsonGenerator& g) {
            uint32_t handle = 0;
            g.CreateRootObject(&handle);
            g.AddObjectItemString(1, L"k", L"text", &handle);
        },
        [](QXJSON::IJsonGenerator& g) {
            uint64_t value = 0;
            g.ResetRootArrayValue(&value);
            g.AddArrayValueObject(value, &value);
        },
        [](QXJSON::IJsonGenerator& g) {
            uint32_t handle = 0;
            g.LoadJsonString(L"[[[[1]]]]", &handle);
            g.AddArrayItemJsonString(1, L"{\"k\":[]}", &handle);
        },
    };
    for (const Operation& load : Loads()) {
        for (const Begin begin : begins) {
            const GraftSource source(load, std::wstring(L"{\"k\":[1]}"));
            const Generator generator = NewGenerator();
            begin(*generator);
            EXPECT_EQ((Answer{1, 1}), load.call(*generator, GraftScene::Good(load, source)));
            EXPECT_EQ(L"{\"k\":[1]}", JsonOf(*generator));
            EXPECT_EQ(2u, HandleAt(*generator, L"/k"));
        }
    }
}

/// A load that fails leaves everything usable, however often it comes.
TEST(GeneratorLoad, FailuresInARow) {
    GraftScene scene;
    for (const Operation& load : Loads()) {
        for (const Row& row : kRows) {
            const int expected = ReadsFile(load) ? row.fromFile : row.fromText;
            if (expected == 1) continue;
            const GraftSource source(load, std::wstring(row.json));
            scene.ExpectFailure(expected, load, GraftScene::Good(load, source));
        }
    }
    scene.ExpectNextHandle(GraftScene::kNext);
    uint32_t handle = 0;
    EXPECT_EQ(1, scene->AddArrayItemInt(GraftScene::kArray, 30, &handle));
    EXPECT_EQ(GraftScene::kNext + 1, handle);
    EXPECT_EQ(L"/array/3", PathOf(*scene, handle));
}

/// The source is read during the call only.
TEST(GeneratorLoad, NothingOfTheSourceIsKept) {
    const Generator generator = NewGenerator();
    uint32_t root = 0;
    std::wstring text = L"{\"key\":\"some text\"}";
    EXPECT_EQ(1, generator->LoadJsonString(text.c_str(), &root));
    text.assign(text.size(), L'#');
    EXPECT_EQ(L"{\"key\":\"some text\"}", JsonOf(*generator));
    {
        const TempFile file("{\"key\":\"from a file\"}");
        EXPECT_EQ(1, generator->LoadJsonFile(file.Name(), &root));
    }
    EXPECT_EQ(L"{\"key\":\"from a file\"}", JsonOf(*generator));
}

/// The system's own measure of a text's length returns 0 where there is nothing to read; a file
/// name there faults. Both leave the generator as it was.
TEST(GeneratorLoad, SourcesThatAreNoMemory) {
    Arguments arguments;
    arguments.payload.text = reinterpret_cast<const wchar_t*>(uintptr_t{8});
    for (const Operation& load : Loads()) {
        GraftScene scene;
        scene.ExpectFailure(ReadsFile(load) ? -5 : 0, load, arguments);
        scene.ExpectNextHandle(GraftScene::kNext);
    }
}

}  // namespace
