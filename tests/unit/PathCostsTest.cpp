// What it costs to enter paths and handles into a document under construction, and what they hold.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "Growth.h"
#include "generator/DocumentBuilder.h"

namespace {

using namespace QXJSON;
using support::Cost;
using support::CostOfEach;
using support::ExpectFlat;

constexpr int kRoot = 1;

/// A document that is built, and how many items it was given.
class Building {
public:
    explicit Building(bool object = true) {
        builder.StartAnew(JsonValue(object ? rapidjson::kObjectType : rapidjson::kArrayType));
    }

    template <class Item>
    int32_t Add(int32_t parent, const wchar_t* key, const Item& item) {
        return Added(builder.ByHandle(parent), key, item);
    }
    template <class Item>
    int32_t Add(const std::wstring& parent, const wchar_t* key, const Item& item) {
        return Added(builder.ByPath(parent.c_str()), key, item);
    }
    int32_t HandleAt(const std::wstring& path) {
        uint32_t handle = 0;
        EXPECT_EQ(kSuccess, builder.GetHandleByPath(path.c_str(), &handle));
        return static_cast<int32_t>(handle);
    }

    /// For each item. Not counted are texts, which the document itself keeps.
    Cost Each() const { return CostOfEach(Work(), Bytes(), items); }
    uint64_t Work() const { return builder.Paths().Work() + builder.Lookup().Work(); }
    size_t Bytes() const { return builder.Paths().Bytes() + builder.Lookup().Bytes(); }
    size_t Items() const { return items; }
    DocumentBuilder& Builder() { return builder; }

private:
    template <class Item>
    int32_t Added(const DocumentBuilder::Parent& parent, const wchar_t* key, const Item& item) {
        uint32_t handle = 0;
        EXPECT_EQ(kSuccess, builder.Add(parent, key, item, &handle));
        ++items;
        return static_cast<int32_t>(handle);
    }

    DocumentBuilder builder;
    size_t items = 0;
};

/// The most that an item may cost. Its name is looked for, put in, and moved as its table grows:
/// slots that are looked at. Of the bytes a path with its handle takes 36.
constexpr Cost kMost = {10, 100};
constexpr size_t kCount = 5000;

std::wstring Column(size_t number) { return L"column" + std::to_wstring(number); }
std::wstring Row(size_t number) { return L"/" + std::to_wstring(number + 1); }

/// Documents that are rows of so many cells, built by handle and by path.
struct Rows {
    const char* what;
    bool objects;
    bool byPath;
};
constexpr Rows kRows[] = {{"objects by handle", true, false},
                          {"objects by path", true, true},
                          {"arrays by handle", false, false},
                          {"arrays by path", false, true}};

void AddRow(Building& building, const Rows& rows, size_t row, size_t columns) {
    const int32_t handle = rows.objects ? building.Add(kRoot, nullptr, ObjectItem())
                                        : building.Add(kRoot, nullptr, ArrayItem());
    for (size_t i = 0; i < columns; ++i) {
        const std::wstring name = Column(i);
        const wchar_t* const key = rows.objects ? name.c_str() : nullptr;
        const NumberItem<int> item(7);
        if (rows.byPath)
            building.Add(Row(row), key, item);
        else
            building.Add(handle, key, item);
    }
}

TEST(PathCosts, RowsOfAllWidths) {
    for (const Rows& rows : kRows)
        for (const size_t columns : {1u, 7u, 8u, 9u, 10u, 20u}) {
            SCOPED_TRACE(columns);
            // One more child than a chain has takes a table.
            const Cost most = {kMost.work, columns <= 8 ? 100.0 : 120.0};
            ExpectFlat(rows.what, kCount / columns, most, [&](size_t count) {
                Building building(false);
                for (size_t row = 0; row < count; ++row) AddRow(building, rows, row, columns);
                return building.Each();
            });
        }
}

/// Rows after an array that is large.
TEST(PathCosts, RowsAfterALargeArray) {
    for (const Rows& rows : kRows)
        ExpectFlat(rows.what, 10'000, kMost, [&](size_t count) {
            Building building(false);
            const int32_t large = building.Add(kRoot, nullptr, ArrayItem());
            for (size_t i = 0; i < count; ++i) building.Add(large, nullptr, NullItem());
            const uint64_t work = building.Work();
            const size_t bytes = building.Bytes(), items = building.Items();
            for (size_t row = 1; row <= count / 10; ++row) AddRow(building, rows, row, 10);
            return CostOfEach(building.Work() - work, building.Bytes() - bytes,
                              building.Items() - items);
        });
}

/// Three segments, of which the first is the same for all.
TEST(PathCosts, LongerPaths) {
    for (const bool numbered : {false, true})
        ExpectFlat(numbered ? "elements" : "members", kCount, {14, 140}, [&](size_t count) {
            Building building;
            if (numbered)
                building.Add(kRoot, L"rows", ArrayItem());
            else
                building.Add(kRoot, L"rows", ObjectItem());
            for (size_t i = 0; i < count; ++i) {
                const std::wstring name = L"row " + std::to_wstring(i);
                building.Add(L"/rows", numbered ? nullptr : name.c_str(), ObjectItem());
                const std::wstring row = L"/rows" + (numbered ? Row(i) : L"/" + name);
                building.Add(row, L"cells", ArrayItem());
                building.Add(row + L"/cells", nullptr, NullItem());
                building.HandleAt(row + L"/cells/1");
            }
            return building.Each();
        });
}

