// What the two loads return for good and for broken text: result, message, offset, and the package.

#include <gtest/gtest.h>

#include "PackageState.h"
#include "TempFile.h"

namespace {

using support::LoadForm;
using support::LoadPackageFile;
using support::LoadPackageIn;
using support::LoadPackageText;
using support::NewPackage;
using support::Package;
using support::PackageArrayRoot;
using support::PackageForms;
using support::PackageLoaded;
using support::PackageOutcome;
using support::PackageOutcomeOf;
using support::PackageRefused;

struct Accepted {
    const wchar_t* text;
    const wchar_t* stored;
};

constexpr Accepted kAccepted[] = {
    {L"{}", L"{}"},
    {L" \t\r\n{ \"a\" : [ true , false , null ] }\r\n\t ", L"{\"a\":[true,false,null]}"},
    {L"{\"b\":1,\"a\":{\"z\":{},\"y\":[[]]}}", L"{\"b\":1,\"a\":{\"z\":{},\"y\":[[]]}}"},
    {L"{\"k\":1,\"K\":2,\"k\":3}", L"{\"k\":1,\"K\":2,\"k\":3}"},
    {L"{\"\":0}", L"{\"\":0}"},
    {L"{\"a\":-0,\"b\":18446744073709551615,\"c\":-9223372036854775808}",
     L"{\"a\":0,\"b\":18446744073709551615,\"c\":-9223372036854775808}"},
    {L"{\"a\":[1.5,5.0,1e3,-0.0]}", L"{\"a\":[1.5,5.0,1000.0,-0.0]}"},
    {L"{\"\\u00e9\":\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u001f\"}",
     L"{\"\xE9\":\"\\\"\\\\/\\b\\f\\n\\r\\t\\u001F\"}"},
    {L"{\"\\uD834\\uDD1E\":\"\xE9\x20AC\xD834\xDD1E\"}",
     L"{\"\xD834\xDD1E\":\"\xE9\x20AC\xD834\xDD1E\"}"},
    {L"{\"a\\u0000b\":\"\\u0000\"}", L"{\"a\\u0000b\":\"\\u0000\"}"},
};

TEST(PackageLoad, ObjectsInEveryForm) {
    const Package package = NewPackage();
    for (const LoadForm& form : PackageForms())
        for (const Accepted& row : kAccepted)
            EXPECT_EQ(PackageLoaded(row.stored), LoadPackageIn(form, *package, row.text))
                << form << ": " << testing::PrintToString(row.text);
}

/// A host that includes <windows.h> calls LoadString() by one of these names.
TEST(PackageLoad, UnderTheNamesOfTheSystemsMacro) {
    const Package package = NewPackage();
    for (const wchar_t* text : {L"{\"a\":1}", L"", L"[1]"}) {
        const PackageOutcome expected = LoadPackageText(*package, text);
        EXPECT_EQ(expected, PackageOutcomeOf(*package, package->LoadStringW(text)));
        EXPECT_EQ(expected, PackageOutcomeOf(*package, package->LoadStringA(text)));
    }
}

TEST(PackageLoad, AnArrayAnswersOneAndLeavesAMessage) {
    const Package package = NewPackage();
    for (const LoadForm& form : PackageForms())
        for (const wchar_t* text : {L"[]", L"[1,2]", L" [ {\"a\":1} ] ", L"[\"\x20AC\"]"})
            EXPECT_EQ(PackageArrayRoot(), LoadPackageIn(form, *package, text))
                << form << ": " << testing::PrintToString(text);
}

TEST(PackageLoad, AnyOtherRootAnswersZeroAndLeavesTheSameMessage) {
    const Package package = NewPackage();
    for (const LoadForm& form : PackageForms())
        for (const wchar_t* text : {L"42", L"-1.5e3", L" 5 ", L"\"text\"", L"\"\"", L"true",
                                    L"false", L"null", L"  null  "})
            EXPECT_EQ(PackageRefused(22, 0), LoadPackageIn(form, *package, text))
                << form << ": " << testing::PrintToString(text);
}

/// A text that no load accepts. RapidJSON reads one unit ahead, so that its offset of an error is
/// just after the unit it stumbles over, or the end of the text.
struct Refused {
    const wchar_t* text;
    int code;
    uint64_t offset;  ///< in units of the encoding, without the mark
};

constexpr Refused kRefused[] = {
    {L"{} 1", 2, 4},
    {L"{} {", 2, 4},
    {L"[1]]", 2, 4},
    {L"42 1", 2, 4},
    {L"{\"a\":x}", 3, 6},
    {L"{\"a\":}", 3, 6},
    {L"{\"a\":", 3, 5},
    {L"[,1]", 3, 2},
    {L"[1,]", 3, 4},
    {L"[[", 3, 2},
    {L"nul ", 3, 4},
    {L"{\"a\":tru}", 3, 9},
    {L"{\"a\":/**/1}", 3, 6},
    {L"{\"a\":'b'}", 3, 6},
    // Neither load knows numbers that are not finite.
    {L"{\"a\":NaN}", 3, 6},
    {L"{\"a\":Inf}", 3, 6},
    {L"{\"a\":Infinity}", 3, 6},
    {L"{\"a\":-Infinity}", 3, 7},
    {L"[NaN]", 3, 2},
    {L"{1}", 4, 2},
    {L"{a:1}", 4, 2},
    {L"{\"a\":1,}", 4, 8},
    {L"{\"a\" 1}", 5, 6},
    {L"{\"a\"", 5, 4},
    {L"{\"a\":1]", 6, 7},
    {L"{\"a\":1", 6, 6},
    {L"{\"a\":1 \"b\":2}", 6, 8},
    {L"{\"a\":01}", 6, 7},
    {L"[1}", 7, 3},
    {L"[1 2]", 7, 4},
    {L"{\"a\":\"\\u00g0\"}", 8, 7},
    {L"{\"\\u00g0\":1}", 8, 3},
    {L"{\"a\":\"\\uD800\"}", 9, 7},
    {L"{\"a\":\"\\uD800\\u0041\"}", 9, 7},
    {L"{\"a\":\"\\q\"}", 10, 7},
    {L"{\"a\":\"b\tc\"}", 10, 8},
    {L"{\"a\":\"b", 11, 7},
    {L"{\"a:1}", 11, 6},
    {L"{\"a\":1e309}", 13, 6},
    {L"{\"a\":1.}", 14, 8},
    {L"{\"a\":1.", 14, 7},
    {L"{\"a\":1e}", 15, 8},
    {L"{\"a\":1e+}", 15, 9},
};

TEST(PackageLoad, BrokenTextInEveryFormWithCodeAndOffset) {
    const Package package = NewPackage();
    for (const LoadForm& form : PackageForms())
        for (const Refused& row : kRefused) {
            const uint64_t offset = form.MarkSize() + row.offset * form.UnitSize();
            EXPECT_EQ(PackageRefused(row.code, offset), LoadPackageIn(form, *package, row.text))
                << form << ": " << testing::PrintToString(row.text);
        }
}

TEST(PackageLoad, BlankTextIsEmptyInEveryForm) {
    const Package package = NewPackage();
    for (const LoadForm& form : PackageForms())
        for (const wchar_t* text : {L"    ", L"\t\r\n \t\r\n "})
            EXPECT_EQ(PackageRefused(21, 0), LoadPackageIn(form, *package, text))
                << form << ": " << testing::PrintToString(text);
    EXPECT_EQ(PackageRefused(21, 0), LoadPackageText(*package, L""));
    EXPECT_EQ(PackageRefused(21, 0), LoadPackageText(*package, L" "));
    EXPECT_EQ(PackageRefused(21, 0), LoadPackageFile(*package, ""));
    EXPECT_EQ(PackageRefused(21, 0), LoadPackageFile(*package, " "));
    EXPECT_EQ(PackageRefused(21, 0), LoadPackageFile(*package, "\xEF\xBB\xBF    "));
}

TEST(PackageLoad, NullArguments) {
    const Package package = NewPackage();
    EXPECT_EQ(PackageRefused(18, 0), PackageOutcomeOf(*package, package->LoadString(nullptr)));
    EXPECT_EQ(PackageRefused(19, 0), PackageOutcomeOf(*package, package->LoadFile(nullptr)));
}

TEST(PackageLoad, FilesThatDoNotOpen) {
    const Package package = NewPackage();
    const support::TempFile missing;
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    for (const std::wstring& name :
         {std::wstring(missing.Name()), std::wstring(), std::wstring(folder),
          missing.Name() + std::wstring(L"\\below.json"), std::wstring(L"no?such*name"),
          std::wstring(40000, L'n')})
        EXPECT_EQ(PackageRefused(20, 0),
                  PackageOutcomeOf(*package, package->LoadFile(name.c_str())))
            << testing::PrintToString(name.substr(0, 100));
    EXPECT_FALSE(missing.Exists());

    const support::TempFile used("{}");
    HANDLE other = CreateFileW(used.Name(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, other);
    EXPECT_EQ(PackageRefused(20, 0), PackageOutcomeOf(*package, package->LoadFile(used.Name())));
    CloseHandle(other);
    EXPECT_EQ(PackageLoaded(L"{}"), PackageOutcomeOf(*package, package->LoadFile(used.Name())));
}

TEST(PackageLoad, ReadOnlyFilesLoad) {
    const Package package = NewPackage();
    const support::TempFile file("{\"a\":1}");
    SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(PackageLoaded(L"{\"a\":1}"),
              PackageOutcomeOf(*package, package->LoadFile(file.Name())));
    SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_NORMAL);
}

TEST(PackageLoad, TextEndsAtItsFirstZeroUnit) {
    const Package package = NewPackage();
    const std::wstring text(L"{\"a\":1}\0]broken", 15);
    for (const LoadForm& form : PackageForms())
        EXPECT_EQ(PackageLoaded(L"{\"a\":1}"), LoadPackageIn(form, *package, text)) << form;
}

/// Which bytes a wide text consists of decides how it is read, not that it is wide.
TEST(PackageLoad, TextsThatAreNotReadAsTheyLook) {
    struct Row {
        std::wstring text;
        PackageOutcome outcome;
    };
    const Row rows[] = {
        // Nothing of the first four bytes is zero after the second: read as UTF-8, up to there.
        {L"[\x4E2D]", PackageRefused(3, 2)},
        {L"{\x3000}", PackageRefused(4, 2)},
        {L"{\x0100}", PackageRefused(4, 2)},
        {L"\"\x4E2D\"", PackageRefused(11, 2)},
        // A mark decides the encoding, whatever follows.
        {L"\xFEFF\"\x4E2D\"", PackageRefused(22, 0)},
        {L"\xFEFF[\x4E2D]", PackageRefused(3, 6)},
        {L"\xFEFF\xFEFF{}", PackageRefused(3, 4)},
        // The other mark: each unit is turned round.
        {L"\xFFFE\x7B00\x7D00", PackageLoaded(L"{}")},
        // Two bytes of UTF-8 in each unit: {"a":12}
        {L"\x227B\x2261\x313A\x7D32", PackageLoaded(L"{\"a\":12}")},
        // Less than four bytes are read as UTF-8, too.
        {L"5", PackageRefused(22, 0)},
        {L"[", PackageRefused(3, 2)},
        {L"\xFEFF", PackageRefused(3, 1)},
    };
    const Package package = NewPackage();
    for (const Row& row : rows)
        EXPECT_EQ(row.outcome, LoadPackageText(*package, row.text))
            << testing::PrintToString(row.text);
}

TEST(PackageLoad, HalfAPairOfSurrogatesIsInvalidEncoding) {
    const Package package = NewPackage();
    for (const wchar_t* text : {L"{\"a\":\"\xDC00\"}", L"{\"a\":\"\xDC00\xD800\"}"}) {
        EXPECT_EQ(PackageRefused(12, 14), LoadPackageText(*package, text));
        EXPECT_EQ(PackageRefused(12, 14),
                  LoadPackageFile(*package, support::Encode(text, support::Encoding::kUtf16Le)));
        EXPECT_EQ(PackageRefused(12, 14),
                  LoadPackageFile(*package, support::Encode(text, support::Encoding::kUtf16Be)));
    }
}

TEST(PackageLoad, TheCallersTextMayGoAfterTheLoad) {
    const Package package = NewPackage();
    std::wstring text = L"{\"some name\":[\"a text of some length\",{\"a\":\"b\"}]}";
    const std::wstring copy = text;
    EXPECT_EQ(1, package->LoadString(text.c_str()));
    text.assign(text.size(), L'x');
    EXPECT_EQ(copy, support::PackageText(*package));
}

/// A copy, because the text itself ends when the load begins.
TEST(PackageLoad, APackageCanLoadACopyOfItsOwnText) {
    const Package package = support::LoadedPackage(L"{\"a\":1}");
    const std::wstring copy = support::PackageText(*package);
    EXPECT_EQ(PackageLoaded(copy), LoadPackageText(*package, copy));
}

// ---- What is left of what was there before -----------------------------------------------------

struct NextLoad {
    const char* name;
    int (*load)(QXJSON::IJsonPackage& package);
    PackageOutcome outcome;
};

const NextLoad kNextLoads[] = {
    {"text", [](QXJSON::IJsonPackage& p) { return p.LoadString(L"{\"n\":7}"); },
     PackageLoaded(L"{\"n\":7}")},
    {"file", [](QXJSON::IJsonPackage& p) { return LoadPackageFile(p, "{\"n\":8}").result; },
     PackageLoaded(L"{\"n\":8}")},
    {"an array", [](QXJSON::IJsonPackage& p) { return p.LoadString(L"[1]"); }, PackageArrayRoot()},
    {"an array in a file", [](QXJSON::IJsonPackage& p) { return LoadPackageFile(p, "[1]").result; },
     PackageArrayRoot()},
    {"a number", [](QXJSON::IJsonPackage& p) { return p.LoadString(L"17"); },
     PackageRefused(22, 0)},
    {"broken text", [](QXJSON::IJsonPackage& p) { return p.LoadString(L"{\"old\":1,"); },
     PackageRefused(4, 18)},
    {"a broken file",
     [](QXJSON::IJsonPackage& p) { return LoadPackageFile(p, "{\"old\":1,").result; },
     PackageRefused(4, 9)},
    {"empty text", [](QXJSON::IJsonPackage& p) { return p.LoadString(L""); },
     PackageRefused(21, 0)},
    {"null text", [](QXJSON::IJsonPackage& p) { return p.LoadString(nullptr); },
     PackageRefused(18, 0)},
    {"null name", [](QXJSON::IJsonPackage& p) { return p.LoadFile(nullptr); },
     PackageRefused(19, 0)},
    {"no file", [](QXJSON::IJsonPackage& p) { return p.LoadFile(L"no such.json"); },
     PackageRefused(20, 0)},
    {"too deep",
     [](QXJSON::IJsonPackage& p) { return p.LoadString(std::wstring(200000, L'[').c_str()); },
     support::PackageEscaped()},
    {"a bad name",
     [](QXJSON::IJsonPackage& p) { return p.LoadFile(support::NowhereInMemory<wchar_t>()); },
     support::PackageEscaped()},
};

TEST(PackageLoad, NothingButTheFlagSurvives) {
    for (const uint32_t flag : {0u, 1u, 7u})
        for (const wchar_t* earlier :
             {L"{\"old\":\"text\",\"o\":{\"a\":[1]}}", L"[1]", L"{\"x\"", L""})
            for (const NextLoad& next : kNextLoads) {
                SCOPED_TRACE(testing::PrintToString(earlier) + ", then " + next.name);
                const Package package = NewPackage();
                package->LoadString(earlier);
                EXPECT_EQ(1, package->SetIgnoreCase(flag));
                EXPECT_EQ(1, package->SetValueNumber(L"set", 1));

                const int result = next.load(*package);
                EXPECT_EQ(next.outcome, PackageOutcomeOf(*package, result));
                uint32_t now = 99;
                EXPECT_EQ(1, package->GetIgnoreCase(&now));
                EXPECT_EQ(flag, now);
                EXPECT_EQ(1, package->SetValueNumber(L"set", 2));
                double number = 0;
                EXPECT_EQ(flag == 0 ? -1 : 1, package->GetValueNumber(L"SET", &number));
            }
}

/// After a failed load the package is empty, and works.
TEST(PackageLoad, AFailedLoadLeavesAPackageToFill) {
    for (const NextLoad& next : kNextLoads) {
        if (next.outcome.text != L"{}") continue;
        SCOPED_TRACE(next.name);
        const Package package = NewPackage();
        next.load(*package);
        uint32_t count = 99;
        EXPECT_EQ(1, package->GetKeyCount(&count));
        EXPECT_EQ(0u, count);
        EXPECT_EQ(1, package->SetValue(L"k", L"[1]", true));
        EXPECT_EQ(1, package->SetValueString(L"s", L"text"));
        EXPECT_EQ(L"{\"k\":[1],\"s\":\"text\"}", support::PackageText(*package));
    }
}

// ---- The error queries -------------------------------------------------------------------------

TEST(PackageLoad, ANewPackageHasNoError) {
    const Package package = NewPackage();
    EXPECT_EQ(PackageLoaded(L"{}"), PackageOutcomeOf(*package, 1));
}

TEST(PackageLoad, ErrorQueriesWithoutAnOutput) {
    for (const wchar_t* text : {L"{}", L"{\"a\""}) {
        const Package package = NewPackage();
        package->LoadString(text);
        const PackageOutcome before = PackageOutcomeOf(*package, 1);
        EXPECT_EQ(0, package->GetErrorMessage(nullptr));
        EXPECT_EQ(0, package->GetErrorOffset(nullptr));
        EXPECT_EQ(before, PackageOutcomeOf(*package, 1));
    }
}

TEST(PackageLoad, HasErrorAnswersExactlyOneOrZero) {
    const Package package = NewPackage();
    EXPECT_EQ(0, package->HasError());
    for (const NextLoad& next : kNextLoads) {
        SCOPED_TRACE(next.name);
        next.load(*package);
        EXPECT_EQ(next.outcome.code != 0 ? 1 : 0, package->HasError());
    }
}

TEST(PackageLoad, AMessageLivesUntilTheNextBlobOrMessage) {
    const Package package = NewPackage();
    EXPECT_EQ(1, package->LoadString(L"[1]"));
    const wchar_t* message = nullptr;
    EXPECT_EQ(1, package->GetErrorMessage(&message));
    size_t offset = 0;
    EXPECT_EQ(1, package->HasError());
    EXPECT_EQ(1, package->GetErrorOffset(&offset));
    EXPECT_EQ(1, package->SetValueString(L"k", std::wstring(1000, L'x').c_str()));
    EXPECT_EQ(1, package->SetValue(L"o", L"[1,{}]", true));
    EXPECT_EQ(0, package->SetValue(L"o", L"[1,{}", true));
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package->GetValue(L"o", &text));
    EXPECT_EQ(1, package->GetText(&text));
    const void* data = nullptr;
    size_t length = 0;
    EXPECT_EQ(1, package->GetBytes(&data, &length, 1));
    EXPECT_EQ(1, package->RemoveAll());
    EXPECT_STREQ(L"Failed to load the JSON data because its root node is not an object", message);
}

TEST(PackageLoad, MessagesOfOtherPackagesDoNotDisturb) {
    const Package first = NewPackage();
    const Package second = NewPackage();
    EXPECT_EQ(0, first->LoadString(L""));
    EXPECT_EQ(0, second->LoadString(nullptr));
    const wchar_t* one = nullptr;
    const wchar_t* two = nullptr;
    EXPECT_EQ(1, first->GetErrorMessage(&one));
    EXPECT_EQ(1, second->GetErrorMessage(&two));
    EXPECT_STREQ(L"The string is empty.", one);
    EXPECT_STREQ(L"The pointer to the json text is null.", two);
}

}  // namespace
