#include "BuildScene.h"

#include <gtest/gtest.h>

namespace building {
namespace {

constexpr int kSpares = 12;

}  // namespace

Scene::Scene() : generator(support::NewGenerator()) {
    EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->GetItemHandleByPath(L"/", &handle));
    sites[L""] = {L"/", handle};
    Add(L"object", ObjectItem());
    Add(L"array", ArrayItem());
    Add(L"text", StringItem(L"t"));
    Add(L"number", IntItem(7));
    Add(L"flag", BooleanItem(1));
    Add(L"nothing", NullItem());
    Add(L"emptied", ObjectItem());
    EXPECT_EQ(1, generator->AddObjectItemObject(sites[L"emptied"].handle, L"inside", &handle));
    lost = handle;
    Add(L"emptied", ObjectItem());
    AddSpare();
}

void Scene::Add(const wchar_t* member, const Item& item) {
    Arguments arguments = With(item);
    arguments.handle = sites[L""].handle;
    arguments.key = member;
    const Answer answer =
        AddingOperation(item.kind, NamedBy::kHandle, true).call(*generator, arguments);
    EXPECT_EQ(1, answer.result);
    sites[member] = {std::wstring(L"/") + member, static_cast<uint32_t>(answer.Number())};
}

void Scene::AddSpare() {
    uint64_t spare = 0;
    uint64_t element = 0;
    EXPECT_EQ(1, generator->AddObjectValueArray(root, L"spare", &spare));
    for (int i = 0; i < kSpares; ++i) EXPECT_EQ(1, generator->AddArrayValueInt(spare, 0, &element));
}

Arguments Scene::Naming(const std::wstring& member) {
    const Site& site = sites.at(member);
    Arguments arguments;
    arguments.reference = ReferenceOf(*Resolve(At(root), member.empty() ? L"" : L"/" + member));
    arguments.handle = site.handle;
    arguments.path = site.path.c_str();
    return arguments;
}

uint32_t Scene::NextHandle() {
    uint32_t handle = 0;
    EXPECT_LT(spares, kSpares) << "the scene has no spare value left";
    const std::wstring path = L"/spare/" + std::to_wstring(++spares);
    EXPECT_EQ(1, generator->GetItemHandleByPath(path.c_str(), &handle));
    return handle;
}

Document Scene::Copy() const {
    Document copy;
    copy.CopyFrom(At(root), copy.GetAllocator());
    return copy;
}

const std::vector<BadPath>& BadPaths() {
    static const std::vector<BadPath> paths = {
        {nullptr, -10},
        {L"", -10},
        {L"object", -10},
        {L"array", -10},
        {L"~/object", -10},
        {L" /object", -10},
        {L"1", -10},
        {L"//", -10},
        {L"/Object", -10},
        {L"/ARRAY", -10},
        {L"/object/", -10},
        {L"/array/", -10},
        {L"/missing", -10},
        {L"/missing/below", -10},
        {L"/object/missing", -10},
        {L"/emptied/inside", -10},
        {L"/array/1", -10},
        {L"/array/0", -10},
        {L"/array/-1", -10},
        {L"/array/x", -10},
        {L"/array/x1", -10},
        {L"/array/-", -10},
        {L"/text/x", -10},
        {L"/text/1", -10},
        {L"/number/1", -10},
        {L"/nothing/1", -10},
        {L"/~object", -10},
        {L"/~", -10},
        {L"/object~", -10},
        {L"/missing/1", -5},
        {L"/missing/x1", -5},
        {L"/object/missing/1/deeper", -5},
        {L"/array/1/1", -5},
    };
    return paths;
}

}  // namespace building
