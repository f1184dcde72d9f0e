#include "GraftScene.h"

#include <gtest/gtest.h>

#include "OutputForm.h"

namespace support {
namespace {

constexpr uint32_t kFirstHandles = 20;

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
    for (uint32_t handle = 0; handle < kFirstHandles; ++handle)
        state.paths.push_back(PathOf(generator, handle));
    return state;
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

GraftArguments GraftScene::Good(const GraftRoute& route) {
    GraftArguments arguments;
    const bool isMember = route.TakesKey();
    arguments.parent = isMember ? kObject : kArray;
    arguments.path = isMember ? L"/object" : L"/array";
    arguments.key = L"new";
    return arguments;
}

GraftArguments GraftScene::Good(const GraftRoute& route, const GraftSource& source) {
    GraftArguments arguments = Good(route);
    arguments.source = source.Argument();
    return arguments;
}

Grafted GraftScene::AnswerOf(const GraftRoute& route) {
    return {1, route.IsGraft() ? kNext : uint32_t{kRoot}};
}

std::wstring GraftScene::DocumentWith(const GraftRoute& route, const std::wstring& tree) {
    switch (route.place) {
        case GraftRoute::kRoot:
            return tree;
        case GraftRoute::kMember:
            return kFront + L",\"new\":" + tree + kMiddle + kBack;
        default:
            return kFront + kMiddle + L"," + tree + kBack;
    }
}

void GraftScene::ExpectFailure(int result, const GraftRoute& route,
                               const GraftArguments& arguments) {
    const GeneratorState before = StateOf(*generator);
    EXPECT_EQ((Grafted{result, kUnwrittenHandle}), Graft(route, *generator, arguments));
    EXPECT_EQ(before, StateOf(*generator));
}

void GraftScene::ExpectNextHandle(uint32_t next) {
    const std::wstring path = L"/spare/" + std::to_wstring(++spares);
    EXPECT_EQ(next, HandleAt(*generator, path.c_str()));
}

}  // namespace support
