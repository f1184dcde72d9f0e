// More bytes than can be encoded: the text would not fit into a buffer, or the system cannot count
// its units. None of the bytes is read, and nothing is stored.

#include <gtest/gtest.h>
#include <windows.h>
// wincrypt.h needs the types of windows.h before it.
#include <wincrypt.h>

#include <cstdint>
#include <functional>

#include "ImportPatch.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "PackageState.h"

namespace {

/// The bytes of 2^32 units of two bytes, less the rounding to groups of four units and their zero.
constexpr uint32_t kMost = 1'610'612'733;

const uint32_t kTooMany[] = {kMost + 1, 0x7FFFFFFF, 0x80000000, 0x80000001, 0xFFFFFFFE, UINT32_MAX};

/// One byte is all that there is.
const uint8_t kByte = 0;

/// Ways to give a generator a blob, and what each returns where it has no text.
struct BlobRoute {
    const char* name;
    int answer;
    std::function<int(QXJSON::IJsonGenerator&, uint32_t length)> add;
};

uint64_t RootReference(QXJSON::IJsonGenerator& generator) {
    uint64_t root = 0;
    EXPECT_EQ(1, generator.ResetRootObjectValue(&root));
    return root;
}

const BlobRoute kRoutes[] = {
    {"by reference", -4,
     [](QXJSON::IJsonGenerator& generator, uint32_t length) {
         uint64_t value = RootReference(generator);
         return generator.AddObjectValueBlob(value, L"k", &kByte, length, &value);
     }},
    {"by handle", -4,
     [](QXJSON::IJsonGenerator& generator, uint32_t length) {
         uint32_t handle = 0;
         EXPECT_EQ(1, generator.CreateRootObject(&handle));
         return generator.AddObjectItemBlob(1, L"k", &kByte, length, &handle);
     }},
    {"by path", -4,
     [](QXJSON::IJsonGenerator& generator, uint32_t length) {
         uint32_t handle = 0;
         EXPECT_EQ(1, generator.CreateRootObject(&handle));
         return generator.AddObjectItemBlobByPath(L"/", L"k", &kByte, length, &handle);
     }},
    {"over an item", -5,
     [](QXJSON::IJsonGenerator& generator, uint32_t length) {
         uint32_t handle = 0;
         EXPECT_EQ(1, generator.CreateRootObject(&handle));
         EXPECT_EQ(1, generator.AddObjectItemNull(1, L"k", &handle));
         return generator.AddObjectItemBlob(1, L"k", &kByte, length, &handle);
     }},
    {"to a missing parent", -2,
     [](QXJSON::IJsonGenerator& generator, uint32_t length) {
         uint32_t handle = 0;
         EXPECT_EQ(1, generator.CreateRootObject(&handle));
         return generator.AddObjectItemBlob(99, L"k", &kByte, length, &handle);
     }},
};

void ExpectRefused(uint32_t length) {
    SCOPED_TRACE(length);
    const support::Package package = support::LoadedPackage(L"{\"k\":1}");
    EXPECT_EQ(-3, package->SetValueBlob(L"k", &kByte, length));
    EXPECT_EQ(-3, package->SetValueBlob(L"new", &kByte, length));
    EXPECT_EQ(L"{\"k\":1}", support::PackageText(*package));
    for (const BlobRoute& route : kRoutes) {
        const support::Generator generator = support::NewGenerator();
        EXPECT_EQ(route.answer, route.add(*generator, length)) << route.name;
        const std::wstring text = support::JsonOf(*generator);
        EXPECT_EQ(route.answer == -5 ? L"{\"k\":null}" : L"{}", text) << route.name;
    }
}

TEST(BlobSizes, TooManyBytes) {
    for (const uint32_t length : kTooMany) ExpectRefused(length);
}

int g_calls = 0;

/// A system that counts in too few bits, as Wine does from 2^28 bytes on.
BOOL WINAPI CountTooFew(const BYTE*, DWORD, DWORD, wchar_t* text, DWORD* count) {
    ++g_calls;
    if (text) *text = L'\0';
    *count = 1;
    return TRUE;
}

BOOL WINAPI CountTooMany(const BYTE*, DWORD, DWORD, wchar_t*, DWORD* count) {
    ++g_calls;
    *count = 0x80000000;
    return TRUE;
}

TEST(BlobSizes, ASystemThatCannotCountThem) {
    for (auto* const encoder : {&CountTooFew, &CountTooMany}) {
        const support::ImportPatch encode(support::JsonDll(), "CryptBinaryToStringW", encoder);
        ASSERT_TRUE(encode.Found());
        g_calls = 0;
        ExpectRefused(1);
        EXPECT_EQ(2 + static_cast<int>(std::size(kRoutes)), g_calls) << "it was asked to encode";
    }
}

}  // namespace
