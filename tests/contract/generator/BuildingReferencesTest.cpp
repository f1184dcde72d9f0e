// The references that are returned: the new value's address, or what the rule for scalar elements
// gives.

#include <gtest/gtest.h>

#include "BuildScene.h"

namespace {

using namespace building;

constexpr int kAdds = 70;  // enough for the storage of the children to move several times

/// Everything that is added by reference.
template <class Visit>
void ForEveryItem(bool keyed, Visit visit) {
    for (const Operation& operation : AddingOperations()) {
        if (operation.naming != NamedBy::kReference || operation.hasKey != keyed) continue;
        for (const Item& item : Items()) {
            if (item.kind != operation.kind) continue;
            SCOPED_TRACE(operation.name + " of " + item.name);
            visit(operation, item);
        }
    }
}

/// Booleans and numbers.
bool IsScalar(const Item& item) {
    return !IsText(item) && item.kind != Kind::kObject && item.kind != Kind::kArray &&
           item.kind != Kind::kNull;
}

TEST(BuildingReferences, AMembersIsItsAddress) {
    ForEveryItem(true, [](const Operation& operation, const Item& item) {
        Scene scene;
        Arguments arguments = scene.Naming(L"object");
        arguments.payload = item.payload;
        for (int i = 0; i < kAdds; ++i) {
            const std::wstring key = std::to_wstring(i);
            arguments.key = key.c_str();
            const Answer answer = operation.call(scene.Generator(), arguments);
            const auto last = At(arguments.reference).MemberEnd() - 1;
            EXPECT_EQ((Answer{1, ReferenceOf(last->value)}), answer);
            EXPECT_STREQ(key.c_str(), last->name.GetString());
            EXPECT_EQ(StoredText(item, NamedBy::kReference), TextOf(last->value));
        }
    });
}

/// A scalar's is the array's own address plus 16 for each element before it.
TEST(BuildingReferences, AnElementsIsItsAddressUnlessItIsAScalar) {
    ForEveryItem(false, [](const Operation& operation, const Item& item) {
        Scene scene;
        Arguments arguments = scene.Naming(L"array");
        arguments.payload = item.payload;
        for (uint64_t i = 0; i < kAdds; ++i) {
            const Answer answer = operation.call(scene.Generator(), arguments);
            const Value& last = *(At(arguments.reference).End() - 1);
            const uint64_t odd = arguments.reference + 16 * i;
            EXPECT_EQ((Answer{1, IsScalar(item) ? odd : ReferenceOf(last)}), answer);
            EXPECT_EQ(StoredText(item, NamedBy::kReference), TextOf(last));
        }
    });
}

TEST(BuildingReferences, ARootsIsTheRoot) {
    const support::Generator generator = support::NewGenerator();
    uint64_t root = 0;
    EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
    EXPECT_TRUE(At(root).IsObject());
    EXPECT_TRUE(At(root).ObjectEmpty());
    EXPECT_EQ(1, generator->ResetRootArrayValue(&root));
    EXPECT_TRUE(At(root).IsArray());
    EXPECT_TRUE(At(root).Empty());
}

/// Below a parent that has not got another child since.
TEST(BuildingReferences, LeadOnFromContainerToContainer) {
    const support::Generator generator = support::NewGenerator();
    uint64_t root = 0;
    EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
    uint64_t place = root;
    std::wstring before;
    std::wstring after;
    for (int i = 0; i < 100; ++i) {
        uint64_t list = 0;
        EXPECT_EQ(1, generator->AddObjectValueArray(place, L"list", &list));
        EXPECT_EQ(1, generator->AddArrayValueArray(list, &place));
        EXPECT_EQ(1, generator->AddArrayValueObject(place, &list));
        EXPECT_EQ(1, generator->AddObjectValueObject(list, L"next", &place));
        before += LR"({"list":[[{"next":)";
        after += L"}]]}";
    }
    EXPECT_EQ(before + L"{}" + after, TextOf(*generator));
}

/// A reference leads on to the others: what it names can be found by path, and the other way
/// around.
TEST(BuildingReferences, NextToHandlesAndPaths) {
    Scene scene;
    Arguments object = scene.Naming(L"object");
    auto& generator = scene.Generator();
    uint64_t list = 0;
    uint64_t element = 0;
    uint32_t handle = 0;
    uint32_t added = 0;
    EXPECT_EQ(1, generator.AddObjectValueArray(object.reference, L"list", &list));
    EXPECT_EQ(1, generator.AddArrayValueObject(list, &element));
    EXPECT_EQ(1, generator.GetItemHandleByPath(L"/object/list/1", &handle));
    EXPECT_EQ(1, generator.AddObjectItemInt(static_cast<int32_t>(handle), L"a", 1, &added));
    EXPECT_EQ(1, generator.AddObjectValueInt(element, L"b", 2, &element));
    EXPECT_EQ(1, generator.AddObjectItemIntByPath(L"/object/list/1", L"c", 3, &added));
    EXPECT_EQ(LR"({"list":[{"a":1,"b":2,"c":3}]})", TextOf(At(object.reference)));
}

/// The address of any value is taken; what it is decides.
TEST(BuildingReferences, OfNullsAndTextsAreOfTheWrongKind) {
    Scene scene;
    const Arguments object = scene.Naming(L"object");
    const Arguments array = scene.Naming(L"array");
    auto& generator = scene.Generator();
    uint64_t references[4] = {};
    EXPECT_EQ(1, generator.AddObjectValueNull(object.reference, L"null", &references[0]));
    EXPECT_EQ(1, generator.AddArrayValueNull(array.reference, &references[1]));
    EXPECT_EQ(1, generator.AddObjectValueString(object.reference, L"s", L"t", &references[2]));
    EXPECT_EQ(1, generator.AddArrayValueString(array.reference, L"t", &references[3]));
    for (const uint64_t reference : references) {
        uint64_t untouched = 5;
        EXPECT_EQ(-3, generator.AddObjectValueObject(reference, L"k", &untouched));
        EXPECT_EQ(-3, generator.AddArrayValueObject(reference, &untouched));
        EXPECT_EQ(5u, untouched);
    }
}

}  // namespace
