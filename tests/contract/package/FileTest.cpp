// Saving to files: names that can be used and names that cannot, marks, what was there before.

#include <gtest/gtest.h>

#include "BytesAtAnEdge.h"
#include "PackageReference.h"
#include "PackageState.h"
#include "Selectors.h"
#include "TempFile.h"

namespace {

using support::kAllSelectors;
using support::kUnknownSelectors;
using support::LoadedPackage;
using support::Package;
using support::TempFile;

std::string Expected(const std::wstring& text, int encoding) {
    return support::MarkOf(encoding) + model::ReferencePackageBytes(text, encoding);
}

TEST(PackageFile, HoldsTheMarkAndTheText) {
    const std::wstring text = L"{\"a\":\"\xE9\"}";
    const Package package = LoadedPackage(text);
    for (const int32_t encoding : kAllSelectors) {
        const TempFile file;
        EXPECT_EQ(1, package->SaveToFile(file.Name(), encoding));
        EXPECT_TRUE(file.IsClosed());
        EXPECT_EQ(support::MarkOf(encoding) + support::TextIn(encoding, text), file.Bytes());
    }
}

TEST(PackageFile, AnEmptyPackageIsAnEmptyObject) {
    const Package package = support::NewPackage();
    for (const int32_t encoding : kAllSelectors) {
        const TempFile file;
        EXPECT_EQ(1, package->SaveToFile(file.Name(), encoding));
        EXPECT_EQ(Expected(L"{}", encoding), file.Bytes());
    }
}

/// Around the ends of the blocks in which the file is written.
TEST(PackageFile, OfEverySize) {
    for (const size_t base : {55u, 115u, 240u, 500u, 1010u})
        for (size_t size = base; size < base + 20; ++size) {
            const std::wstring text = L"{\"k\":\"" + std::wstring(size, L'x') + L"\"}";
            const Package package = LoadedPackage(text);
            for (const int32_t encoding : kAllSelectors) {
                const TempFile file;
                ASSERT_EQ(1, package->SaveToFile(file.Name(), encoding));
                ASSERT_EQ(Expected(text, encoding), file.Bytes()) << size << ' ' << encoding;
            }
        }
}

TEST(PackageFile, LineEndsAndControlZAreNoText) {
    const std::wstring text = L"{\"k\":\"\x0A0D\x1A1A\x0D0A\"}";
    const Package package = LoadedPackage(text);
    for (const int32_t encoding : kAllSelectors) {
        const TempFile file;
        EXPECT_EQ(1, package->SaveToFile(file.Name(), encoding));
        EXPECT_EQ(Expected(text, encoding), file.Bytes());
    }
}

TEST(PackageFile, TakesThePlaceOfWhatWasThere) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    for (const std::string& before : {std::string(), std::string(10000, 'x')}) {
        const TempFile file(before);
        EXPECT_EQ(1, package->SaveToFile(file.Name(), 2));
        EXPECT_EQ("\xEF\xBB\xBF{\"a\":1}", file.Bytes());
        EXPECT_EQ(1, package->SaveToFile(file.Name(), 0));
        EXPECT_EQ("{\"a\":1}", file.Bytes());
    }
}

TEST(PackageFile, UnknownEncodingsLeaveAnEmptyFile) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    for (const int32_t encoding : kUnknownSelectors) {
        SCOPED_TRACE(encoding);
        const TempFile fresh;
        EXPECT_EQ(1, package->SaveToFile(fresh.Name(), encoding));
        EXPECT_TRUE(fresh.IsClosed());
        EXPECT_EQ("", fresh.Bytes());
        const TempFile there("earlier");
        EXPECT_EQ(1, package->SaveToFile(there.Name(), encoding));
        EXPECT_TRUE(there.IsClosed());
        EXPECT_EQ("", there.Bytes());
    }
}

