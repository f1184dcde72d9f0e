// Before the first root, the four ways to start a document, and the end.

#include <gtest/gtest.h>

#include <optional>

#include "BuildScene.h"

namespace {

using namespace building;
using QXJSON::IJsonGenerator;
using support::Generator;
using support::NewGenerator;

/// The result of asking for a handle's path: 1 where the handle is known, -2 where it is not.
int PathOf(IJsonGenerator& generator, int32_t handle) {
    wchar_t path[1024];
    return generator.GetItemPath(handle, path);
}

TEST(BuildingRoots, BeforeThereIsOne) {
    for (const Operation& operation : AddingOperations()) {
        SCOPED_TRACE(operation.name);
        const Generator generator = NewGenerator();
        Arguments arguments = With(SomeItem(operation.kind));
        arguments.handle = 1;
        arguments.path = L"/";
        arguments.key = L"k";
        const bool byPath = operation.naming == NamedBy::kPath;
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
    for (const Operation& operation : AddingOperations()) {
        if (operation.naming != NamedBy::kHandle) continue;
        SCOPED_TRACE(operation.name);
        Arguments arguments = With(SomeItem(operation.kind));
        arguments.handle = 1;
        arguments.key = L"k";
        EXPECT_EQ((Answer{-3}), operation.call(*generator, arguments));
    }
    EXPECT_EQ(L"", TextOf(*generator));
}

/// The operations that start a document.
const support::Operations& Starts() {
    static const auto starts = OperationsIf(
        support::GeneratorOperations(),
        [](const Operation& operation) { return operation.asks == support::Asks::kNewRoot; });
    return starts;
}

bool StartsObject(const Operation& start) { return start.name.find("Object") != std::string::npos; }

bool GivesHandle(const Operation& start) { return start.Takes(support::parameters::kOutHandle); }

/// A call whose output is a variable, or is at this address.
Answer Begin(const Operation& start, IJsonGenerator& generator,
             std::optional<uintptr_t> output = {}) {
    Arguments arguments;
    arguments.outputs[0] = output;
    return start.call(generator, arguments);
}

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
        for (const Operation& start : Starts()) {
            SCOPED_TRACE(start.name + " after " + past.name);
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
    ForEveryPastAndStart([](IJsonGenerator& generator, const Operation& start) {
        const Answer answer = Begin(start, generator);
        EXPECT_EQ(GivesHandle(start) ? Answer(1, 1) : Answer(1, answer.Number()), answer);
        EXPECT_EQ(StartsObject(start) ? L"{}" : L"[]", TextOf(generator));
        EXPECT_EQ(GivesHandle(start) ? 1 : -2, PathOf(generator, 1));
        for (const int32_t handle : {0, 2, 3, 4, 5}) EXPECT_EQ(-2, PathOf(generator, handle));
        // A new item at an old item's path gets a handle of its own.
        EXPECT_EQ(GivesHandle(start) ? 2u : 1u, AddByPath(generator, StartsObject(start)));
        EXPECT_EQ(StartsObject(start) ? L"{\"a\":null}" : L"[null]", TextOf(generator));
    });
}

TEST(BuildingRoots, WithoutAHandleTheRootGetsOneWhenItIsAskedFor) {
    for (const Operation& start : Starts()) {
        SCOPED_TRACE(start.name);
        const Generator generator = NewGenerator();
        uint32_t handle = 0;
        EXPECT_EQ(1, Begin(start, *generator).result);
        const uint32_t child = AddByPath(*generator, StartsObject(start));
        EXPECT_EQ(GivesHandle(start) ? 2u : 1u, child);
        EXPECT_EQ(1, generator->GetItemHandleByPath(L"/", &handle));
        EXPECT_EQ(GivesHandle(start) ? 1u : 2u, handle);
        EXPECT_EQ(StartsObject(start) ? 1 : -3,
                  generator->AddObjectItemInt(static_cast<int32_t>(handle), L"b", 1, &handle));
    }
}

/// Without an output there is no root, but what was there before is gone all the same.
TEST(BuildingRoots, WithoutAnOutput) {
    ForEveryPastAndStart([](IJsonGenerator& generator, const Operation& start) {
        EXPECT_EQ(Answer(0), Begin(start, generator, kMissing));
        EXPECT_EQ(L"", TextOf(generator));
        for (const int32_t handle : {0, 1, 2, 3, 4}) EXPECT_EQ(-2, PathOf(generator, handle));
        EXPECT_EQ(1, Begin(start, generator).result);
        EXPECT_EQ(StartsObject(start) ? L"{}" : L"[]", TextOf(generator));
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
