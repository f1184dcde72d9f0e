// What a load holds when it is done: of attempts that failed, nothing.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "Encode.h"
#include "FailingAllocations.h"
#include "JsonDll.h"
#include "PlainReader.h"
#include "TempFile.h"

namespace {

using support::Encode;
using support::Encoding;
using support::FailingAllocations;
using support::Generator;
using support::NewGenerator;
using support::NewPackage;
using support::NewParser;
using support::Package;
using support::Parser;
using support::TempFile;

/// An object of some hundred thousand bytes, open at its end.
std::wstring Large() {
    std::wstring text = L"{\"rows\":[";
    for (int i = 0; i < 4000; ++i)
        text += L"{\"a name\":[" + std::to_wstring(i) + L",\"and a text that is not short\"]},";
    return text + L"null]";
}

std::string Narrow(const std::wstring& text) { return Encode(text, Encoding::kUtf8); }

/// Loads that fail at the end, in each of the ways that a load takes.
struct Broken {
    const char* name;
    std::string bytes;
};

std::vector<Broken> BrokenBytes() {
    const std::wstring large = Large();
    const std::wstring lone = large + L",\"\xD800\":1}";
    return {
        {"UTF-8", Narrow(large) + ",}"},
        {"UTF-16", Encode(large + L",}", Encoding::kUtf16Le)},
        {"UTF-16BE", Encode(large + L",}", Encoding::kUtf16Be, true)},
        {"half a pair", Encode(lone, Encoding::kUtf16Le)},
        {"ANSI", Narrow(large) + ",\"\xE9.\":1,}"},
        {"too deep", Narrow(large) + ",\"deep\":" + std::string(200'000, '[')},
        {"UTF-16, too deep",
         Encode(large + L",\"deep\":" + std::wstring(200'000, L'['), Encoding::kUtf16Le)},
    };
}

/// Fails early, and has by then taken what every load takes once.
const std::string kSmallBroken = "{\"a\":[\"some text\",}";

using Load = std::function<void(const std::string& bytes)>;

/// The bytes that are held after a load that failed are the same whether it was large or small.
void ExpectNothingHeld(const FailingAllocations& allocations, const Load& load) {
    for (const Broken& broken : BrokenBytes()) {
        load(broken.bytes);  // what is taken once in the life of a process is taken now
        load(kSmallBroken);
        const long long before = allocations.LiveBytes();
        load(broken.bytes);
        EXPECT_EQ(before, allocations.LiveBytes()) << broken.name;
    }
}

/// UTF-16 text of the bytes that are UTF-16; others hold no text.
std::wstring TextOf(const std::string& bytes) {
    std::wstring text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
        text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                     static_cast<unsigned char>(bytes[i + 1]) << 8);
    return text;
}

TEST(LoadMemory, OfAParser) {
    const FailingAllocations allocations;
    const Parser parser = NewParser();
    ExpectNothingHeld(allocations, [&](const std::string& bytes) {
        EXPECT_NE(1, parser->LoadJsonBytes(bytes.data(), static_cast<uint32_t>(bytes.size())));
    });
    ExpectNothingHeld(allocations, [&](const std::string& bytes) {
        EXPECT_NE(1, parser->LoadJsonString(TextOf(bytes).c_str()));
    });
    ExpectNothingHeld(allocations, [&](const std::string& bytes) {
        const TempFile file(bytes);
        EXPECT_NE(1, parser->LoadJsonFile(file.Name()));
    });
}

TEST(LoadMemory, OfAPackage) {
    const FailingAllocations allocations;
    const Package package = NewPackage();
    ExpectNothingHeld(allocations, [&](const std::string& bytes) {
        EXPECT_NE(1, package->LoadString(TextOf(bytes).c_str()));
    });
    ExpectNothingHeld(allocations, [&](const std::string& bytes) {
        const TempFile file(bytes);
        EXPECT_NE(1, package->LoadFile(file.Name()));
    });
}

/// A root that leaves an empty package leaves nothing else.
TEST(LoadMemory, OfAPackageWithAnotherRoot) {
    const FailingAllocations allocations;
    const Package package = NewPackage();
    EXPECT_EQ(1, package->LoadString(L"[\"some text\"]"));
    const long long before = allocations.LiveBytes();
    EXPECT_EQ(1, package->LoadString((L"[" + Large() + L"}]").c_str()));
    EXPECT_EQ(before, allocations.LiveBytes());
    EXPECT_EQ(0, package->LoadString((L'"' + std::wstring(100'000, L'x') + L'"').c_str()));
    EXPECT_EQ(before, allocations.LiveBytes());
}

/// A generator's loads and grafts have a document of their own.
TEST(LoadMemory, OfAGenerator) {
    const FailingAllocations allocations;
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    ASSERT_EQ(1, generator->CreateRootArray(&handle));
    ExpectNothingHeld(allocations, [&](const std::string& bytes) {
        const TempFile file(bytes);
        EXPECT_NE(1, generator->LoadJsonFile(file.Name(), &handle));
        EXPECT_NE(1, generator->AddArrayItemJsonFile(1, file.Name(), &handle));
        EXPECT_NE(1, generator->LoadJsonString(TextOf(bytes).c_str(), &handle));
    });
}

/// Of the first attempt at ANSI text nothing is left: the document is as large as from UTF-16.
TEST(LoadMemory, OfTextInTheAnsiCodePage) {
    const std::string bytes = Narrow(Large()) + ",\"\xE9.\":1}";
    const TempFile file(bytes);
    const FailingAllocations allocations;
    const Parser parser = NewParser();
    EXPECT_EQ(1, parser->LoadJsonString(model::FromAnsi(bytes).c_str()));
    const long long expected = allocations.LiveBytes();
    EXPECT_EQ(1, parser->LoadJsonBytes(bytes.data(), static_cast<uint32_t>(bytes.size())));
    EXPECT_EQ(expected, allocations.LiveBytes());
    EXPECT_EQ(1, parser->LoadJsonFile(file.Name()));
    EXPECT_EQ(expected, allocations.LiveBytes());
}

}  // namespace
