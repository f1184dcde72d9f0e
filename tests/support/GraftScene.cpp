#include "GraftScene.h"

#include <gtest/gtest.h>

#include "GraftReference.h"
#include "OutputForm.h"
#include "OutputReference.h"

namespace support {
namespace {

/// The document in pieces: between them go what is grafted into the object and into the array.
const std::wstring kFront = L"{\"object\":{\"old\":1";
const std::wstring kMiddle = L"},\"array\":[10,20";
const std::wstring kBack = L"],\"text\":\"t\",\"spare\":[0,0,0,0,0,0,0,0,0,0,0,0]}";

}  // namespace

bool operator==(const GeneratorState& a, const GeneratorState& b) {
    return a.text == b.text && a.paths == b.paths;
}

std::ostream& operator<<(std::ostream& out, const GeneratorState& state) {
    return out << testing::PrintToString(state.text) << " with the handles "
               << testing::PrintToString(state.paths);
}

GeneratorState StateOf(QXJSON::IJsonGenerator& generator) {
    GeneratorState state;
    state.text = JsonOf(generator);
    for (uint32_t handle = 1;; ++handle) {
        const std::wstring path = PathOf(generator, handle);
        if (path.empty()) return state;
        state.paths.push_back(path);
    }
}

std::wstring PathOf(QXJSON::IJsonGenerator& generator, uint32_t handle) {
    wchar_t path[1024] = {};
    const int result = generator.GetItemPath(static_cast<int32_t>(handle), path);
    EXPECT_TRUE(result == 1 || result == -2) << result;
    return path;
}

uint32_t HandleAt(QXJSON::IJsonGenerator& generator, const wchar_t* path) {
    uint32_t handle = 0;
    generator.GetItemHandleByPath(path, &handle);
    return handle;
}

GraftScene::GraftScene() : generator(GeneratorOf(kFront + kMiddle + kBack)) {
    EXPECT_EQ(2u, HandleAt(*generator, L"/object"));
    EXPECT_EQ(3u, HandleAt(*generator, L"/array"));
    EXPECT_EQ(4u, HandleAt(*generator, L"/text"));
}

Arguments GraftScene::Good(const Operation& route) {
    Arguments arguments;
    const bool isMember = route.hasKey;
    arguments.handle = isMember ? kObject : kArray;
    arguments.path = isMember ? L"/object" : L"/array";
    arguments.key = L"new";
    return arguments;
}

Arguments GraftScene::Good(const Operation& route, const GraftSource& source) {
    Arguments arguments = Good(route);
    arguments.payload.text = source.Argument();
    return arguments;
}

Answer GraftScene::AnswerOf(const Operation& route) {
    return {1, route.asks == Asks::kGraft ? kNext : uint32_t{kRoot}};
}

std::wstring GraftScene::DocumentWith(const Operation& route, const std::wstring& tree) {
    if (route.asks == Asks::kLoad) return tree;
    if (route.hasKey) return kFront + L",\"new\":" + tree + kMiddle + kBack;
    return kFront + kMiddle + L"," + tree + kBack;
}

void GraftScene::ExpectFailure(int result, const Operation& route, const Arguments& arguments) {
    const GeneratorState before = StateOf(*generator);
    EXPECT_EQ(Answer(result), route.call(*generator, arguments));
    EXPECT_EQ(before, StateOf(*generator));
}

void GraftScene::ExpectNextHandle(uint32_t next) {
    const std::wstring path = L"/spare/" + std::to_wstring(++spares);
    EXPECT_EQ(next, HandleAt(*generator, path.c_str()));
}

bool ExpectAsReference(const Operation& route, const GraftSource& source) {
    SCOPED_TRACE(route.name);
    GraftScene scene;
    const Arguments arguments = GraftScene::Good(route, source);
    const model::Taken taken = model::ReferenceTake(route, source);
    if (taken.kind == model::Taken::kContainer) {
        const std::wstring tree = model::ReferenceText(taken.tree);
        EXPECT_EQ(GraftScene::AnswerOf(route), route.call(*scene, arguments));
        EXPECT_EQ(GraftScene::DocumentWith(route, tree), JsonOf(*scene));
    } else {
        const bool isBroken = taken.kind == model::Taken::kBroken;
        scene.ExpectFailure(isBroken ? BadSourceResult(route) : -3, route, arguments);
        scene.ExpectNextHandle(GraftScene::kNext);
    }
    EXPECT_TRUE(source.IsClosed());
    return taken.kind == model::Taken::kContainer;
}

}  // namespace support
