// What an output in memory returns lives until the next call of the same operation.

#include <gtest/gtest.h>

#include <cstdint>

#include "FailingAllocations.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonGenerator;
using support::Generator;
using support::GeneratorOf;
using support::JsonOf;
using support::NewGenerator;
using support::OutputForm;
using support::WriteIn;

/// The address of nothing: reading or writing there is an access violation.
template <class T>
T* BadPointer() {
    return reinterpret_cast<T*>(uintptr_t{8});
}

/// What GetJsonBytes returned.
struct Bytes {
    const uint8_t* data = nullptr;
    uint64_t length = 0;

    std::string Copy() const {
        return std::string(reinterpret_cast<const char*>(data), static_cast<size_t>(length));
    }
};

const wchar_t* GetText(IJsonGenerator& generator) {
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, generator.GetJsonString(&text));
    return text;
}

Bytes GetBytes(IJsonGenerator& generator, int32_t selector) {
    Bytes bytes;
    EXPECT_EQ(1, generator.GetJsonBytes(&bytes.data, &bytes.length, selector));
    return bytes;
}

std::wstring LongJson(size_t characters) {
    return L"{\"long\":\"" + std::wstring(characters, L'x') + L"\"}";
}

/// Everything that may come between two outputs, but for the operations that renew the generator.
void DoEverythingElse(IJsonGenerator& generator) {
    const support::TempFile file("[\"from a file\"]");
    uint32_t handle = 0;
    generator.AddObjectItemString(1, L"text", L"more", &handle);
    generator.AddObjectItemJsonString(1, L"grafted", L"{\"b\":[1,2]}", &handle);
    generator.AddObjectItemJsonFile(1, L"from file", file.Name(), &handle);
    generator.AddObjectItemBlob(1, L"blob", reinterpret_cast<const uint8_t*>("abc"), 3, &handle);
    for (const OutputForm& form : support::FileForms()) WriteIn(form, generator);
    generator.LoadJsonString(L"[1", &handle);
    generator.LoadJsonString(LongJson(5000).c_str(), &handle);
    generator.LoadJsonFile(file.Name(), &handle);
}

TEST(OutputBuffers, TextOutlivesOtherOperations) {
    const Generator generator = GeneratorOf(L"{\"a\":[1,2,\"\xE9\"]}");
    const wchar_t* text = GetText(*generator);
    DoEverythingElse(*generator);
    for (const int32_t selector : support::kAllSelectors) GetBytes(*generator, selector);
    EXPECT_STREQ(L"{\"a\":[1,2,\"\xE9\"]}", text);
}

TEST(OutputBuffers, BytesOutliveOtherOperations) {
    for (const int32_t selector : support::kAllSelectors) {
        const Generator generator = GeneratorOf(L"{\"a\":[1,2,\"\xE9\"]}");
        const Bytes bytes = GetBytes(*generator, selector);
        const std::string copy = bytes.Copy();
        DoEverythingElse(*generator);
        JsonOf(*generator);
        EXPECT_EQ(copy, bytes.Copy()) << selector;
    }
}

/// A shorter output leaves nothing of a longer one, and the other way round.
TEST(OutputBuffers, OutputsOfChangingSize) {
    const Generator generator = NewGenerator();
    for (const size_t characters : {0u, 100000u, 10u, 300000u, 1u, 127u, 128u, 256u}) {
        uint32_t root = 0;
        const std::wstring json = LongJson(characters);
        ASSERT_EQ(1, generator->LoadJsonString(json.c_str(), &root));
        support::ExpectAllForms(model::Parse(json), *generator);
    }
}

/// Text ends with a zero of its own, whatever the buffer held before.
TEST(OutputBuffers, TextOfEverySizeAroundTheFirstCapacity) {
    for (size_t characters = 100; characters < 280; ++characters) {
        const Generator generator = GeneratorOf(LongJson(characters));
        EXPECT_EQ(LongJson(characters), GetText(*generator));
        EXPECT_EQ(LongJson(characters).size(), GetBytes(*generator, 2).length);
        EXPECT_EQ(2 * LongJson(characters).size(), GetBytes(*generator, 1).length);
    }
}

TEST(OutputBuffers, AnEmptyTextFollowsNone) {
    const Generator generator = NewGenerator();
    EXPECT_STREQ(L"", GetText(*generator));
    EXPECT_STREQ(L"", GetText(*generator));
    uint32_t root = 0;
    EXPECT_EQ(1, generator->LoadJsonString(L"[1]", &root));
    EXPECT_STREQ(L"[1]", GetText(*generator));
    EXPECT_STREQ(L"[1]", GetText(*generator));
}

/// The document may grow between two outputs; each shows it as it is then.
TEST(OutputBuffers, OutputsFollowTheDocument) {
    const Generator generator = GeneratorOf(L"[]");
    std::wstring expected = L"[";
    for (int i = 0; i < 20; ++i) {
        uint32_t handle = 0;
        ASSERT_EQ(1, generator->AddArrayItemInt(1, i, &handle));
        expected += (i == 0 ? L"" : L",") + std::to_wstring(i);
        support::ExpectAllForms(model::Parse(expected + L"]"), *generator);
    }
}

TEST(OutputBuffers, GeneratorsAreIndependent) {
    const Generator first = GeneratorOf(L"[\"first\"]");
    const wchar_t* text = GetText(*first);
    const Bytes bytes = GetBytes(*first, 2);
    const Generator second = GeneratorOf(L"{\"second\":2}");
    EXPECT_STREQ(L"{\"second\":2}", GetText(*second));
    EXPECT_EQ("{\"second\":2}", GetBytes(*second, 0).Copy());
    EXPECT_STREQ(L"[\"first\"]", text);
    EXPECT_EQ("[\"first\"]", bytes.Copy());
}

/// Once they have grown, the buffers serve all later outputs of the size.
TEST(OutputBuffers, BuffersAreUsedAgain) {
    const Generator generator = GeneratorOf(LongJson(50000));
    const auto writeAll = [&] {
        for (const OutputForm& form : support::AllOutputForms()) WriteIn(form, *generator);
    };
    writeAll();
    const wchar_t* text = GetText(*generator);
    const uint8_t* data = GetBytes(*generator, 1).data;
    const support::FailingAllocations allocations;
    for (int i = 0; i < 3; ++i) writeAll();
    EXPECT_EQ(0, allocations.LiveBlocks());
    EXPECT_EQ(text, GetText(*generator));
    EXPECT_EQ(data, GetBytes(*generator, 1).data);
}

/// A variable that is no memory faults; the generator goes on.
TEST(OutputBuffers, VariablesThatAreNoMemory) {
    const Generator generator = GeneratorOf(L"{\"a\":[1]}");
    const uint8_t* data = nullptr;
    uint64_t length = 0;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(-5, generator->GetJsonString(BadPointer<const wchar_t*>()));
        for (const int32_t selector : support::kAllSelectors) {
            EXPECT_EQ(-5, generator->GetJsonBytes(BadPointer<const uint8_t*>(), &length, selector));
            EXPECT_EQ(-5, generator->GetJsonBytes(&data, BadPointer<uint64_t>(), selector));
        }
        support::ExpectAllForms(model::Parse(L"{\"a\":[1]}"), *generator);
    }
}

}  // namespace
