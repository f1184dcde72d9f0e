// Before the first root, the four ways to start a document, and the end.

#include <gtest/gtest.h>

#include <functional>

#include "BuildScene.h"

namespace {

using namespace building;
using QXJSON::IJsonGenerator;
using support::Generator;
using support::NewGenerator;

constexpr uint32_t kUntouched = 4711;

/// The result of asking for a handle's path: 1 where the handle is known, -2 where it is not.
int PathOf(IJsonGenerator& generator, int32_t handle) {
    wchar_t path[1024];
    return generator.GetItemPath(handle, path);
}

TEST(BuildingRoots, BeforeThereIsOne) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        const Generator generator = NewGenerator();
        Arguments arguments = With(SomeItem(operation.kind));
        arguments.handle = 1;
        arguments.path = L"/";
        arguments.key = L"k";
        const bool byPath = operation.family == Family::kPath;
        EXPECT_EQ((Answer{byPath ? -3 : -2}), operation.call(*generator, arguments));
        for (const wchar_t* path : {L"/x", L"/1", L"//"}) {
            arguments.path = path;
            EXPECT_EQ((Answer{byPath ? -10 : -2}), operation.call(*generator, arguments));
        }
        EXPECT_EQ(L"", TextOf(*generator));
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->CreateRootArray(&handle));
        EXPECT_EQ(1u, handle);
        EXPECT_EQ(L"[]", TextOf(*generator));
    }
}

/// The null at the root is a value like any other: it has a path and can have a handle.
TEST(BuildingRoots, BeforeThereIsOneTheRootIsNull) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(-10, generator->GetItemHandleByPath(L"/x", &handle));
    EXPECT_EQ(-10, generator->GetItemHandleByPath(L"/1", &handle));
    EXPECT_EQ(-2, PathOf(*generator, 1));
    EXPECT_EQ(1, generator->GetItemHandleByPath(L"/", &handle));
    EXPECT_EQ(1u, handle);
    wchar_t path[1024] = L"";
    EXPECT_EQ(1, generator->GetItemPath(1, path));
    EXPECT_STREQ(L"/", path);
    for (const Operation& operation : Operations()) {
        if (operation.family != Family::kHandle) continue;
        SCOPED_TRACE(operation.name);
        Arguments arguments = With(SomeItem(operation.kind));
        arguments.handle = 1;
        arguments.key = L"k";
        EXPECT_EQ((Answer{-3}), operation.call(*generator, arguments));
    }
    EXPECT_EQ(L"", TextOf(*generator));
}

/// One of the operations that start a document. The output of those that give a reference and those
/// that give a handle is written here as one.
struct Start {
    const char* name;
    bool isObject;
    bool givesHandle;
    int (*call)(IJsonGenerator& generator, uint64_t* output);
};

template <int (IJsonGenerator::*function)(uint32_t*)>
int GiveHandle(IJsonGenerator& generator, uint64_t* output) {
    if (output == nullptr) return (generator.*function)(nullptr);
    uint32_t handle = kUntouched;
    const int result = (generator.*function)(&handle);
    *output = handle;
    return result;
}

template <int (IJsonGenerator::*function)(uint64_t*)>
int GiveReference(IJsonGenerator& generator, uint64_t* output) {
    return (generator.*function)(output);
}

const Start kStarts[] = {
    {"ResetRootObjectValue", true, false, GiveReference<&IJsonGenerator::ResetRootObjectValue>},
    {"CreateRootObject", true, true, GiveHandle<&IJsonGenerator::CreateRootObject>},
    {"ResetRootArrayValue", false, false, GiveReference<&IJsonGenerator::ResetRootArrayValue>},
    {"CreateRootArray", false, true, GiveHandle<&IJsonGenerator::CreateRootArray>},
};

/// What a generator went through before.
struct Past {
    const char* name;
    void (*live)(IJsonGenerator& generator);
};

void BuildByHandle(IJsonGenerator& generator) {
    uint32_t handle = 0;
    EXPECT_EQ(1, generator.CreateRootObject(&handle));
    EXPECT_EQ(1, generator.AddObjectItemArray(1, L"a", &handle));
    EXPECT_EQ(1, generator.AddArrayItemString(2, L"text", &handle));
    EXPECT_EQ(1, generator.AddArrayItemStringByPath(L"/a", L"text", &handle));
    EXPECT_EQ(4u, handle);
}

void BuildByReference(IJsonGenerator& generator) {
    uint64_t root = 0;
    uint64_t reference = 0;
    uint32_t handle = 0;
    EXPECT_EQ(1, generator.ResetRootArrayValue(&root));
    EXPECT_EQ(1, generator.AddArrayValueNull(root, &reference));
    EXPECT_EQ(1, generator.GetItemHandleByPath(L"/1", &handle));
}

void Load(IJsonGenerator& generator) {
    uint32_t handle = 0;
    EXPECT_EQ(1, generator.LoadJsonString(LR"({"a":[1,{"b":null}]})", &handle));
    EXPECT_EQ(1, generator.GetItemHandleByPath(L"/a/2/b", &handle));
}

void Fail(IJsonGenerator& generator) {
    uint32_t handle = 0;
    EXPECT_EQ(1, generator.CreateRootObject(&handle));
    EXPECT_EQ(-5, generator.AddObjectItemNull(1, nullptr, &handle));
}

const Past kPasts[] = {
    {"nothing", [](IJsonGenerator&) {}},
    {"adds by handle", BuildByHandle},
    {"adds by reference", BuildByReference},
    {"a load", Load},
    {"a failure", Fail},
};

