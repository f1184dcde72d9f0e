// Thousands of truncated and mutated documents, and those of the data folder where there is one,
// against RapidJSON itself. The random sequence is fixed, so that every run sees the same
// documents.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "PackageReference.h"
#include "PackageState.h"
#include "Selectors.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonPackage;
using support::Encoding;
using support::kAllEncodings;
using support::NewPackage;
using support::Package;
using support::TempFile;

constexpr const wchar_t* kDocuments[] = {
    L"{\"name\":\"Zo\xEB\",\"size\":[1,-2,3.25,4e5,-6E-7,18446744073709551616],\"on\":true}",
    L"{\"\x65E5\x672C\":[\"\xD834\xDD1E\",\"\x20AC\"],\"deep\":{\"er\":{\"and\":[[[0]]]}}}",
    L"[{\"\":null},[],{},\"\\u00e9\\uD834\\uDD1E\\n\",false]",
    L" { \"a\" : \"\\\\ \\\" \\/ \\b\\f\\r\\t\" , \"b\" : -0 , \"c\" : [ 2147483648 , 1e308 ] } ",
};

void ExpectFileAsReference(IJsonPackage& package, const std::string& bytes) {
    const TempFile file(bytes);
    EXPECT_EQ(model::ReferencePackageFile(file.Name()),
              support::PackageOutcomeOf(package, package.LoadFile(file.Name())))
        << testing::PrintToString(bytes.substr(0, 1000));
}

void ExpectTextAsReference(IJsonPackage& package, const std::wstring& text) {
    EXPECT_EQ(model::ReferencePackageText(text), support::LoadPackageText(package, text))
        << testing::PrintToString(text);
}

TEST(PackageLoadReference, EveryTruncationOfText) {
    const Package package = NewPackage();
    for (const std::wstring document : kDocuments)
        for (size_t size = 0; size <= document.size(); ++size) {
            ExpectTextAsReference(*package, document.substr(0, size));
            ExpectTextAsReference(*package, L"\xFEFF" + document.substr(0, size));
        }
}

TEST(PackageLoadReference, TruncatedFiles) {
    const Package package = NewPackage();
    for (const wchar_t* document : kDocuments)
        for (const Encoding encoding : kAllEncodings)
            for (const bool mark : {false, true}) {
                const std::string bytes = support::Encode(document, encoding, mark);
                for (size_t size = 0; size <= bytes.size(); size += size < 12 ? 1 : 29)
                    ExpectFileAsReference(*package, bytes.substr(0, size));
            }
}

/// Makes broken documents out of good ones, with the grammar's characters, zeros and halves of
/// sequences; a unit is a byte or a UTF-16 unit.
template <class Text>
Text Mutated(Text text, std::mt19937& random) {
    constexpr char kInserts[] = "[]{},:\"\\ 019-.eNaInftrueluD\xC3\xA9\xE2\xED\xF0\xFE\xFF\x80\x01";
    for (size_t left = 1 + random() % 3; left > 0 && !text.empty(); --left) {
        const size_t at = random() % text.size();
        const auto unit = static_cast<typename Text::value_type>(
            static_cast<unsigned char>(kInserts[random() % sizeof kInserts]));
        switch (random() % 5) {
            case 0:
                text.resize(at);
                break;
            case 1:
                text[at] = unit;
                break;
            case 2:
                text.insert(at, 1, unit);
                break;
            case 3:
                text.erase(at, 1 + random() % 3);
                break;
            default:
                text[at] = static_cast<typename Text::value_type>(
                    text[at] ^ (1u << random() % (8 * sizeof unit)));
        }
    }
    return text;
}

TEST(PackageLoadReference, MutatedText) {
    const Package package = NewPackage();
    std::mt19937 random(30011);
    for (int round = 0; round < 1500; ++round)
        for (const wchar_t* document : kDocuments)
            ExpectTextAsReference(*package, Mutated(std::wstring(document), random));
}

TEST(PackageLoadReference, MutatedFiles) {
    const Package package = NewPackage();
    std::mt19937 random(30013);
    for (int round = 0; round < 12; ++round)
        for (const wchar_t* document : kDocuments)
            for (const Encoding encoding : kAllEncodings)
                for (const bool mark : {false, true})
                    ExpectFileAsReference(
                        *package, Mutated(support::Encode(document, encoding, mark), random));
}

/// A closer look at UTF-8, where bytes that are not valid lead to the ANSI code page.
TEST(PackageLoadReference, MutatedUtf8Files) {
    const Package package = NewPackage();
    std::mt19937 random(30029);
    for (int round = 0; round < 120; ++round)
        for (const wchar_t* document : kDocuments)
            ExpectFileAsReference(*package,
                                  Mutated(support::Encode(document, Encoding::kUtf8), random));
}

// ---- Documents as they are found ---------------------------------------------------------------

std::string LargeDocument() {
    std::string rows = "{\"rows\":[0";
    for (int i = 0; i < 20000; ++i)
        rows += ",{\"id\":" + std::to_string(i) + ",\"at\":[-65.61361" + std::to_string(i) +
                ",43.4200],\"t\":\"\xE2\x82\xAC\\n\"}";
    return rows + "]}";
}

/// Large objects; without the data folder, one of the test's own stands in.
std::vector<std::string> LargeDocuments() {
    std::vector<std::string> documents = {LargeDocument()};
    const wchar_t* folder = _wgetenv(L"JSON_TEST_DATA");
    for (const wchar_t* name : {L"\\twitter.json", L"\\canada.json", L"\\citm_catalog.json"}) {
        if (folder == nullptr) break;
        const std::string bytes = support::ReadFileBytes(std::wstring(folder) + name);
        if (!bytes.empty()) documents.push_back(bytes);
    }
    return documents;
}

void ExpectWritten(IJsonPackage& package, const std::wstring& text, int encoding) {
    SCOPED_TRACE(encoding);
    const std::string expected = support::TextIn(encoding, text);
    const void* data = nullptr;
    size_t length = 0;
    EXPECT_EQ(1, package.GetBytes(&data, &length, encoding));
    EXPECT_TRUE(expected == std::string(static_cast<const char*>(data), length));
    const TempFile saved;
    EXPECT_EQ(1, package.SaveToFile(saved.Name(), encoding));
    EXPECT_TRUE(support::MarkOf(encoding) + expected == saved.Bytes());
    const Package again = NewPackage();
    EXPECT_TRUE(model::ReferencePackageFile(saved.Name()) ==
                support::PackageOutcomeOf(*again, again->LoadFile(saved.Name())));
}

TEST(PackageLoadReference, LargeDocumentsGoInAndOut) {
    for (const std::string& bytes : LargeDocuments()) {
        const TempFile file(bytes);
        const Package package = NewPackage();
        const auto expected = model::ReferencePackageFile(file.Name());
        EXPECT_EQ(1, expected.result);
        EXPECT_TRUE(expected ==
                    support::PackageOutcomeOf(*package, package->LoadFile(file.Name())));
        for (const int32_t encoding : support::kAllSelectors)
            ExpectWritten(*package, expected.text, encoding);
    }
}

}  // namespace
