// Having the library, and not having it.

#include <filesystem>

#include "Host.h"

namespace hosts {
namespace {

/// No objects can be had from it, by either style.
void ExpectUseless(const Library& library) {
    EXPECT_FALSE(library);
    EXPECT_EQ(kNoLibrary, library.NewParser().Code());
    EXPECT_EQ(kNoLibrary, library.NewGenerator().Code());
    EXPECT_EQ(kNoLibrary, library.NewPackage().Code());
    EXPECT_FALSE(*library.NewParser());
    EXPECT_FALSE(*library.NewGenerator());
    EXPECT_FALSE(*library.NewPackage());
    EXPECT_THROW((void)library.NewGenerator().Get(), Error);
    EXPECT_THROW((void)library.NewPackage().Get(), Error);
    try {
        (void)library.NewParser().Get();
        ADD_FAILURE() << "a parser without a library";
    } catch (const Error& error) {
        EXPECT_EQ(kNoLibrary, error.Code());
        EXPECT_NE(std::string::npos, std::string(error.what()).find("Json_Dll.dll was not found"));
    }
}

void ExpectUseful(const Library& library) {
    ASSERT_TRUE(library);
    const Parser parser = library.NewParser().Get();
    EXPECT_TRUE(parser.Load(L"[]"));
    const Generator generator = library.NewGenerator().Get();
    EXPECT_TRUE(generator.NewArray());
    const Package package = library.NewPackage().Get();
    EXPECT_EQ(L"{}", package.Text().Get());
}

TEST(HostLibrary, LoadedByName) {
    const Library library;
    ExpectUseful(library);
    EXPECT_EQ(GetModuleHandleW(L"Json_Dll.dll"), library.Module());
}

TEST(HostLibrary, UnloadedWithItsOwner) {
    const std::filesystem::path copy =
        std::filesystem::temp_directory_path() / L"json_hosting_\u00C6.dll";
    wchar_t original[MAX_PATH] = {};
    GetModuleFileNameW(TheLibrary().Module(), original, MAX_PATH);
    ASSERT_TRUE(CopyFileW(original, copy.c_str(), FALSE));
    {
        Library first(copy.c_str());
        ExpectUseful(first);
        Library second = std::move(first);
        ExpectUseful(second);
        ExpectUseless(first);
        EXPECT_EQ(nullptr, first.Module());
        first = std::move(second);
        ExpectUseful(first);
        ExpectUseless(second);
        second = std::move(first);
        EXPECT_EQ(GetModuleHandleW(copy.c_str()), second.Module());
        EXPECT_NE(nullptr, second.Module());
    }
    EXPECT_EQ(nullptr, GetModuleHandleW(copy.c_str()));
    std::filesystem::remove(copy);
}

TEST(HostLibrary, ALinkedOneMoves) {
    Library first(CreateJsonParser, CreateJsonGenerator, CreateJsonPackageInterface);
    const Library second = std::move(first);
    ExpectUseful(second);
    ExpectUseless(first);
}

TEST(HostLibrary, NotThere) {
    ExpectUseless(Library(L"no such library.dll"));
    EXPECT_EQ(nullptr, Library(L"no such library.dll").Module());
}

TEST(HostLibrary, AnotherDll) { ExpectUseless(Library(L"kernel32.dll")); }

TEST(HostLibrary, Linked) {
    const Library library(CreateJsonParser, CreateJsonGenerator, CreateJsonPackageInterface);
    ExpectUseful(library);
    EXPECT_EQ(nullptr, library.Module());
}

TEST(HostLibrary, SaysItsVersion) {
    const Library library;
    const Result<Version> version = LibraryVersion();
    ASSERT_TRUE(version);
    EXPECT_EQ(JSON_DLL_VERSION, std::to_string(version->major) + "." +
                                    std::to_string(version->minor) + "." +
                                    std::to_string(version->patch));
    EXPECT_EQ(version->minor, LibraryVersion(library.Module()).Get().minor);
}

TEST(HostLibrary, NoVersionWithoutADll) {
    EXPECT_EQ(kNoLibrary, LibraryVersion(nullptr).Code());
    // The test program itself has no resources.
    EXPECT_EQ(kNoLibrary, LibraryVersion(GetModuleHandleW(nullptr)).Code());
}

struct Wanted {
    Version version;
    bool offered;
};

TEST(HostLibrary, AVersionOffersWhatCameBeforeIt) {
    constexpr Version there = {2, 3, 4};
    const Wanted wanted[] = {{{2, 3, 4}, true},  {{2, 3, 3}, true},  {{2, 3, 5}, false},
                             {{2, 2, 9}, true},  {{2, 4, 0}, false}, {{2, 0, 0}, true},
                             {{1, 0, 0}, false}, {{3, 0, 0}, false}};
    for (const Wanted& row : wanted)
        EXPECT_EQ(row.offered, there.Offers(row.version))
            << row.version.major << "." << row.version.minor << "." << row.version.patch;
}

// Factories of the host's own, which note that they were called.
int calls;
QXJSON::IJsonParser* CountedParser() { return ++calls, CreateJsonParser(); }
QXJSON::IJsonGenerator* CountedGenerator() { return ++calls, CreateJsonGenerator(); }
QXJSON::IJsonPackage* CountedPackage() { return ++calls, CreateJsonPackageInterface(); }

TEST(HostLibrary, EachObjectIsOneCallOfItsFactory) {
    calls = 0;
    const Library library(CountedParser, CountedGenerator, CountedPackage);
    EXPECT_TRUE(library);
    EXPECT_EQ(0, calls);
    ExpectUseful(library);
    EXPECT_EQ(3, calls);
}

TEST(HostLibrary, FactoryWithoutMemory) {
    const Library library([]() -> QXJSON::IJsonParser* { return nullptr; },
                          []() -> QXJSON::IJsonGenerator* { return nullptr; },
                          []() -> QXJSON::IJsonPackage* { return nullptr; });
    EXPECT_TRUE(library);
    EXPECT_EQ(QXJSON::kPlainFailure, library.NewParser().Code());
    EXPECT_EQ(QXJSON::kPlainFailure, library.NewGenerator().Code());
    EXPECT_EQ(QXJSON::kPlainFailure, library.NewPackage().Code());
    EXPECT_FALSE(*library.NewParser());
}

TEST(HostLibrary, FactoryMissing) {
    ExpectUseless(Library(static_cast<QXJSON::IJsonParser* (*)()>(nullptr), nullptr, nullptr));
    EXPECT_FALSE(Library(CreateJsonParser, CreateJsonGenerator, nullptr));
    EXPECT_FALSE(Library(CreateJsonParser, nullptr, CreateJsonPackageInterface));
    EXPECT_FALSE(Library(nullptr, CreateJsonGenerator, CreateJsonPackageInterface));
}

}  // namespace
}  // namespace hosts
