// Which operations issue handles, in which order, and that a value has one handle.

#include <gtest/gtest.h>

#include <string>

#include "CatchFault.h"
#include "JsonDll.h"
#include "Mistakes.h"
#include "ParserOperationList.h"
#include "Sites.h"

namespace {

using namespace support;

/// Whether an operation issues handles, shown or not.
bool Issues(const Operation& operation) {
    const bool looksUpAnItem = operation.naming == NamedBy::kHandle && operation.hasKey &&
                               (operation.asks == Asks::kItemType || operation.returnsBool);
    return operation.Takes(parameters::kOutHandle) || looksUpAnItem;
}

/// Those that issue one for a member that is an object.
const Operations& ObjectIssuers() {
    static const Operations issuers =
        OperationsIf(ReadingOperations(), [](const Operation& operation) {
            return Issues(operation) && operation.asks != Asks::kArray;
        });
    return issuers;
}

/// Asks for the value of the member `v`, the second of the root, and reports its handle; operations
/// that issue one without showing it are asked first and the handle is looked up afterwards.
uint32_t HandleFrom(const Operation& operation, QXJSON::IJsonParser& parser) {
    Arguments arguments;
    arguments.handle = 1;
    arguments.path = operation.hasKey || operation.hasIndex ? L"/" : L"/v";
    arguments.key = L"v";
    arguments.index = 1;
    const Answer answer = operation.call(parser, arguments);
    EXPECT_EQ(1, answer.result);
    return operation.Takes(parameters::kOutHandle) ? static_cast<uint32_t>(answer.Number())
                                                   : NextHandle(parser, L"/v");
}

constexpr wchar_t kObjectDocument[] = L"{\"u\":0,\"v\":{},\"w\":0}";

Parser LoadedWithRoot(const wchar_t* json) {
    Parser parser = Loaded(json);
    EXPECT_EQ(1u, SiteOfRoot(*parser).handle);
    return parser;
}

TEST(ReadingHandles, AreDenseFromOneInTheOrderOfFirstRequest) {
    for (const Operation& issuer : ObjectIssuers()) {
        SCOPED_TRACE(issuer.name);
        const Parser parser = LoadedWithRoot(kObjectDocument);
        EXPECT_EQ(2u, HandleFrom(issuer, *parser));
        EXPECT_EQ(3u, NextHandle(*parser, L"/w"));
        EXPECT_EQ(2u, HandleFrom(issuer, *parser));
        EXPECT_EQ(1u, SiteOfRoot(*parser).handle);
        EXPECT_EQ(4u, NextHandle(*parser, L"/u"));
    }
}

/// Nothing reserves handle 1 for the root.
TEST(ReadingHandles, APathCanBeTheFirstRequest) {
    for (const Operation& issuer : ObjectIssuers()) {
        if (issuer.naming == NamedBy::kHandle) continue;
        SCOPED_TRACE(issuer.name);
        const Parser parser = Loaded(kObjectDocument);
        EXPECT_EQ(1u, HandleFrom(issuer, *parser));
        EXPECT_EQ(2u, SiteOfRoot(*parser).handle);
        EXPECT_EQ(3u, NextHandle(*parser, L"/w"));
    }
}

TEST(ReadingHandles, OneValueHasOneHandleWhicheverOperationAsks) {
    for (const Operation& first : ObjectIssuers()) {
        const Parser parser = LoadedWithRoot(kObjectDocument);
        EXPECT_EQ(2u, HandleFrom(first, *parser)) << first.name;
        for (const Operation& later : ObjectIssuers())
            EXPECT_EQ(2u, HandleFrom(later, *parser)) << later.name << " after " << first.name;
        EXPECT_EQ(3u, NextHandle(*parser, L"/w")) << first.name;
    }
}

TEST(ReadingHandles, ArraysAreIssuedLikeObjects) {
    const Parser parser = LoadedWithRoot(L"{\"a\":[[]],\"w\":0}");
    uint32_t handle = 0, type = 0;
    EXPECT_EQ(1, parser->GetArrayItemByPath(L"/a/1", &handle, &type));
    EXPECT_EQ(2u, handle);
    EXPECT_EQ(5u, type);
    EXPECT_EQ(1, parser->GetMemberArrayItem(1, L"a", &handle, &type));
    EXPECT_EQ(3u, handle);
    EXPECT_EQ(1, parser->GetChildItem(3, 0, &handle, &type));
    EXPECT_EQ(2u, handle);
    EXPECT_EQ(1, parser->GetArrayItemByPath(L"/a", &handle, &type));
    EXPECT_EQ(3u, handle);
    EXPECT_EQ(4u, NextHandle(*parser, L"/w"));
}

TEST(ReadingHandles, TheSideEffectsOfMemberQueriesIssueHandles) {
    const Parser parser = LoadedWithRoot(L"{\"a\":1,\"b\":\"x\",\"w\":0}");
    uint32_t handle = 0, type = 0;
    EXPECT_EQ(1, parser->GetMemberItemType(1, L"B", &type));
    EXPECT_EQ(0u, type);
    EXPECT_EQ(0, parser->GetMemberItemType(1, L"c", &type));
    EXPECT_TRUE(parser->ExistsMember(1, L"A"));
    EXPECT_FALSE(parser->ExistsMember(1, L"c"));
    EXPECT_TRUE(parser->ExistsMemberByPath(L"/", L"w"));
    EXPECT_TRUE(parser->ExistsItemByPath(L"/w"));
    EXPECT_EQ(1, parser->GetMemberItem(1, L"a", &handle, &type));
    EXPECT_EQ(3u, handle);
    EXPECT_EQ(1, parser->GetMemberItem(1, L"b", &handle, &type));
    EXPECT_EQ(2u, handle);
    EXPECT_EQ(4u, NextHandle(*parser, L"/w"));
}

TEST(ReadingHandles, EqualValuesInDifferentPlacesHaveDifferentHandles) {
    const Parser parser = LoadedWithRoot(L"{\"a\":[1,1],\"w\":0}");
    uint32_t handle = 0;
    EXPECT_EQ(1, parser->GetItemByPath(L"/a/1", &handle));
    EXPECT_EQ(2u, handle);
    EXPECT_EQ(1, parser->GetItemByPath(L"/a/2", &handle));
    EXPECT_EQ(3u, handle);
    EXPECT_EQ(1, parser->GetItemByPath(L"/a", &handle));
    EXPECT_EQ(4u, handle);
}

TEST(ReadingHandles, ManyHandlesStayDenseAndStable) {
    constexpr uint32_t kCount = 20000;
    std::wstring json = L"[0";
    for (uint32_t i = 1; i < kCount; ++i) json += L"," + std::to_wstring(i);
    const Parser parser = LoadedWithRoot((json + L"]").c_str());
    uint32_t handle = 0, type = 0;
    for (uint32_t i = 0; i < kCount; ++i) {
        ASSERT_EQ(1, parser->GetChildItem(1, kCount - 1 - i, &handle, &type));
        ASSERT_EQ(i + 2, handle);
    }
    for (uint32_t i = 0; i < kCount; ++i) {
        ASSERT_EQ(1, parser->GetChildItem(1, i, &handle, &type));
        ASSERT_EQ(kCount + 1 - i, handle);
        int32_t number = -1;
        ASSERT_EQ(1, parser->GetItemInt(handle, &number));
        ASSERT_EQ(static_cast<int32_t>(i), number);
    }
}

/// Only the operations that hand out items issue handles, whatever else is read.
/// Neighbours whose handles are issued long after each other, in every order of asking for them.
TEST(ReadingHandles, NeighboursMayHaveDistantHandles) {
    constexpr uint32_t kCount = 150'000, kStride = 70'000;
    std::wstring text = L"[0";
    for (uint32_t i = 1; i < kCount; ++i) text += L',' + std::to_wstring(i);
    const Parser parser = LoadedWithRoot((text + L"]").c_str());
    std::vector<uint32_t> handles(kCount);
    uint32_t last = 1, type = 0;
    for (uint32_t start = 0; start < kStride; ++start)
        for (uint32_t i = start; i < kCount; i += kStride) {
            ASSERT_EQ(1, parser->GetChildItem(1, i, &handles[i], &type));
            ASSERT_EQ(++last, handles[i]);
        }
    for (uint32_t i = 0; i < kCount; ++i) {
        uint32_t again = 0, number = 0;
        ASSERT_EQ(1, parser->GetItemUInt(handles[i], &number));
        ASSERT_EQ(i, number);
        ASSERT_EQ(1, parser->GetChildItem(1, i, &again, &type));
        ASSERT_EQ(handles[i], again);
    }
}

TEST(ReadingHandles, OtherOperationsIssueNone) {
    const Parser parser = Loaded(kEveryKind);
    const Calls calls(*parser);
    const uint32_t last = SiteOfMember(*parser, L"text").handle;
    for (const Operation& operation : ParserOperations()) {
        if (operation.asks == Asks::kLoad || operation.asks == Asks::kRelease) continue;
        const bool handsOutItems =
            operation.asks == Asks::kChild && operation.naming != NamedBy::kReference;
        if (handsOutItems) continue;  // the only ones whose good call asks for a fresh value
        operation.call(*parser, calls.Good(operation));
    }
    EXPECT_EQ(last + 1, NextHandle(*parser, kSparePath));
}

TEST(ReadingHandles, FailedOperationsIssueNone) {
    for (const Operation& operation : ParserOperations()) {
        if (operation.asks == Asks::kLoad || operation.asks == Asks::kRelease) continue;
        for (const Mistake mistake : kAllMistakes) {
            if (!CanMake(mistake, operation)) continue;
            SCOPED_TRACE(testing::Message() << operation.name << ", " << NameOf(mistake));
            const Parser parser = Loaded(kEveryKind);
            const Calls calls(*parser);
            const uint32_t last = SiteOfMember(*parser, L"text").handle;
            Arguments arguments = calls.Good(operation);
            calls.Make(mistake, operation, arguments);
            operation.call(*parser, arguments);
            EXPECT_EQ(last + 1, NextHandle(*parser, kSparePath));
        }
    }
}

/// The same for values that have no handle yet: found, but refused.
TEST(ReadingHandles, RefusedValuesGetNone) {
    struct Row {
        const char* operation;
        const wchar_t* path;
        const wchar_t* key;
        std::optional<uintptr_t> second;
    };
    const std::optional<uintptr_t> given = {}, missing = kMissing;
    const Row rows[] = {
        {"GetObjectItemByPath", L"/list", L"", given},
        {"GetObjectItemByPath", L"/number", L"", given},
        {"GetObjectItemByPath", L"/map", L"", missing},
        {"GetArrayItemByPath", L"/map", L"", given},
        {"GetArrayItemByPath", L"/number", L"", given},
        {"GetArrayItemByPath", L"/list", L"", missing},
        {"GetMemberObjectItem", L"", L"list", given},
        {"GetMemberObjectItem", L"", L"number", given},
        {"GetMemberObjectItem", L"", L"map", missing},
        {"GetMemberArrayItem", L"", L"map", given},
        {"GetMemberArrayItem", L"", L"number", given},
        {"GetMemberArrayItem", L"", L"list", missing},
        {"GetMemberItem", L"", L"map", missing},
        {"GetMemberItem", L"", L"absent", given},
        {"GetMemberItemByPath", L"/", L"map", missing},
        {"GetMemberItemByPath", L"/list", L"map", given},
        {"GetChildItem", L"", L"", missing},
        {"GetChildItemByPath", L"/list", L"", missing},
        {"GetChildItemByPath", L"/number", L"", given},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.operation << ' ' << row.path << ' ' << row.key);
        const Parser parser = LoadedWithRoot(L"{\"map\":{},\"list\":[[]],\"number\":1,\"w\":0}");
        Arguments arguments;
        arguments.handle = 1;
        arguments.path = row.path;
        arguments.key = row.key;
        arguments.outputs[1] = row.second;
        EXPECT_GE(0, ParserOperation(row.operation).call(*parser, arguments).result);
        EXPECT_EQ(2u, NextHandle(*parser, L"/w"));
    }
}

