// What every operation adds, in each family: the value, its place, and what is returned.

#include <gtest/gtest.h>

#include "BuildScene.h"

namespace {

using namespace building;

TEST(BuildingItems, TheScene) {
    const Scene scene;
    EXPECT_EQ(
        LR"({"object":{},"array":[],"text":"t","number":7,"flag":true,"nothing":null,)"
        LR"("emptied":{},"spare":[0,0,0,0,0,0,0,0,0,0,0,0]})",
        scene.Text());
}

/// Adds everything that one operation can add, one after the other, below one parent.
class OneAfterTheOther {
public:
    OneAfterTheOther(const Operation& of, const std::wstring& parentName)
        : operation(of), parent(parentName), expected(scene.Copy()), handle(scene.NextHandle()) {}

    void Add(const Item& item) {
        const std::wstring key = L"k" + std::to_wstring(++count);
        Arguments arguments = scene.Naming(parent);
        arguments.key = key.c_str();
        arguments.payload = item.payload;
        const Answer answer = operation.call(scene.Generator(), arguments);
        Expect(item, key);
        EXPECT_EQ(1, answer.result);
        ASSERT_EQ(1u, answer.outputs.size());
        if (operation.naming != NamedBy::kReference) {
            EXPECT_EQ(++handle, answer.Number());
        }
        EXPECT_EQ(TextOf(expected), scene.Text());
    }

    int Count() const { return count; }

private:
    void Expect(const Item& item, const std::wstring& key) {
        Allocator& allocator = expected.GetAllocator();
        Value& place = *Resolve(expected, L"/" + parent);
        Value value = Stored(item, operation.naming, allocator);
        if (operation.hasKey)
            place.AddMember(NewString(key, allocator), value, allocator);
        else
            place.PushBack(value, allocator);
    }

    const Operation& operation;
    std::wstring parent;
    Scene scene;
    Document expected;
    uint64_t handle;
    int count = 0;
};

TEST(BuildingItems, EveryOperationAddsEveryItemOfItsKind) {
    int all = 0;
    for (const Operation& operation : AddingOperations()) {
        OneAfterTheOther adding(operation, operation.hasKey ? L"object" : L"array");
        for (const Item& item : Items()) {
            if (item.kind != operation.kind) continue;
            SCOPED_TRACE(operation.name + " of " + item.name);
            adding.Add(item);
        }
        EXPECT_LT(0, adding.Count()) << operation.name;
        all += adding.Count();
    }
    EXPECT_LT(400, all);
}

TEST(BuildingItems, TheRootTakesEveryKindInEveryFamily) {
    for (const rapidjson::Type root : {rapidjson::kObjectType, rapidjson::kArrayType}) {
        const support::Generator generator = support::NewGenerator();
        Document expected(root);
        Arguments arguments;
        const bool keyed = root == rapidjson::kObjectType;
        EXPECT_EQ(1, keyed ? generator->ResetRootObjectValue(&arguments.reference)
                           : generator->ResetRootArrayValue(&arguments.reference));
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->GetItemHandleByPath(L"/", &handle));
        EXPECT_EQ(1u, handle);
        arguments.handle = 1;
        arguments.path = L"/";
        int count = 0;
        for (const Operation& operation : AddingOperations()) {
            if (operation.hasKey != keyed) continue;
            SCOPED_TRACE(operation.name);
            const Item& item = SomeItem(operation.kind);
            const std::wstring key = L"member " + std::to_wstring(++count);
            arguments.payload = item.payload;
            arguments.key = key.c_str();
            EXPECT_EQ(1, operation.call(*generator, arguments).result);
            Allocator& allocator = expected.GetAllocator();
            Value value = Stored(item, operation.naming, allocator);
            if (keyed)
                expected.AddMember(NewString(key, allocator), value, allocator);
            else
                expected.PushBack(value, allocator);
            EXPECT_EQ(TextOf(expected), TextOf(*generator));
        }
        EXPECT_EQ(41, count);
    }
}

}  // namespace