template <class Visit>
void ForEveryPastAndStart(Visit visit) {
    for (const Past& past : kPasts) {
        for (const Start& start : kStarts) {
            SCOPED_TRACE(std::string(start.name) + " after " + past.name);
            const Generator generator = NewGenerator();
            past.live(*generator);
            visit(*generator, start);
        }
    }
}

/// The first item that is added to the root by path or handle.
uint32_t AddByPath(IJsonGenerator& generator, bool toObject) {
    uint32_t handle = 0;
    EXPECT_EQ(1, toObject ? generator.AddObjectItemNullByPath(L"/", L"a", &handle)
                          : generator.AddArrayItemNullByPath(L"/", &handle));
    return handle;
}

TEST(BuildingRoots, StartOverWithNothing) {
    ForEveryPastAndStart([](IJsonGenerator& generator, const Start& start) {
        uint64_t output = 0;
        EXPECT_EQ(1, start.call(generator, &output));
        EXPECT_EQ(start.isObject ? L"{}" : L"[]", TextOf(generator));
        if (start.givesHandle) {
            EXPECT_EQ(1u, output);
        }
        EXPECT_EQ(start.givesHandle ? 1 : -2, PathOf(generator, 1));
        for (const int32_t handle : {0, 2, 3, 4, 5}) EXPECT_EQ(-2, PathOf(generator, handle));
        // A new item at an old item's path gets a handle of its own.
        EXPECT_EQ(start.givesHandle ? 2u : 1u, AddByPath(generator, start.isObject));
        EXPECT_EQ(start.isObject ? L"{\"a\":null}" : L"[null]", TextOf(generator));
    });
}

TEST(BuildingRoots, WithoutAHandleTheRootGetsOneWhenItIsAskedFor) {
    for (const Start& start : kStarts) {
        SCOPED_TRACE(start.name);
        const Generator generator = NewGenerator();
        uint64_t output = 0;
        uint32_t handle = 0;
        EXPECT_EQ(1, start.call(*generator, &output));
        const uint32_t child = AddByPath(*generator, start.isObject);
        EXPECT_EQ(start.givesHandle ? 2u : 1u, child);
        EXPECT_EQ(1, generator->GetItemHandleByPath(L"/", &handle));
        EXPECT_EQ(start.givesHandle ? 1u : 2u, handle);
        EXPECT_EQ(start.isObject ? 1 : -3,
                  generator->AddObjectItemInt(static_cast<int32_t>(handle), L"b", 1, &handle));
    }
}

/// Without an output there is no root, but what was there before is gone all the same.
TEST(BuildingRoots, WithoutAnOutput) {
    ForEveryPastAndStart([](IJsonGenerator& generator, const Start& start) {
        EXPECT_EQ(0, start.call(generator, nullptr));
        EXPECT_EQ(L"", TextOf(generator));
        for (const int32_t handle : {0, 1, 2, 3, 4}) EXPECT_EQ(-2, PathOf(generator, handle));
        uint64_t output = 0;
        EXPECT_EQ(1, start.call(generator, &output));
        EXPECT_EQ(start.isObject ? L"{}" : L"[]", TextOf(generator));
    });
}

TEST(BuildingRoots, WithAnOutputInNoMemory) {
    ForEveryPastAndStart([](IJsonGenerator& generator, const Start& start) {
        if (start.givesHandle) {
            auto* wild = reinterpret_cast<uint32_t*>(uintptr_t{16});
            EXPECT_EQ(-5, start.isObject ? generator.CreateRootObject(wild)
                                         : generator.CreateRootArray(wild));
        } else {
            EXPECT_EQ(-5, start.call(generator, reinterpret_cast<uint64_t*>(uintptr_t{16})));
        }
        EXPECT_EQ(-2, PathOf(generator, 2));
        uint64_t output = 0;
        EXPECT_EQ(1, start.call(generator, &output));
        EXPECT_EQ(start.isObject ? L"{}" : L"[]", TextOf(generator));
    });
}

TEST(BuildingRoots, HandlesCountFromOneEachTime) {
    const Generator generator = NewGenerator();
    for (int i = 0; i < 5; ++i) {
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->CreateRootObject(&handle));
        EXPECT_EQ(1u, handle);
        for (uint32_t next = 2; next < 6; ++next) {
            const std::wstring key = L"k" + std::to_wstring(next);
            EXPECT_EQ(1, generator->AddObjectItemObject(1, key.c_str(), &handle));
            EXPECT_EQ(next, handle);
        }
    }
}

TEST(BuildingRoots, GeneratorsAreIndependent) {
    const Generator first = NewGenerator();
    const Generator second = NewGenerator();
    ASSERT_NE(first.get(), second.get());
    BuildByHandle(*first);
    uint32_t handle = 0;
    EXPECT_EQ(1, second->CreateRootArray(&handle));
    EXPECT_EQ(-2, PathOf(*second, 2));
    EXPECT_EQ(1, second->AddArrayItemInt(1, 1, &handle));
    EXPECT_EQ(2u, handle);
    EXPECT_EQ(1, first->AddArrayItemInt(2, 3, &handle));
    EXPECT_EQ(5u, handle);
    EXPECT_EQ(LR"({"a":["text","text",3]})", TextOf(*first));
    EXPECT_EQ(L"[1]", TextOf(*second));
}

TEST(BuildingRoots, ReleaseAnswersOne) {
    for (const Past& past : kPasts) {
        SCOPED_TRACE(past.name);
        IJsonGenerator* generator = NewGenerator().release();
        past.live(*generator);
        EXPECT_EQ(1, generator->Release());
    }
}

}  // namespace