TEST(PackageFile, NamesThatCannotBeUsed) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    const TempFile missing;
    const TempFile file("earlier");
    const support::BytesAtAnEdge noEnd(std::string("n\0a\0m\0e\0", 8));
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    for (const int32_t encoding : support::kKnownAndUnknownSelectors) {
        EXPECT_EQ(0, package->SaveToFile(nullptr, encoding));
        EXPECT_EQ(0, package->SaveToFile(L"", encoding));
        EXPECT_EQ(0, package->SaveToFile(support::NowhereInMemory<const wchar_t>(), encoding));
        EXPECT_EQ(0,
                  package->SaveToFile(reinterpret_cast<const wchar_t*>(noEnd.Begin()), encoding));
        EXPECT_EQ(0, package->SaveToFile(folder, encoding));
        const std::wstring inMissingFolder = missing.Name() + std::wstring(L"\\below.json");
        EXPECT_EQ(0, package->SaveToFile(inMissingFolder.c_str(), encoding));
        const std::wstring inFile = file.Name() + std::wstring(L"\\below.json");
        EXPECT_EQ(0, package->SaveToFile(inFile.c_str(), encoding));
        EXPECT_EQ(0, package->SaveToFile(L"no?such*name", encoding));
        EXPECT_EQ(0, package->SaveToFile(std::wstring(40000, L'n').c_str(), encoding));
    }
    EXPECT_FALSE(missing.Exists());
    EXPECT_EQ("earlier", file.Bytes());
    EXPECT_EQ(L"{\"a\":1}", support::PackageText(*package));
}

bool OpensForWriting(const TempFile& file) {
    HANDLE handle = CreateFileW(file.Name(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return false;
    CloseHandle(handle);
    return true;
}

/// Such a file passes the probe, which only reads. Whether it then opens for writing, the system
/// decides; there are accounts that nothing is read-only for.
TEST(PackageFile, AReadOnlyFileStaysAsItIsUnlessItOpensAllTheSame) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    for (const int encoding : {0, 5}) {
        const TempFile file("earlier");
        SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_READONLY);
        const bool opens = OpensForWriting(file);
        EXPECT_EQ(opens ? 1 : 0, package->SaveToFile(file.Name(), encoding));
        SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_NORMAL);
        EXPECT_TRUE(file.IsClosed());
        EXPECT_EQ(!opens ? "earlier" : encoding == 0 ? "{\"a\":1}" : "", file.Bytes());
    }
}

/// A file that somebody has open in a way that does not let it be read, or written.
TEST(PackageFile, AFileInUseStaysAsItIs) {
    struct Row {
        const char* name;
        DWORD access;
        DWORD share;
    };
    const Row rows[] = {
        {"exclusive", GENERIC_READ, 0},
        {"others may read", GENERIC_READ, FILE_SHARE_READ},
        {"others may write", GENERIC_READ, FILE_SHARE_WRITE},
        {"is being written", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE},
    };
    const Package package = LoadedPackage(L"{\"a\":1}");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const TempFile file("earlier");
        HANDLE other =
            CreateFileW(file.Name(), row.access, row.share, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(INVALID_HANDLE_VALUE, other);
        EXPECT_EQ(0, package->SaveToFile(file.Name(), 2));
        CloseHandle(other);
        EXPECT_TRUE(file.IsClosed());
        EXPECT_EQ("earlier", file.Bytes());
        EXPECT_EQ(1, package->SaveToFile(file.Name(), 0));
        EXPECT_EQ("{\"a\":1}", file.Bytes());
    }
}

TEST(PackageFile, WhatIsSavedLoads) {
    const std::wstring text =
        L"{\"\xE9\":\"\x4E2D\xD834\xDD1E\",\"n\":[1,-2.5,1e300],\"o\":{\"\":null},\"k\":"
        L"\"\\u0000\"}";
    const Package package = LoadedPackage(text);
    for (const int32_t encoding : kAllSelectors) {
        SCOPED_TRACE(encoding);
        const TempFile file;
        EXPECT_EQ(1, package->SaveToFile(file.Name(), encoding));
        const Package again = support::NewPackage();
        EXPECT_EQ(support::PackageLoaded(text),
                  support::PackageOutcomeOf(*again, again->LoadFile(file.Name())));
        // A package may also go back to where it came from.
        EXPECT_EQ(1, again->SaveToFile(file.Name(), encoding));
        EXPECT_EQ(Expected(text, encoding), file.Bytes());
    }
}

/// The text that cannot be carried on ends the output, not the call.
TEST(PackageFile, IsClosedWhereTheTextEndsEarly) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    EXPECT_EQ(1, package->SetValueString(L"b", L"\xD800"));
    for (const int32_t encoding : kAllSelectors) {
        const TempFile file;
        EXPECT_EQ(1, package->SaveToFile(file.Name(), encoding));
        EXPECT_TRUE(file.IsClosed());
    }
}

}  // namespace
