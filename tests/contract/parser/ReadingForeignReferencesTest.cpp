// References that are not of the parser's own document: it reads the memory as it is then, however
// often it has read there before.

#include <gtest/gtest.h>

#include <string>

#include "BuildDocument.h"
#include "JsonDll.h"

namespace {

using building::Value;
using support::Generator;
using support::Parser;

wchar_t LowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool EqualInAnyCase(const std::wstring& a, const std::wstring& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
    return true;
}

/// The first member of that name, by a scan of the memory.
const Value* Scan(uint64_t object, const std::wstring& key) {
    for (const auto& member : building::At(object).GetObject())
        if (EqualInAnyCase(member.name.GetString(), key)) return &member.value;
    return nullptr;
}

constexpr int32_t kUnwritten = -77;

void ExpectAsScan(QXJSON::IJsonParser& parser, uint64_t object, const std::wstring& key) {
    const Value* const expected = Scan(object, key);
    int32_t number = kUnwritten;
    ASSERT_EQ(expected ? 1 : -1, parser.GetMemberIntOfValue(object, key.c_str(), &number))
        << testing::PrintToString(key);
    ASSERT_EQ(expected ? expected->GetInt() : kUnwritten, number) << testing::PrintToString(key);
}

/// All members, in another case too, and some that the object does not have now.
void ExpectAllAsScan(QXJSON::IJsonParser& parser, uint64_t object) {
    for (int round = 0; round < 3; ++round)
        for (int i = 0; i < 30; ++i)
            for (const wchar_t* begin : {L"name ", L"NAME ", L"old ", L"new ", L"another one "})
                ASSERT_NO_FATAL_FAILURE(ExpectAsScan(parser, object, begin + std::to_wstring(i)));
}

std::wstring NameOf(const wchar_t* begin, size_t number) { return begin + std::to_wstring(number); }

/// A parser with an object of its own that is searched as well.
Parser WithDocument() {
    std::wstring json = L"{";
    for (int i = 0; i < 30; ++i)
        json += (i ? L",\"name " : L"\"name ") + std::to_wstring(i) + L"\":" + std::to_wstring(i);
    return support::Loaded((json + L"}").c_str());
}

uint64_t RootOf(QXJSON::IJsonParser& parser) {
    uint64_t root = 0;
    uint32_t type = 0;
    EXPECT_EQ(1, parser.GetRootValue(&root, &type));
    return root;
}

TEST(ReadingForeignReferences, ToMembersThatGetOtherNames) {
    const Parser parser = WithDocument();
    building::Document document;
    auto& allocator = document.GetAllocator();
    document.SetObject();
    for (int i = 0; i < 25; ++i) document.AddMember(Value(L"name", allocator), Value(i), allocator);
    const uint64_t object = building::ReferenceOf(document);
    for (const wchar_t* begin : {L"old ", L"new ", L"another one ", L"old "}) {
        int number = 0;
        for (auto& member : document.GetObject()) {
            member.name = Value(NameOf(begin, static_cast<size_t>(number)).c_str(), allocator);
            member.value = 100 + number++;
        }
        ASSERT_NO_FATAL_FAILURE(ExpectAllAsScan(*parser, object));
        ASSERT_NO_FATAL_FAILURE(ExpectAllAsScan(*parser, RootOf(*parser)));
    }
}

/// Adds members with numbers that nothing else has.
void AddMembers(QXJSON::IJsonGenerator& generator, uint64_t object, const wchar_t* begin,
                size_t first, size_t count) {
    static int32_t last = 1000;
    uint64_t member = 0;
    for (size_t i = first; i < first + count; ++i)
        ASSERT_EQ(1,
                  generator.AddObjectValueInt(object, NameOf(begin, i).c_str(), ++last, &member));
}

TEST(ReadingForeignReferences, ToARootThatIsAnotherObjectNow) {
    const Parser parser = WithDocument();
    const Generator generator = support::NewGenerator();
    for (const wchar_t* begin : {L"old ", L"new ", L"another one ", L"old "}) {
        uint64_t root = 0;
        ASSERT_EQ(1, generator->ResetRootObjectValue(&root));
        ASSERT_NO_FATAL_FAILURE(AddMembers(*generator, root, begin, 0, 22));
        ASSERT_NO_FATAL_FAILURE(ExpectAllAsScan(*parser, root));
        ASSERT_NO_FATAL_FAILURE(ExpectAllAsScan(*parser, RootOf(*parser)));
    }
}

/// Where the array around an object grows, the object moves, and an old reference leads to it as it
/// was. Both add to the same memory: what one has added, the other overwrites.
TEST(ReadingForeignReferences, ToOneObjectInTwoPlaces) {
    const Parser parser = WithDocument();
    const Generator generator = support::NewGenerator();
    uint64_t root = 0, before = 0, element = 0;
    ASSERT_EQ(1, generator->ResetRootArrayValue(&root));
    ASSERT_EQ(1, generator->AddArrayValueObject(root, &before));
    ASSERT_NO_FATAL_FAILURE(AddMembers(*generator, before, L"name ", 0, 18));
    for (int i = 0; i < 20; ++i) ASSERT_EQ(1, generator->AddArrayValueObject(root, &element));
    const uint64_t now = building::ReferenceOf(building::At(root)[0]);
    ASSERT_NE(before, now);
    for (size_t i = 0; i < 3; ++i) {
        ASSERT_NO_FATAL_FAILURE(AddMembers(*generator, now, L"new ", i, 1));
        ASSERT_NO_FATAL_FAILURE(ExpectAllAsScan(*parser, now));
        ASSERT_NO_FATAL_FAILURE(ExpectAllAsScan(*parser, before));
        ASSERT_NO_FATAL_FAILURE(AddMembers(*generator, before, L"old ", i, 1));
        ASSERT_EQ(nullptr, Scan(now, NameOf(L"new ", i)));
        ASSERT_NO_FATAL_FAILURE(ExpectAllAsScan(*parser, now));
        ASSERT_NO_FATAL_FAILURE(ExpectAllAsScan(*parser, before));
    }
}

}  // namespace