TEST(ReadingHandles, MemberQueriesWithoutAnOutputIssueNone) {
    const Parser parser = LoadedWithRoot(L"{\"a\":1,\"w\":0}");
    EXPECT_EQ(0, parser->GetMemberItemType(1, L"a", nullptr));
    EXPECT_EQ(0, parser->GetItemByPath(L"/a", nullptr));
    EXPECT_EQ(2u, NextHandle(*parser, L"/w"));
}

TEST(ReadingHandles, ARootWithoutOutputsGetsNone) {
    const Parser parser = Loaded(L"{\"w\":0}");
    uint32_t handle = 7, type = 7;
    EXPECT_EQ(0, parser->GetRootItem(nullptr, &type));
    EXPECT_EQ(0, parser->GetRootItem(&handle, nullptr));
    EXPECT_EQ(7u, handle);
    EXPECT_EQ(7u, type);
    EXPECT_EQ(1u, NextHandle(*parser, L"/w"));
}

TEST(ReadingHandles, AFaultIssuesNone) {
    const Parser parser = LoadedWithRoot(L"{\"a\":1,\"w\":0}");
    uint32_t handle = 7, type = 7;
    EXPECT_EQ(-5, parser->GetItemByPath(L"/missing/1", &handle));
    EXPECT_EQ(-5, parser->GetObjectItemByPath(L"/missing/1", &handle, &type));
    EXPECT_EQ(7u, handle);
    EXPECT_NE(0u, CatchFault([&] { parser->ExistsItemByPath(L"/missing/1"); }));
    EXPECT_EQ(2u, NextHandle(*parser, L"/w"));
}

}  // namespace
