// What the package's layers below the facade do on their own, where the facade would hide it.

#include <gtest/gtest.h>
#include <windows.h>
// The macro would rename the package's operation, in this file alone.
#undef LoadString

#include <memory>
#include <string>

#include "CJsonPackageAdapter.h"
#include "package/CRapidJsonPackage.h"

namespace {

using namespace QXJSON;

struct Releaser {
    void operator()(IJsonPackage* package) const { package->Release(); }
};
using Package = std::unique_ptr<IJsonPackage, Releaser>;

std::wstring TextOf(IJsonPackage& package) {
    const wchar_t* text = nullptr;
    EXPECT_EQ(kSuccess, package.GetText(&text));
    return text ? text : L"";
}

/// A delegate that nobody is to call.
class Stranger final : public IJsonPackageDelegate {
public:
    int DelegateExport0(void*, uint16_t, uint32_t, uint32_t, uint32_t, uint32_t, uint8_t,
                        const wchar_t**) override {
        return ++calls;
    }
    int DelegateExport1(void*, uint8_t, uint8_t, uint8_t, uint8_t, uint8_t,
                        const wchar_t**) override {
        return ++calls;
    }
    int DelegateExport2(void*, uint16_t, uint8_t, uint8_t, const wchar_t**) override {
        return ++calls;
    }
    int DelegateExport3(void*, uint8_t, uint8_t, const wchar_t**) override { return ++calls; }
    int DelegateExport4(void*, uint8_t, const wchar_t**) override { return ++calls; }
    int DelegateExport5(void*, uint32_t, const wchar_t**) override { return ++calls; }
    int DelegateImport(void*, const wchar_t*, uint8_t, uint64_t, uint16_t, uint32_t,
                       uint32_t) override {
        return ++calls;
    }

    int calls = 0;
};

/// An operation that only the facade has.
struct Reserved {
    const char* name;
    int (*call)(IJsonPackage& package, const wchar_t** text);
};

const Reserved kReserved[] = {
    {"DelegateExport0",
     [](IJsonPackage& p, const wchar_t** text) {
         return p.DelegateExport0(nullptr, 1, 2, 3, 4, 5, 6, text);
     }},
    {"DelegateExport1",
     [](IJsonPackage& p, const wchar_t** text) {
         return p.DelegateExport1(nullptr, 1, 2, 3, 4, 5, text);
     }},
    {"DelegateExport2",
     [](IJsonPackage& p, const wchar_t** text) {
         return p.DelegateExport2(nullptr, 1, 2, 3, text);
     }},
    {"DelegateExport3",
     [](IJsonPackage& p, const wchar_t** text) { return p.DelegateExport3(nullptr, 1, 2, text); }},
    {"DelegateExport4",
     [](IJsonPackage& p, const wchar_t** text) { return p.DelegateExport4(nullptr, 1, text); }},
    {"DelegateExport5",
     [](IJsonPackage& p, const wchar_t** text) { return p.DelegateExport5(nullptr, 1, text); }},
    {"DelegateImport",
     [](IJsonPackage& p, const wchar_t**) {
         return p.DelegateImport(nullptr, L"[1]", 1, 2, 3, 4, 5);
     }},
    {"SetValueFromDelegate5",
     [](IJsonPackage& p, const wchar_t**) { return p.SetValueFromDelegate5(L"k", nullptr, 1); }},
    {"SetValueFromDelegate0",
     [](IJsonPackage& p, const wchar_t**) {
         return p.SetValueFromDelegate0(L"k", nullptr, 1, 2, 3, 4, 5, 6);
     }},
    {"SetValueFromDelegate1",
     [](IJsonPackage& p, const wchar_t**) {
         return p.SetValueFromDelegate1(L"k", nullptr, 1, 2, 3, 4, 5);
     }},
    {"SetValueFromDelegate2",
     [](IJsonPackage& p, const wchar_t**) {
         return p.SetValueFromDelegate2(L"k", nullptr, 1, 2, 3);
     }},
    {"SetValueFromDelegate3",
     [](IJsonPackage& p, const wchar_t**) { return p.SetValueFromDelegate3(L"k", nullptr, 1, 2); }},
    {"SetValueFromDelegate4",
     [](IJsonPackage& p, const wchar_t**) { return p.SetValueFromDelegate4(L"k", nullptr, 1); }},
    {"GetValueToDelegate",
     [](IJsonPackage& p, const wchar_t**) {
         return p.GetValueToDelegate(L"text", nullptr, 1, 2, 3, 4, 5);
     }},
};

/// A layer below the facade.
struct Behind {
    const char* name;
    Package (*make)();
};

const Behind kBehind[] = {
    {"implementation", [] { return Package(new CRapidJsonPackage); }},
    {"adapter", [] { return Package(new CJsonPackageAdapter); }},
};

TEST(PackageLayers, ReservedOperationsAnswerZero) {
    for (const Behind& behind : kBehind) {
        const Package package = behind.make();
        ASSERT_EQ(kSuccess, package->LoadString(L"{\"text\":\"[1]\"}"));
        Stranger stranger;
        EXPECT_EQ(kPlainFailure, package->SetDelegate(&stranger));
        for (const Reserved& reserved : kReserved) {
            SCOPED_TRACE(testing::Message() << behind.name << ", " << reserved.name);
            const wchar_t* const untouched = L"untouched";
            const wchar_t* text = untouched;
            EXPECT_EQ(kPlainFailure, reserved.call(*package, &text));
            EXPECT_EQ(untouched, text);
            EXPECT_EQ(L"{\"text\":\"[1]\"}", TextOf(*package));
        }
        EXPECT_EQ(0, stranger.calls);
        EXPECT_EQ(kPlainFailure, package->SetDelegate(nullptr));
    }
}

/// A text that does not load, and what an implementation has then.
struct FailedLoad {
    const wchar_t* text;
    int code;
    uint64_t offset;
    bool keeps;
};

const FailedLoad kFailedLoads[] = {
    {L"{\"b\":1,", 4, 14, true}, {L"{\"b\" 1}", 5, 12, true}, {L"{\"b\":x}", 3, 12, true},
    {L"", 21, 0, true},          {L"[1] 2", 2, 10, true},     {nullptr, 18, 0, true},
    {L"5", 22, 0, false},        {L"[1]", 22, 0, false},      {L"null", 22, 0, false},
};

constexpr const wchar_t* kBefore = L"{\"a\":1,\"long name\":\"and a text\"}";

void ExpectLeft(IJsonPackage& package, const std::wstring& text, int code, uint64_t offset) {
    size_t at = 99;
    EXPECT_EQ(text, TextOf(package));
    EXPECT_EQ(code, package.HasError());
    EXPECT_EQ(kSuccess, package.GetErrorOffset(&at));
    EXPECT_EQ(offset, at);
}

TEST(PackageLayers, AnImplementationKeepsItsContentAfterAParseError) {
    for (const FailedLoad& row : kFailedLoads) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text ? row.text : L"null")));
        CRapidJsonPackage* const package = new CRapidJsonPackage;
        ASSERT_EQ(kSuccess, package->LoadString(kBefore));
        const bool isArray = row.text && std::wstring(row.text) == L"[1]";
        EXPECT_EQ(isArray ? kSuccess : kPlainFailure, package->LoadString(row.text));
        ExpectLeft(*package, row.keeps ? kBefore : L"{}", row.code, row.offset);
        double number = 0;
        EXPECT_EQ(row.keeps ? kSuccess : kNoMember, package->GetValueNumber(L"A", &number));
        EXPECT_EQ(kSuccess, package->SetValueNumber(L"A", 2));
        EXPECT_EQ(kSuccess, package->GetValueNumber(L"a", &number));
        EXPECT_EQ(2, number);
        package->Release();
    }
}

