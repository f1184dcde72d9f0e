// A child that already has a handle is overwritten where it stands: by every kind, over every kind,
// and where it is no longer there.

#include <gtest/gtest.h>

#include "BuildScene.h"

namespace {

using namespace building;

support::Operations Overwriting() {
    return OperationsIf(AddingOperations(), [](const Operation& operation) {
        return operation.hasKey && operation.naming != NamedBy::kReference;
    });
}

/// Adds an item under a key by handle; the handle of the new item.
uint32_t Add(Scene& scene, int32_t parent, const wchar_t* key, const Item& item) {
    Arguments arguments = With(item);
    arguments.handle = parent;
    arguments.key = key;
    const Answer answer = AddingOperation(item.kind, NamedBy::kHandle, key != nullptr)
                              .call(scene.Generator(), arguments);
    EXPECT_EQ(1, answer.result);
    return static_cast<uint32_t>(answer.Number());
}

int32_t HandleOf(Scene& scene, const wchar_t* member) { return scene.Naming(member).handle; }

/// What stands under the key before it is overwritten.
struct Earlier {
    const char* name;
    uint32_t (*add)(Scene& scene, int32_t parent, const wchar_t* key);
};

template <Kind kind>
uint32_t AddSome(Scene& scene, int32_t parent, const wchar_t* key) {
    return Add(scene, parent, key, SomeItem(kind));
}

uint32_t AddFullObject(Scene& scene, int32_t parent, const wchar_t* key) {
    const uint32_t handle = Add(scene, parent, key, ObjectItem());
    Add(scene, static_cast<int32_t>(handle), L"inner", StringItem(L"lost"));
    Add(scene, static_cast<int32_t>(handle), L"1", ArrayItem());
    return handle;
}

uint32_t AddFullArray(Scene& scene, int32_t parent, const wchar_t* key) {
    const uint32_t handle = Add(scene, parent, key, ArrayItem());
    Add(scene, static_cast<int32_t>(handle), nullptr, ObjectItem());
    Add(scene, static_cast<int32_t>(handle), nullptr, IntItem(1));
    return handle;
}

const Earlier kEarlier[] = {
    {"an object", AddFullObject},         {"an array", AddFullArray},
    {"a string", AddSome<Kind::kString>}, {"a number", AddSome<Kind::kInt>},
    {"a double", AddSome<Kind::kDouble>}, {"a flag", AddSome<Kind::kBoolean>},
    {"null", AddSome<Kind::kNull>},
};

TEST(BuildingOverwriting, EveryKindOverEveryKindInPlace) {
    for (const Operation& operation : Overwriting()) {
        for (const Item& item : Items()) {
            if (item.kind != operation.kind) continue;
            for (const Earlier& earlier : kEarlier) {
                SCOPED_TRACE(operation.name + " of " + item.name + " over " + earlier.name);
                Scene scene;
                Arguments arguments = scene.Naming(L"object");
                Add(scene, arguments.handle, L"before", IntItem(1));
                const uint32_t handle = earlier.add(scene, arguments.handle, L"key");
                Add(scene, arguments.handle, L"after", IntItem(2));
                Document expected = scene.Copy();
                *Resolve(expected, L"/object/key") =
                    Stored(item, operation.naming, expected.GetAllocator());
                const uint32_t next = scene.NextHandle() + 1;

                arguments.key = L"key";
                arguments.payload = item.payload;
                const Answer answer = operation.call(scene.Generator(), arguments);
                EXPECT_EQ((Answer{1, handle}), answer);
                EXPECT_EQ(TextOf(expected), scene.Text());
                EXPECT_EQ(next, scene.NextHandle());
            }
        }
    }
}

TEST(BuildingOverwriting, AContainerPutOverAnotherTakesItsOwnChildren) {
    Scene scene;
    const int32_t object = HandleOf(scene, L"object");
    const auto handle = static_cast<int32_t>(AddFullObject(scene, object, L"key"));
    EXPECT_EQ(handle, static_cast<int32_t>(Add(scene, object, L"key", ArrayItem())));
    const uint32_t element = Add(scene, handle, nullptr, StringItem(L"new"));
    EXPECT_EQ(LR"({"key":["new"]})", TextOf(*Resolve(At(scene.Naming(L"").reference), L"/object")));
    EXPECT_LT(static_cast<uint32_t>(handle), element);
}

/// Ways in which a call on a child that has a handle fails without changing it.
struct Refusal {
    const char* name;
    bool (*has)(const Operation& operation);
    void (*spoil)(Arguments& arguments);
    int result;
};

const Refusal kRefusals[] = {
    {"no text", [](const Operation& o) { return o.kind == Kind::kString; },
     [](Arguments& a) { a.payload.text = nullptr; }, -5},
    {"no text in the variant", [](const Operation& o) { return o.kind == Kind::kVariant; },
     [](Arguments& a) { a.payload.variant = TextVariant(nullptr).payload.variant; }, -5},
    {"a bad tag", [](const Operation& o) { return o.kind == Kind::kVariant; },
     [](Arguments& a) { a.payload.variant.tag = 21; }, 0},
    {"no bytes", [](const Operation& o) { return o.kind == Kind::kBlob; },
     [](Arguments& a) { a.payload.bytes = nullptr; }, 0},
    {"a bad selector", [](const Operation& o) { return o.kind == Kind::kSpecialNumber; },
     [](Arguments& a) { a.payload.word = 4; }, 0},
    {"no output", [](const Operation&) { return true; },
     [](Arguments& a) { a.outputs[0] = kMissing; }, 0},
};

TEST(BuildingOverwriting, ARefusedItemLeavesTheOldOne) {
    for (const Operation& operation : Overwriting()) {
        for (const Refusal& refusal : kRefusals) {
            if (!refusal.has(operation)) continue;
            SCOPED_TRACE(operation.name + ", " + refusal.name);
            Scene scene;
            Arguments arguments = scene.Naming(L"object");
            AddFullObject(scene, arguments.handle, L"key");
            const std::wstring text = scene.Text();
            const uint32_t next = scene.NextHandle() + 1;
            arguments.key = L"key";
            arguments.payload = SomeItem(operation.kind).payload;
            refusal.spoil(arguments);
            EXPECT_EQ((Answer{refusal.result}), operation.call(scene.Generator(), arguments));
            EXPECT_EQ(text, scene.Text());
            EXPECT_EQ(next, scene.NextHandle());
        }
    }
}

/// What `emptied` is when its former child is added again. The child's path leads nowhere.
const Item kNowhere[] = {ObjectItem(), ArrayItem(),    StringItem(L"flat"),
                         IntItem(5),   BooleanItem(1), NullItem()};

TEST(BuildingOverwriting, AChildWhosePathLeadsNowhere) {
    for (const Operation& operation : Overwriting()) {
        for (const Item& item : Items()) {
            if (item.kind != operation.kind) continue;
            for (const Item& parent : kNowhere) {
                SCOPED_TRACE(operation.name + " of " + item.name + " in " + parent.name);
                Scene scene;
                Add(scene, HandleOf(scene, L""), L"emptied", parent);
                const std::wstring text = scene.Text();
                const uint32_t next = scene.NextHandle() + 1;
                Arguments arguments = scene.Naming(L"emptied");
                arguments.key = L"inside";
                arguments.payload = item.payload;
                const Answer faults = {-5};
                const Answer writesNothing = {1, static_cast<uint64_t>(scene.LostHandle())};
                EXPECT_EQ(IsText(item) ? faults : writesNothing,
                          operation.call(scene.Generator(), arguments));
                EXPECT_EQ(text, scene.Text());
                EXPECT_EQ(next, scene.NextHandle());
            }
        }
    }
}

/// By handle the parent itself may be gone: a child that has a handle is found before that.
TEST(BuildingOverwriting, AChildOfAParentThatIsGone) {
    for (const Operation& operation : Overwriting()) {
        SCOPED_TRACE(operation.name);
        Scene scene;
        const int32_t object = HandleOf(scene, L"object");
        const auto middle = static_cast<int32_t>(Add(scene, object, L"middle", ObjectItem()));
        const uint32_t child = Add(scene, middle, L"child", IntItem(1));
        Add(scene, HandleOf(scene, L""), L"object", ObjectItem());
        const std::wstring text = scene.Text();

        Arguments arguments = With(SomeItem(operation.kind));
        arguments.handle = middle;
        arguments.path = L"/object/middle";
        const bool byPath = operation.naming == NamedBy::kPath;
        const Answer known = IsText(SomeItem(operation.kind)) ? Answer{-5} : Answer{1, child};
        arguments.key = L"child";
        EXPECT_EQ(byPath ? Answer{-10} : known, operation.call(scene.Generator(), arguments));
        arguments.key = L"new child";
        EXPECT_EQ(Answer{byPath ? -10 : -2}, operation.call(scene.Generator(), arguments));
        EXPECT_EQ(text, scene.Text());
    }
}

/// Once something is there again, the old handle leads to it.
TEST(BuildingOverwriting, AnOldHandleFindsWhatStandsAtItsPathNow) {
    Scene scene;
    Arguments emptied = scene.Naming(L"emptied");
    uint64_t reference = 0;
    EXPECT_EQ(1, scene.Generator().AddObjectValueArray(emptied.reference, L"inside", &reference));
    const auto lost = static_cast<uint32_t>(scene.LostHandle());
    EXPECT_EQ(lost, Add(scene, emptied.handle, L"inside", ObjectItem()));
    Add(scene, scene.LostHandle(), L"k", IntItem(3));
    EXPECT_EQ(LR"({"inside":{"k":3}})",
              TextOf(*Resolve(At(scene.Naming(L"").reference), L"/emptied")));
}

/// The remembered path decides, not the parent's kind: a key of digits is a position too.
TEST(BuildingOverwriting, AnElementUnderTheKeyOfAnEarlierMember) {
    for (const Operation& operation : Overwriting()) {
        SCOPED_TRACE(operation.name);
        Scene scene;
        const int32_t object = HandleOf(scene, L"object");
        const auto middle = static_cast<int32_t>(Add(scene, object, L"list", ObjectItem()));
        const uint32_t child = Add(scene, middle, L"1", StringItem(L"member"));
        Add(scene, object, L"list", ArrayItem());
        for (const wchar_t* text : {L"first", L"second", L"third"})
            Add(scene, middle, nullptr, StringItem(text));

        Arguments arguments = With(SomeItem(operation.kind));
        arguments.handle = middle;
        arguments.path = L"/object/list";
        arguments.key = L"1";
        EXPECT_EQ((Answer{1, child}), operation.call(scene.Generator(), arguments));
        const Value& list = *Resolve(At(scene.Naming(L"").reference), L"/object/list");
        EXPECT_EQ(L"[\"first\"," + StoredText(SomeItem(operation.kind), operation.naming) +
                      L",\"third\"]",
                  TextOf(list));
        arguments.key = L"2 or another";
        EXPECT_EQ((Answer{-3}), operation.call(scene.Generator(), arguments));
    }
}

TEST(BuildingOverwriting, AppendingNeverOverwritesButFindsTheOldHandle) {
    for (const Operation& operation : AddingOperations()) {
        if (operation.hasKey || operation.naming == NamedBy::kReference) continue;
        SCOPED_TRACE(operation.name);
        Scene scene;
        const int32_t object = HandleOf(scene, L"object");
        const auto list = static_cast<int32_t>(Add(scene, object, L"list", ArrayItem()));
        const uint32_t first = Add(scene, list, nullptr, IntItem(1));
        const uint32_t second = Add(scene, list, nullptr, IntItem(2));
        Add(scene, object, L"list", ArrayItem());

        Arguments arguments = With(SomeItem(operation.kind));
        arguments.handle = list;
        arguments.path = L"/object/list";
        const uint32_t next = scene.NextHandle() + 1;
        EXPECT_EQ((Answer{1, first}), operation.call(scene.Generator(), arguments));
        EXPECT_EQ((Answer{1, second}), operation.call(scene.Generator(), arguments));
        EXPECT_EQ((Answer{1, next}), operation.call(scene.Generator(), arguments));
        const std::wstring text = StoredText(SomeItem(operation.kind), operation.naming);
        const std::wstring all = L"[" + text + L"," + text + L"," + text + L"]";
        EXPECT_EQ(all, TextOf(*Resolve(At(scene.Naming(L"").reference), L"/object/list")));
    }
}

/// A member without a handle is not noticed; once one was asked for, it is.
TEST(BuildingOverwriting, AMemberThatHasNoHandle) {
    for (const Operation& operation : Overwriting()) {
        for (const bool asked : {false, true}) {
            SCOPED_TRACE(testing::Message() << operation.name << (asked ? ", asked for" : ""));
            Scene scene;
            Arguments arguments = scene.Naming(L"object");
            uint64_t reference = 0;
            uint32_t handle = 0;
            auto& generator = scene.Generator();
            EXPECT_EQ(1, generator.AddObjectValueInt(arguments.reference, L"k", 1, &reference));
            EXPECT_EQ(1, generator.AddObjectValueInt(arguments.reference, L"k", 2, &reference));
            if (asked) {
                EXPECT_EQ(1, generator.GetItemHandleByPath(L"/object/k", &handle));
            } else {
                handle = scene.NextHandle() + 1;
            }
            arguments.key = L"k";
            arguments.payload = SomeItem(operation.kind).payload;
            const std::wstring added =
                L"\"k\":" + StoredText(SomeItem(operation.kind), operation.naming);
            EXPECT_EQ((Answer{1, handle}), operation.call(generator, arguments));
            const std::wstring first = L"{" + added + L",\"k\":2";
            const std::wstring after = asked ? first + L"}" : L"{\"k\":1,\"k\":2," + added + L"}";
            EXPECT_EQ(after, TextOf(At(scene.Naming(L"object").reference)));
            // The handle's path leads to the first of the members, not to the one just added.
            EXPECT_EQ((Answer{1, handle}), operation.call(generator, arguments));
            const std::wstring twice = asked ? first + L"}" : first + L"," + added + L"}";
            EXPECT_EQ(twice, TextOf(At(scene.Naming(L"object").reference)));
        }
    }
}

/// A loaded document's members count as any other that has no handle.
TEST(BuildingOverwriting, AMemberThatWasLoaded) {
    const support::Generator generator = support::NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->LoadJsonString(LR"({"a":{"b":1},"c":[2]})", &handle));
    EXPECT_EQ(1, generator->GetItemHandleByPath(L"/a/b", &handle));
    EXPECT_EQ(2u, handle);
    EXPECT_EQ(1, generator->AddObjectItemNullByPath(L"/a", L"b", &handle));
    EXPECT_EQ(2u, handle);
    EXPECT_EQ(1, generator->AddObjectItemNull(1, L"c", &handle));
    EXPECT_EQ(3u, handle);
    EXPECT_EQ(LR"({"a":{"b":null},"c":[2],"c":null})", TextOf(*generator));
}

/// By reference every key makes a member of its own.
TEST(BuildingOverwriting, NeverByReference) {
    Scene scene;
    Arguments arguments = scene.Naming(L"object");
    arguments.key = L"k";
    std::wstring expected;
    Add(scene, arguments.handle, L"k", StringItem(L"has a handle"));
    for (const Operation& operation : AddingOperations()) {
        if (!operation.hasKey || operation.naming != NamedBy::kReference) continue;
        SCOPED_TRACE(operation.name);
        arguments.payload = SomeItem(operation.kind).payload;
        EXPECT_EQ(1, operation.call(scene.Generator(), arguments).result);
        expected += L",\"k\":" + StoredText(SomeItem(operation.kind), operation.naming);
        EXPECT_EQ(L"{\"k\":\"has a handle\"" + expected + L"}",
                  TextOf(At(scene.Naming(L"object").reference)));
    }
}

}  // namespace