TEST(PathCosts, OneLargeObject) {
    struct Names {
        const char* what;
        std::wstring (*name)(size_t number);
    };
    constexpr Names kNames[] = {
        {"k1", [](size_t i) { return L"k" + std::to_wstring(i); }},
        {"field_1", [](size_t i) { return L"field_" + std::to_wstring(i); }},
        {"1", [](size_t i) { return std::to_wstring(i); }},
        {"100001, back to front", [](size_t i) { return std::to_wstring(100'000 - i); }}};
    for (const Names& names : kNames)
        for (const bool byPath : {false, true})
            ExpectFlat(names.what, kCount, kMost, [&](size_t count) {
                Building building;
                const int32_t object = building.Add(kRoot, L"object", ObjectItem());
                for (size_t i = 0; i < count; ++i) {
                    if (byPath)
                        building.Add(L"/object", names.name(i).c_str(), NullItem());
                    else
                        building.Add(object, names.name(i).c_str(), NullItem());
                }
                return building.Each();
            });
}

/// Elements of a document that was there before get their handles in some order.
TEST(PathCosts, HandlesInAnyOrder) {
    for (const int order : {0, 1, 2})
        for (const bool objects : {false, true})
            ExpectFlat("handles of what is there", kCount, {12, 120}, [&](size_t count) {
                DocumentBuilder builder;
                builder.StartAnew(JsonValue(rapidjson::kArrayType));
                JsonValue list(objects ? rapidjson::kObjectType : rapidjson::kArrayType);
                std::vector<std::wstring> paths;
                for (size_t i = 0; i < count; ++i) {
                    const std::wstring name = L"n" + std::to_wstring(i);
                    if (objects)
                        list.AddMember(JsonValue(name.c_str(), builder.Allocator()), JsonValue(1),
                                       builder.Allocator());
                    else
                        list.PushBack(JsonValue(1), builder.Allocator());
                    paths.push_back(objects ? L"/" + name : Row(i));
                }
                builder.ReplaceRoot(std::move(list));
                if (order == 1) std::reverse(paths.begin(), paths.end());
                std::mt19937 random(31);
                if (order == 2) std::shuffle(paths.begin(), paths.end(), random);
                for (int round = 0; round < 2; ++round)
                    for (size_t i = 0; i < count; ++i) {
                        uint32_t handle = 0;
                        EXPECT_EQ(kSuccess, builder.GetHandleByPath(paths[i].c_str(), &handle));
                        EXPECT_EQ(i + 2, handle);
                    }
                return CostOfEach((builder.Paths().Work() + builder.Lookup().Work()) / 2,
                                  builder.Paths().Bytes() + builder.Lookup().Bytes(), count);
            });
}

// ---- What fails ---------------------------------------------------------------------------------

/// A number without digits: a path with one faults where its parent does not exist.
std::wstring Letters(std::wstring number) {
    for (wchar_t& digit : number) digit = static_cast<wchar_t>(digit - L'0' + L'a');
    return number;
}

/// A call that fails in some way; each number is another place or name.
struct Failure {
    const char* what;
    int (*call)(DocumentBuilder& builder, const std::wstring& number);
    int result;
};

int AddTo(DocumentBuilder& builder, const std::wstring& path, const wchar_t* key) {
    uint32_t handle = 0;
    return builder.Add(builder.ByPath(path.c_str()), key, NullItem(), &handle);
}

const Failure kFailures[] = {
    {"a handle of nothing",
     [](DocumentBuilder& builder, const std::wstring& number) {
         uint32_t handle = 0;
         return builder.GetHandleByPath((L"/none/" + Letters(number)).c_str(), &handle);
     },
     kBadPath},
    {"a handle of no member",
     [](DocumentBuilder& builder, const std::wstring& number) {
         uint32_t handle = 0;
         return builder.GetHandleByPath((L"/object/name" + number).c_str(), &handle);
     },
     kBadPath},
    {"a handle of no element",
     [](DocumentBuilder& builder, const std::wstring& number) {
         uint32_t handle = 0;
         return builder.GetHandleByPath((L"/list/1" + number).c_str(), &handle);
     },
     kBadPath},
    {"no output for the handle of an item without one",
     [](DocumentBuilder& builder, const std::wstring&) {
         return builder.GetHandleByPath(L"/list/1", nullptr);
     },
     kPlainFailure},
    {"below nothing",
     [](DocumentBuilder& builder, const std::wstring& number) {
         return AddTo(builder, L"/none/" + Letters(number), number.c_str());
     },
     kBadPath},
    {"below what would be a member",
     [](DocumentBuilder& builder, const std::wstring& number) {
         return AddTo(builder, L"/object/name" + number, L"key");
     },
     kBadPath},
    {"below an unknown handle",
     [](DocumentBuilder& builder, const std::wstring& number) {
         uint32_t handle = 0;
         return builder.Add(builder.ByHandle(std::numeric_limits<int32_t>::max()), number.c_str(),
                            NullItem(), &handle);
     },
     kNoValue},
    {"a member of an array",
     [](DocumentBuilder& builder, const std::wstring& number) {
         return AddTo(builder, L"/list", number.c_str());
     },
     kWrongKind},
    {"an element of an object",
     [](DocumentBuilder& builder, const std::wstring&) {
         return AddTo(builder, L"/object", nullptr);
     },
     kWrongKind},
    {"a member of a scalar without a handle",
     [](DocumentBuilder& builder, const std::wstring& number) {
         return AddTo(builder, L"/list/1", number.c_str());
     },
     kWrongKind},
    {"a member, without an output",
     [](DocumentBuilder& builder, const std::wstring& number) {
         uint32_t* const none = nullptr;
         return builder.Add(builder.ByPath(L"/object"), (L"key" + number).c_str(), NullItem(),
                            none);
     },
     kPlainFailure},
    {"members below several segments, without an output",
     [](DocumentBuilder& builder, const std::wstring& number) {
         uint32_t* const none = nullptr;
         return builder.Add(builder.ByPath(L"/object"), (L"a" + number + L"/b/c").c_str(),
                            NullItem(), none);
     },
     kPlainFailure},
    {"an element, without an output",
     [](DocumentBuilder& builder, const std::wstring&) {
         uint32_t* const none = nullptr;
         return builder.Add(builder.ByPath(L"/list"), nullptr, NullItem(), none);
     },
     kPlainFailure},
    {"a member without a text",
     [](DocumentBuilder& builder, const std::wstring& number) {
         uint32_t handle = 0;
         return builder.Add(builder.ByPath(L"/object"), number.c_str(), TextItem(nullptr), &handle);
     },
     kNoText},
    {"an element without a text",
     [](DocumentBuilder& builder, const std::wstring&) {
         uint32_t handle = 0;
         return builder.Add(builder.ByPath(L"/list"), nullptr, TextItem(nullptr), &handle);
     },
     kNoText},
    {"a number that is none",
     [](DocumentBuilder& builder, const std::wstring& number) {
         uint32_t handle = 0;
         return builder.Add(builder.ByPath(L"/object"), number.c_str(), SpecialNumberItem(4),
                            &handle);
     },
     kPlainFailure},
};

/// An object, and a list with elements that have no handles, which nobody's paths lead to yet.
void StartDocument(DocumentBuilder& builder) {
    builder.StartAnew(JsonValue(rapidjson::kObjectType));
    JsonAllocator& allocator = builder.Allocator();
    JsonValue root(rapidjson::kObjectType), list(rapidjson::kArrayType);
    JsonValue object(rapidjson::kObjectType);
    for (int i = 0; i < 5; ++i) list.PushBack(JsonValue(i), allocator);
    object.AddMember(JsonValue(L"there", allocator), JsonValue(1), allocator);
    root.AddMember(JsonValue(L"object", allocator), object, allocator);
    root.AddMember(JsonValue(L"list", allocator), list, allocator);
    builder.ReplaceRoot(std::move(root));
}

TEST(PathCosts, CallsThatFailKeepNothing) {
    for (const Failure& failure : kFailures) {
        DocumentBuilder builder;
        StartDocument(builder);
        const uint32_t paths = builder.Paths().Count();
        const size_t bytes = builder.Paths().Bytes(), values = builder.Pool().Size();
        const size_t searches = builder.Lookup().Bytes();
        for (int i = 0; i < 1000; ++i)
            ASSERT_EQ(failure.result, failure.call(builder, std::to_wstring(i))) << failure.what;
        EXPECT_EQ(paths, builder.Paths().Count()) << failure.what;
        EXPECT_EQ(bytes, builder.Paths().Bytes()) << failure.what;
        EXPECT_EQ(values, builder.Pool().Size()) << failure.what;
        EXPECT_EQ(searches, builder.Lookup().Bytes()) << failure.what;
        // The next handle is the next number.
        uint32_t handle = 0;
        EXPECT_EQ(kSuccess, builder.GetHandleByPath(L"/list/1", &handle)) << failure.what;
        EXPECT_EQ(2u, handle) << failure.what;
    }
}

/// Handles that were asked for are not issued again.
TEST(PathCosts, AskingAgainKeepsNothing) {
    DocumentBuilder builder;
    StartDocument(builder);
    uint32_t handle = 0;
    const auto ask = [&] {
        for (const wchar_t* path : {L"/", L"/object", L"/object/there", L"/list", L"/list/3"})
            EXPECT_EQ(kSuccess, builder.GetHandleByPath(path, &handle));
    };
    ask();
    const uint32_t paths = builder.Paths().Count();
    const size_t bytes = builder.Paths().Bytes(), values = builder.Pool().Size();
    for (int i = 0; i < 1000; ++i) ask();
    EXPECT_EQ(paths, builder.Paths().Count());
    EXPECT_EQ(bytes, builder.Paths().Bytes());
    EXPECT_EQ(values, builder.Pool().Size());
}

}  // namespace