/// The adapter starts from nothing.
TEST(PackageLayers, AnAdapterKeepsNothingButTheFlag) {
    for (const FailedLoad& row : kFailedLoads) {
        CJsonPackageAdapter* const package = new CJsonPackageAdapter;
        package->SetIgnoreCase(7);
        ASSERT_EQ(kSuccess, package->LoadString(kBefore));
        package->LoadString(row.text);
        ExpectLeft(*package, L"{}", 1, row.offset);
        uint32_t flag = 0;
        EXPECT_EQ(kSuccess, package->GetIgnoreCase(&flag));
        EXPECT_EQ(7u, flag);
        package->Release();
    }
}

std::wstring FileWith(const char* bytes) {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    std::wstring name =
        folder + (L"json_dll_package_" + std::to_wstring(GetCurrentProcessId()) + L".tmp");
    if (std::FILE* const file = _wfopen(name.c_str(), L"wb")) {
        std::fputs(bytes, file);
        std::fclose(file);
    }
    return name;
}

TEST(PackageLayers, AnImplementationKeepsItsContentAfterAFileThatDoesNotLoad) {
    CRapidJsonPackage* const package = new CRapidJsonPackage;
    ASSERT_EQ(kSuccess, package->LoadString(kBefore));
    EXPECT_EQ(kPlainFailure, package->LoadFile(nullptr));
    ExpectLeft(*package, kBefore, 19, 0);
    const std::wstring broken = FileWith("{\"b\":[1,2}");
    EXPECT_EQ(kPlainFailure, package->LoadFile(broken.c_str()));
    ExpectLeft(*package, kBefore, 7, 10);
    EXPECT_TRUE(DeleteFileW(broken.c_str()));
    EXPECT_EQ(kPlainFailure, package->LoadFile(broken.c_str()));
    ExpectLeft(*package, kBefore, 20, 0);
    const std::wstring whole = FileWith("{\"b\":[1,2]}");
    EXPECT_EQ(kSuccess, package->LoadFile(whole.c_str()));
    ExpectLeft(*package, L"{\"b\":[1,2]}", 0, 0);
    EXPECT_TRUE(DeleteFileW(whole.c_str()));
    package->Release();
}

}  // namespace
