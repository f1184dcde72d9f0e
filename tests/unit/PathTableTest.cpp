// The handles of a generated document against a map of texts.

#include "generator/PathTable.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace QXJSON;

/// The path of a node, told from its segments.
std::wstring PathOf(const PathTable& table, PathTable::Node node) {
    std::wstring path;
    for (; node != PathTable::kRoot; node = table.ParentOf(node))
        path = L'/' + table.TextOf(node) + path;
    return path;
}

/// A table and what is to be in it.
class Model {
public:
    Model() { EXPECT_EQ(1u, Restart()); }

    uint32_t Restart() {
        const uint32_t handle = table.Restart();
        handles = {{L"", handle}};
        known = {{PathTable::kRoot, L""}};
        return handle;
    }

    struct Known {
        PathTable::Node node;
        std::wstring path;
    };
    /// A path that the table was asked for.
    const Known& Any(std::mt19937& random) const { return known[random() % known.size()]; }

    void Child(const Known parent, const std::wstring& key) {
        Check(table.Reach(parent.node, key), parent.path + L'/' + key);
    }
    void Element(const Known parent, uint32_t index) {
        const PathTable::Node node = table.EnterElement(parent.node, index);
        Check(PathTable::Known(node), parent.path + L'/' + std::to_wstring(index));
    }
    void Pointer(const std::wstring& path) { Check(table.Reach(path), path); }

    /// Every handle leads to its path, and no other number to any.
    void CheckHandles() const {
        for (const auto& [path, handle] : handles) {
            const auto node = table.NodeOf(static_cast<int32_t>(handle));
            ASSERT_TRUE(node.has_value()) << handle;
            ASSERT_EQ(path, PathOf(table, *node));
        }
        const auto count = static_cast<int32_t>(handles.size());
        for (const int32_t unknown : {0, -1, count + 1, count + 1000, INT_MAX, INT_MIN})
            EXPECT_FALSE(table.NodeOf(unknown).has_value()) << unknown;
    }

    size_t Count() const { return handles.size(); }
    size_t Paths() const { return known.size(); }

private:
    void Check(const PathTable::Reached reached, const std::wstring path) {
        const uint32_t before = table.Count();
        const PathTable::Node node = table.Enter(reached);
        ASSERT_EQ(reached.Whole(), table.Count() == before);
        const auto handle = handles.find(path);
        ASSERT_EQ(handle == handles.end() ? 0 : handle->second, table.HandleOf(node))
            << testing::PrintToString(path);
        ASSERT_EQ(path, PathOf(table, node));
        if (known.size() < 300'000) known.push_back({node, path});
        if (handle != handles.end() || path.size() % 3 == 0) return;
        table.PrepareIssue();
        const uint32_t issued = table.Issue(node);
        ASSERT_EQ(handles.size() + 1, issued);
        handles[path] = issued;
    }

    JsonAllocator allocator;
    PathTable table{allocator};
    std::map<std::wstring, uint32_t> handles;
    std::vector<Known> known;
};

/// Names that read like numbers, and others; some are several segments.
std::wstring SomeKey(std::mt19937& random) {
    static const wchar_t* const kKeys[] = {L"",
                                           L"0",
                                           L"1",
                                           L"7",
                                           L"10",
                                           L"00",
                                           L"01",
                                           L"-1",
                                           L"1a",
                                           L"a1",
                                           L"~1",
                                           L"~0",
                                           L"~",
                                           L"4294967295",
                                           L"4294967296",
                                           L"99999999999",
                                           L"name",
                                           L"Name",
                                           L"name ",
                                           L"\xE9",
                                           L"a/b",
                                           L"a",
                                           L"b",
                                           L"/",
                                           L"x/1/y/",
                                           L"1/0",
                                           L"a rather long name that is not like the others"};
    if (random() % 3 == 0) return L"key" + std::to_wstring(random() % 500);
    return kKeys[random() % std::size(kKeys)];
}

TEST(PathTable, RandomPaths) {
    std::mt19937 random(3);
    Model model;
    for (int i = 0; i < 60'000; ++i) {
        const Model::Known parent = model.Any(random);
        if (parent.path.size() > 80) continue;
        switch (random() % 4) {
            case 0:
                model.Element(parent, random() % 30);
                break;
            case 1:
                model.Pointer(model.Any(random).path);
                break;
            default:
                model.Child(parent, SomeKey(random));
        }
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(model.Count(), 10'000u);
    EXPECT_GT(model.Paths(), model.Count());
    model.CheckHandles();
}

/// Parents with few children and with many, so that every way of finding them is taken.
TEST(PathTable, ParentsOfAllSizes) {
    Model model;
    for (const uint32_t children : {1u, 7u, 8u, 9u, 10u, 100u, 20'000u}) {
        SCOPED_TRACE(children);
        const std::wstring parent = L"/parent" + std::to_wstring(children);
        for (int round = 0; round < 2; ++round)
            for (uint32_t i = 0; i < children; ++i) {
                model.Pointer(parent + L"/element/" + std::to_wstring(i));
                model.Pointer(parent + L"/name" + std::to_wstring(i));
                if (HasFatalFailure()) return;
            }
    }
    model.CheckHandles();
}

TEST(PathTable, ARestartForgetsEverything) {
    Model model;
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 3000; ++i) model.Pointer(L"/list/" + std::to_wstring(i));
        EXPECT_GT(model.Count(), 1000u);
        model.CheckHandles();
        EXPECT_EQ(1u, model.Restart());
        EXPECT_EQ(1u, model.Count());
        model.CheckHandles();
    }
}

/// A table that was never started can be asked too.
TEST(PathTable, BeforeTheFirstRestart) {
    JsonAllocator allocator;
    PathTable table(allocator);
    EXPECT_EQ(0u, table.HandleOf(PathTable::kRoot));
    EXPECT_FALSE(table.NodeOf(1).has_value());
    EXPECT_EQ(PathTable::kRoot, table.Enter(table.Reach(L"")));
    EXPECT_FALSE(table.Reach(L"/a/1").Whole());
    const PathTable::Node child = table.Enter(table.Reach(L"/a/1"));
    EXPECT_EQ(L"/a/1", PathOf(table, child));
    EXPECT_EQ(0u, table.HandleOf(child));
    table.PrepareIssue();
    EXPECT_EQ(1u, table.Issue(child));
}

/// How far a path is known, and that looking for one enters nothing.
TEST(PathTable, ReachesWhatItKnows) {
    JsonAllocator allocator;
    PathTable table(allocator);
    table.Restart();
    const PathTable::Node known = table.Enter(table.Reach(L"/a/b"));
    const uint32_t count = table.Count();
    const PathTable::Reached part = table.Reach(L"/a/b/c/d");
    EXPECT_EQ(known, part.node);
    EXPECT_EQ(L"c/d", part.rest);
    EXPECT_FALSE(part.Whole());
    EXPECT_EQ(L"", table.Reach(L"/a/b/").rest);
    EXPECT_FALSE(table.Reach(L"/a/b/").Whole());
    EXPECT_TRUE(table.Reach(L"/a/b").Whole());
    EXPECT_EQ(L"x/a", table.Reach(L"/x/a").rest);
    EXPECT_EQ(count, table.Count());
    EXPECT_EQ(L"/a/b/c/d", PathOf(table, table.Enter(part)));
    EXPECT_EQ(count + 2, table.Count());
}

}  // namespace
