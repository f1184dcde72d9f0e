// What the built file must be for the runtime to load it, and for the system to harden it.

#include "PeFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "JsonDll.h"

namespace {

std::wstring DllName() { return support::JsonDllName(); }

const pe::PeFile& Dll() {
    static const pe::PeFile file(DllName());
    return file;
}

/// Every test looks into the file: without headers there is nothing to look at.
class DllFile : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(nullptr, Dll().Headers()); }
};

TEST_F(DllFile, IsA64BitDll) {
    EXPECT_EQ(IMAGE_FILE_MACHINE_AMD64, Dll().Headers()->FileHeader.Machine);
    EXPECT_TRUE(Dll().Headers()->FileHeader.Characteristics & IMAGE_FILE_DLL);
}

TEST_F(DllFile, ExportsTheFactoriesAndNothingElse) {
    const std::vector<std::string> factories = {"CreateJsonGenerator", "CreateJsonPackageInterface",
                                                "CreateJsonParser"};
    EXPECT_EQ(factories, Dll().Exports());
}

TEST_F(DllFile, ImportsFromTheSystemAlone) {
    const std::set<std::string> system = {"kernel32.dll", "msvcrt.dll", "crypt32.dll",
                                          "shlwapi.dll", "user32.dll"};
    const std::vector<std::string> imports = Dll().Imports();
    EXPECT_FALSE(imports.empty());
    for (const std::string& name : imports) EXPECT_TRUE(system.count(name)) << name;
}

struct Flag {
    const char* name;
    WORD bit;
};

TEST_F(DllFile, CanBeLoadedAnywhereAndProtected) {
    constexpr WORD kHighEntropyVa = 0x20;  // MinGW's headers have no name for it
    const Flag flags[] = {{"high-entropy addresses", kHighEntropyVa},
                          {"dynamic base", IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE},
                          {"NX compatible", IMAGE_DLLCHARACTERISTICS_NX_COMPAT}};
    for (const Flag& flag : flags)
        EXPECT_TRUE(Dll().Headers()->OptionalHeader.DllCharacteristics & flag.bit) << flag.name;
    EXPECT_TRUE(Dll().Has(IMAGE_DIRECTORY_ENTRY_BASERELOC)) << "relocations";
    EXPECT_FALSE(Dll().Headers()->FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED);
}

TEST_F(DllFile, SaysItsVersion) {
    DWORD unused = 0;
    const std::wstring name = DllName();
    const DWORD size = GetFileVersionInfoSizeW(name.c_str(), &unused);
    ASSERT_NE(0u, size);
    std::vector<char> info(size);
    ASSERT_TRUE(GetFileVersionInfoW(name.c_str(), 0, size, info.data()));

    void* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(info.data(), L"\\", &fixed, &length));
    const auto& numbers = *static_cast<const VS_FIXEDFILEINFO*>(fixed);
    EXPECT_EQ(JSON_DLL_VERSION, std::to_string(HIWORD(numbers.dwFileVersionMS)) + "." +
                                    std::to_string(LOWORD(numbers.dwFileVersionMS)) + "." +
                                    std::to_string(HIWORD(numbers.dwFileVersionLS)));

    const auto said = [&](const std::wstring& what) -> std::wstring {
        const std::wstring place = L"\\StringFileInfo\\040904B0\\" + what;
        void* text = nullptr;
        if (!VerQueryValueW(info.data(), place.c_str(), &text, &length)) return L"";
        return static_cast<const wchar_t*>(text);
    };
    EXPECT_EQ(L"Json_Dll.dll", said(L"OriginalFilename"));
    EXPECT_EQ(said(L"FileVersion"), said(L"ProductVersion"));
    for (const wchar_t* what : {L"CompanyName", L"FileDescription", L"LegalCopyright"})
        EXPECT_NE(L"", said(what)) << std::filesystem::path(what).string();
}

/// The module's handle has a name in the symbols, which are in a file of their own except in builds
/// for debugging, and is there when the module is loaded.
TEST_F(DllFile, ShowsItsModuleToADebugger) {
    const std::filesystem::path split = DllName() + L".debug";
    const pe::PeFile symbols(exists(split) ? split.wstring() : DllName());
    ASSERT_NE(nullptr, symbols.Headers());
    const DWORD address = symbols.Symbol("_ZL13libraryModule");  // as GCC mangles it
    ASSERT_NE(0u, address);
    const HMODULE module = LoadLibraryW(DllName().c_str());
    ASSERT_NE(nullptr, module);
    EXPECT_EQ(module, *reinterpret_cast<HMODULE*>(reinterpret_cast<char*>(module) + address));
    EXPECT_TRUE(FreeLibrary(module));
}

TEST_F(DllFile, IsEntirelyLoadedAndUnloaded) {
    for (int i = 0; i < 3; ++i) {
        const HMODULE module = LoadLibraryW(DllName().c_str());
        ASSERT_NE(nullptr, module);
        for (const char* name :
             {"CreateJsonParser", "CreateJsonGenerator", "CreateJsonPackageInterface"})
            EXPECT_NE(nullptr, GetProcAddress(module, name)) << name;
        EXPECT_TRUE(FreeLibrary(module));
        EXPECT_EQ(nullptr, GetModuleHandleW(DllName().c_str()));
    }
}

}  // namespace
