// Long series of calls, some of them wrong, next to a model of what they are to do.

#include <gtest/gtest.h>

#include <random>

#include "GeneratorModel.h"
#include "JsonDll.h"

namespace {

using namespace building;

constexpr int kWalks = 300;
constexpr int kSteps = 150;

const wchar_t* const kKeys[] = {L"a",   L"b",   L"",  L"0",  L"1",  L"2",    L"a/b",
                                L"a/0", L"0/a", L"~", L"~0", L"~1", L"a~1b", L"1x"};

const wchar_t* const kSegments[] = {L"a", L"b",    L"",   L"0",  L"1",  L"2",
                                    L"3", L"a~/b", L"~0", L"~1", L"01", L"1x"};

class Walk {
public:
    Walk(unsigned seed, bool isObject) : random(seed) {
        model.Reset(isObject ? rapidjson::kObjectType : rapidjson::kArrayType);
        EXPECT_EQ(1, isObject ? generator->ResetRootObjectValue(&root)
                              : generator->ResetRootArrayValue(&root));
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->GetItemHandleByPath(L"/", &handle));
        EXPECT_EQ((Answer{1, handle}), model.ItemHandleByPath(L"/"));
    }

    void Step() {
        const int what = Draw(10);
        if (what == 0) {
            AskForHandle();
        } else if (what == 1) {
            AskForPath();
        } else {
            Add();
        }
        ASSERT_EQ(model.Text(), TextOf(*generator));
    }

private:
    int Draw(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); }

    template <class Range>
    const auto& Any(const Range& range) {
        return std::begin(range)[Draw(static_cast<int>(std::size(range)))];
    }

    std::wstring AnyPath() {
        if (Draw(4) == 0) return L"/";
        std::wstring path;
        for (int i = Draw(3); i >= 0; --i) path += std::wstring(L"/") + Any(kSegments);
        return path;
    }

    int32_t AnyHandle() { return Draw(static_cast<int>(model.LastHandle()) + 2); }

    /// One in eight is spoilt.
    Item AnyItem(const Operation& operation) {
        std::vector<Item> items;
        for (const Item& item : Items())
            if (item.kind == operation.kind) items.push_back(item);
        Item item = Any(items);
        if (Draw(8) != 0) return item;
        item.payload.bytes = nullptr;
        item.payload.text = nullptr;
        item.payload.variant.text = nullptr;
        if (Draw(2) == 0) item.payload.variant.tag = 7;
        if (operation.kind == Kind::kSpecialNumber) item.payload.word = 4;
        return item;
    }

    std::wstring AnyPlace() {
        return PointerIn(At(root), Draw(static_cast<int>(CountIn(At(root)))));
    }

    void Add() {
        const Operation& operation = Any(AddingOperations());
        const Item item = AnyItem(operation);
        const std::wstring target = AnyPlace();
        const std::wstring path = AnyPath();
        Arguments arguments = With(item);
        arguments.reference = Draw(10) == 0 ? 0 : ReferenceOf(*Resolve(At(root), target));
        arguments.handle = AnyHandle();
        arguments.path = path.c_str();
        arguments.key = Any(kKeys);
        // Without a key, a variant is added by another operation.
        if (operation.kind != Kind::kVariant && Draw(20) == 0) arguments.key = nullptr;

        SCOPED_TRACE(testing::Message()
                     << operation.name << " of " << item.name << ", handle " << arguments.handle
                     << ", path " << testing::PrintToString(path) << ", reference to "
                     << testing::PrintToString(target) << ", key "
                     << testing::PrintToString(arguments.key) << ", document "
                     << testing::PrintToString(model.Text()));
        const Answer expected = model.Add(operation, item, arguments, target);
        const Answer answer = operation.call(*generator, arguments);
        ASSERT_EQ(expected.result, answer.result);
        if (operation.naming == NamedBy::kReference) {
            EXPECT_EQ(answer.result == 1, !answer.outputs.empty());
        } else {
            EXPECT_EQ(expected, answer);
        }
    }

    void AskForHandle() {
        const std::wstring path = AnyPath();
        SCOPED_TRACE(testing::Message() << "the handle at " << testing::PrintToString(path));
        ASSERT_EQ(model.ItemHandleByPath(path), ItemHandleByPath(*generator, path.c_str()));
    }

    void AskForPath() {
        const int32_t handle = AnyHandle();
        SCOPED_TRACE(testing::Message() << "the path of " << handle);
        std::wstring expected = L"unwritten";
        const int result = model.ItemPath(handle, expected);
        wchar_t path[1024] = L"unwritten";
        ASSERT_EQ(result, generator->GetItemPath(handle, path));
        EXPECT_EQ(expected, path);
    }

    std::mt19937 random;
    support::Generator generator = support::NewGenerator();
    model::GeneratorModel model;
    uint64_t root = 0;
};

TEST(BuildingModel, EveryCallDoesAsTheModel) {
    for (unsigned seed = 0; seed < kWalks; ++seed) {
        Walk walk(seed, seed % 2 == 0);
        for (int step = 0; step < kSteps; ++step) {
            SCOPED_TRACE(testing::Message() << "walk " << seed << ", step " << step);
            walk.Step();
            if (testing::Test::HasFailure()) return;
        }
    }
}

}  // namespace
