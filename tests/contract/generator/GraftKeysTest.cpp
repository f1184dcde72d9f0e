// Keys as they go into the paths that handles stand for: as they are. A "/" or "~" in a key makes a
// path that leads elsewhere or nowhere; the member itself has the key that was given.

#include <gtest/gtest.h>

#include "GraftRoute.h"
#include "GraftScene.h"
#include "JsonDll.h"
#include "OutputForm.h"

namespace {

using support::Answer;
using support::Arguments;
using support::Generator;
using support::GeneratorOf;
using support::GraftSource;
using support::HandleAt;
using support::JsonOf;
using support::NamedBy;
using support::Operation;
using support::PathOf;
using support::StateOf;

/// Grafts an array that holds `number` under `key` into the object with this handle or path.
Answer GraftUnder(const Operation& route, QXJSON::IJsonGenerator& generator, int32_t parent,
                  const std::wstring& path, const std::wstring& key, int number) {
    const GraftSource source(route, L"[" + std::to_wstring(number) + L"]");
    Arguments arguments;
    arguments.handle = parent;
    arguments.path = path.c_str();
    arguments.key = key.c_str();
    arguments.payload.text = source.Argument();
    return route.call(generator, arguments);
}

template <class Check>
void ForAllMemberRoutes(const Check& check) {
    for (const Operation& route : support::GraftsOnly()) {
        if (!route.hasKey) continue;
        SCOPED_TRACE(route.name);
        check(route);
    }
}

struct Key {
    const wchar_t* key;
    const wchar_t* itemPath;  ///< the path that its handle reports
    bool leadsToItself;
};

/// In reported paths a "~1" shows as "~/".
const Key kKeys[] = {
    {L"plain", L"/plain", true},
    {L"", L"/", true},
    {L"1", L"/1", true},
    {L"a1b2", L"/a1b2", true},
    {L" ", L"/ ", true},
    {L"\xE9\x4E2D\xD834\xDD1E", L"/\xE9\x4E2D\xD834\xDD1E", true},
    {L"quo\"te", L"/quo\"te", true},
    {L"x/y", L"/x/y", false},
    {L"/", L"//", false},
    {L"x/1", L"/x/1", false},
    {L"m~n", L"/m~n", false},
    {L"m~", L"/m~", false},
    {L"~", L"/~", false},
    {L"m~1n", L"/m~/n", false},
    {L"m~0n", L"/m~0n", false},
};

TEST(GraftKeys, AreStoredAsTheyAre) {
    ForAllMemberRoutes([](const Operation& route) {
        for (const Key& key : kKeys) {
            SCOPED_TRACE(testing::PrintToString(key.key));
            const Generator generator = GeneratorOf(L"{\"spare\":0}");
            EXPECT_EQ((Answer{1, 2}), GraftUnder(route, *generator, 1, L"/", key.key, 1));
            const model::Document document = model::Parse(JsonOf(*generator));
            ASSERT_EQ(2u, document.MemberCount());
            EXPECT_STREQ(key.key, (document.MemberBegin() + 1)->name.GetString());
            EXPECT_EQ(key.itemPath, PathOf(*generator, 2));
        }
    });
}

/// Under a key whose path does not lead back to it the second graft faults, and its handle is no
/// parent.
TEST(GraftKeys, ASecondGraftUnderTheSameKey) {
    ForAllMemberRoutes([](const Operation& route) {
        for (const Key& key : kKeys) {
            SCOPED_TRACE(testing::PrintToString(key.key));
            const Generator generator = GeneratorOf(L"{\"spare\":0}");
            ASSERT_EQ((Answer{1, 2}), GraftUnder(route, *generator, 1, L"/", key.key, 1));
            const support::GeneratorState before = StateOf(*generator);
            const Answer second = GraftUnder(route, *generator, 1, L"/", key.key, 2);
            uint32_t handle = 0;
            const int below = generator->AddArrayItemJsonString(2, L"[3]", &handle);
            if (key.leadsToItself) {
                EXPECT_EQ((Answer{1, 2}), second);
                EXPECT_EQ(1, below);
                EXPECT_NE(std::wstring::npos, JsonOf(*generator).find(L":[2,[3]]}"));
            } else {
                EXPECT_EQ(Answer(-5), second);
                EXPECT_EQ(0, below);
                EXPECT_EQ(before, StateOf(*generator));
                EXPECT_EQ(3u, HandleAt(*generator, L"/spare"));
            }
        }
    });
}

/// Where the path of such a key leads to something else, that is what its handle stands for.
struct Elsewhere {
    const wchar_t* document;
    const wchar_t* key;
    const wchar_t* grafted;      ///< the document after the first graft
    const wchar_t* overwritten;  ///< and after the second
};

const Elsewhere kElsewhere[] = {
    {L"{\"x\":{\"y\":[]}}", L"x/y", L"{\"x\":{\"y\":[]},\"x/y\":[1]}",
     L"{\"x\":{\"y\":[2]},\"x/y\":[1]}"},
    {L"{\"x\":[5,6]}", L"x/1", L"{\"x\":[5,6],\"x/1\":[1]}", L"{\"x\":[5,[2]],\"x/1\":[1]}"},
    {L"{\"m/n\":0}", L"m~1n", L"{\"m/n\":0,\"m~1n\":[1]}", L"{\"m/n\":[2],\"m~1n\":[1]}"},
    {L"{\"m~n\":0}", L"m~0n", L"{\"m~n\":0,\"m~0n\":[1]}", L"{\"m~n\":[2],\"m~0n\":[1]}"},
    {L"{\"\":{\"\":0}}", L"/", L"{\"\":{\"\":0},\"/\":[1]}", L"{\"\":{\"\":[2]},\"/\":[1]}"},
};

TEST(GraftKeys, APathThatLeadsElsewhere) {
    ForAllMemberRoutes([](const Operation& route) {
        for (const Elsewhere& row : kElsewhere) {
            SCOPED_TRACE(testing::PrintToString(row.key));
            const Generator generator = GeneratorOf(row.document);
            EXPECT_EQ((Answer{1, 2}), GraftUnder(route, *generator, 1, L"/", row.key, 1));
            EXPECT_EQ(row.grafted, JsonOf(*generator));
            EXPECT_EQ((Answer{1, 2}), GraftUnder(route, *generator, 1, L"/", row.key, 2));
            EXPECT_EQ(row.overwritten, JsonOf(*generator));
            uint32_t handle = 0;
            EXPECT_EQ(1, generator->AddArrayItemJsonString(2, L"[3]", &handle));
            EXPECT_EQ(3u, handle);
            EXPECT_NE(std::wstring::npos, JsonOf(*generator).find(L"[2,[3]]"));
        }
    });
}

/// A path that something else got its handle under counts for the first graft already.
TEST(GraftKeys, APathThatHasAHandleAlready) {
    ForAllMemberRoutes([](const Operation& route) {
        const Generator generator = GeneratorOf(L"{\"x\":{\"y\":1},\"m/n\":2}");
        EXPECT_EQ(2u, HandleAt(*generator, L"/x/y"));
        EXPECT_EQ(3u, HandleAt(*generator, L"/m~/n"));
        EXPECT_EQ((Answer{1, 2}), GraftUnder(route, *generator, 1, L"/", L"x/y", 5));
        EXPECT_EQ((Answer{1, 3}), GraftUnder(route, *generator, 1, L"/", L"m~1n", 6));
        EXPECT_EQ(L"{\"x\":{\"y\":[5]},\"m/n\":[6]}", JsonOf(*generator));
        EXPECT_EQ((Answer{1, 4}), GraftUnder(route, *generator, 1, L"/", L"m/n", 7));
        EXPECT_EQ(L"{\"x\":{\"y\":[5]},\"m/n\":[6],\"m/n\":[7]}", JsonOf(*generator));
    });
}

/// Parents whose own path needs an escape, a position or a digit in a key.
TEST(GraftKeys, BelowParentsOfEveryPath) {
    struct Parent {
        const wchar_t* document;
        const wchar_t* path;
        const wchar_t* after;
        const wchar_t* childPath;
    };
    const Parent parents[] = {
        {L"{\"m/n\":{}}", L"/m~/n", L"{\"m/n\":{\"k\":[1]}}", L"/m~/n/k"},
        {L"[0,{}]", L"/2", L"[0,{\"k\":[1]}]", L"/2/k"},
        {L"[[[{}]]]", L"/1/1/1", L"[[[{\"k\":[1]}]]]", L"/1/1/1/k"},
        {L"{\"1\":{\"2\":{}}}", L"/1/2", L"{\"1\":{\"2\":{\"k\":[1]}}}", L"/1/2/k"},
        {L"{\"a\":[{\"b2\":{}}]}", L"/a/1/b2", L"{\"a\":[{\"b2\":{\"k\":[1]}}]}", L"/a/1/b2/k"},
    };
    ForAllMemberRoutes([&](const Operation& route) {
        for (const Parent& parent : parents) {
            SCOPED_TRACE(testing::PrintToString(parent.path));
            const Generator generator = GeneratorOf(parent.document);
            const auto handle = static_cast<int32_t>(HandleAt(*generator, parent.path));
            EXPECT_EQ(2, handle);
            EXPECT_EQ((Answer{1, 3}), GraftUnder(route, *generator, handle, parent.path, L"k", 1));
            EXPECT_EQ(parent.after, JsonOf(*generator));
            EXPECT_EQ(parent.childPath, PathOf(*generator, 3));
            EXPECT_EQ(3u, HandleAt(*generator, parent.childPath));
        }
    });
}

/// Remembered paths have no limit: a long key works, and its handle leads to it.
TEST(GraftKeys, LongKeys) {
    ForAllMemberRoutes([](const Operation& route) {
        for (const size_t length : {1000u, 1022u, 1023u, 1024u, 1025u, 5000u, 100000u}) {
            SCOPED_TRACE(length);
            const std::wstring key(length, L'k');
            const Generator generator = GeneratorOf(L"{\"spare\":0}");
            EXPECT_EQ((Answer{1, 2}), GraftUnder(route, *generator, 1, L"/", key, 1));
            EXPECT_EQ((Answer{1, 2}), GraftUnder(route, *generator, 1, L"/", key, 2));
            uint32_t handle = 0;
            EXPECT_EQ(1, generator->AddArrayItemJsonString(2, L"[3]", &handle));
            EXPECT_EQ(3u, handle);
            EXPECT_EQ(L"{\"spare\":0,\"" + key + L"\":[2,[3]]}", JsonOf(*generator));
        }
    });
}

/// The path of a parent as the caller gives it has one: 1023 units when translated.
TEST(GraftKeys, LongParentPaths) {
    for (const Operation& route : support::GraftsOnly()) {
        if (route.naming != NamedBy::kPath) continue;
        for (const size_t length : {1021u, 1022u, 1023u, 1024u, 5000u}) {
            SCOPED_TRACE(testing::Message() << route << ", " << length);
            const std::wstring key(length, L'k');
            const std::wstring front = L"{\"" + key + L"\":";
            const Generator generator = GeneratorOf(front + (route.hasKey ? L"{}}" : L"[]}"));
            const bool fits = length + 1 <= 1023;
            EXPECT_EQ(fits ? Answer(1, 2) : Answer(-10),
                      GraftUnder(route, *generator, 0, L"/" + key, L"new", 1));
            const std::wstring inner = !fits ? L"" : route.hasKey ? L"\"new\":[1]" : L"[1]";
            EXPECT_EQ(front + (route.hasKey ? L"{" + inner + L"}}" : L"[" + inner + L"]}"),
                      JsonOf(*generator));
        }
    }
}

}  // namespace
