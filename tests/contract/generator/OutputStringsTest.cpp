// Strings of every length, and what they cost: a file needs no more memory for a long one than for
// a short one.

#include <gtest/gtest.h>

#include <iterator>

#include "FailingAllocations.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "TempFile.h"

namespace {

using support::Generator;
using support::OutputForm;

/// Characters that take one unit or two, that are written as they are or escaped in some encoding
/// or in all.
const std::wstring kCharacters[] = {
    L"x", L"\xE9", L"\x4E2D", L"\xD834\xDD1E", L"\n", L"\"", L"\\", L"\x1", L"\x7F", L"/",
};

/// Texts of at least so many units: of each character alone, and of all in turn.
std::vector<std::wstring> TextsOf(size_t length) {
    std::vector<std::wstring> texts(std::size(kCharacters) + 1);
    for (size_t i = 0; i < std::size(kCharacters); ++i)
        while (texts[i].size() < length) texts[i] += kCharacters[i];
    for (size_t i = 0; texts.back().size() < length; ++i)
        texts.back() += kCharacters[i * i % std::size(kCharacters)];
    return texts;
}

Generator GeneratorOfText(const std::wstring& text) {
    Generator generator = support::GeneratorOf(L"[]");
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->AddArrayItemString(1, text.c_str(), &handle));
    return generator;
}

void ExpectWritten(const std::wstring& text) {
    support::ExpectAllForms(model::ReferenceArrayOf(text), *GeneratorOfText(text));
}

TEST(OutputStrings, OfEveryCharacter) {
    for (const size_t length : {1, 3, 4, 5, 40, 1000, 4096, 8190, 8192, 10'000, 100'000})
        for (const std::wstring& text : TextsOf(length)) {
            SCOPED_TRACE(testing::Message() << length << " of " << static_cast<int>(text[0]));
            ExpectWritten(text);
        }
}

/// Up to some length the room for a string is reserved before it is written.
TEST(OutputStrings, AroundTheLongestThatRoomIsReservedFor) {
    for (size_t length = 1310; length < 1370; ++length) {
        SCOPED_TRACE(length);
        ExpectWritten(TextsOf(length).back());
    }
}

/// Long keys, and what stands before and after them, in objects and in arrays.
TEST(OutputStrings, LongKeysAndValues) {
    for (const size_t length : {1000, 2000, 20'000}) {
        const std::wstring text = L"\"" + std::wstring(length, L'\xE9') + L"\"";
        const std::wstring json = L"{" + text + L":" + text + L",\"k\":[" + text + L",1," + text +
                                  L"],\"z\":{" + text + L":{}}}";
        support::ExpectAllForms(model::Parse(json), *support::GeneratorOf(json));
    }
}

TEST(OutputStrings, WithZerosInside) {
    std::wstring json = L"[\"";
    for (int i = 0; i < 20'000; ++i) json += L"\\u0000x";
    json += L"\"]";
    support::ExpectAllForms(model::Parse(json), *support::GeneratorOf(json));
}

/// A long string that some encoding cannot carry to its end.
TEST(OutputStrings, LoneSurrogatesInLongOnes) {
    for (const size_t front : {1319, 1320, 1321, 1322, 5000, 8189, 8190, 8191, 8192, 30'000})
        for (const wchar_t* lone : {L"\xD800", L"\xDC00", L"\xD800z"}) {
            SCOPED_TRACE(testing::Message() << front << " units in front");
            ExpectWritten(std::wstring(front, L'x') + lone + std::wstring(2000, L'y'));
            ExpectWritten(std::wstring(front, L'\xE9') + lone);
        }
}

/// What the library asks for during a save.
size_t MemoryFor(const OutputForm& form, const std::wstring& text) {
    const Generator generator = GeneratorOfText(text);
    const support::TempFile file;
    const support::FailingAllocations allocations;
    EXPECT_EQ(1, support::SaveIn(form, *generator, file.Name()));
    return allocations.RequestedBytes();
}

TEST(OutputStrings, ALongOneTakesNoMoreMemoryThanAShortOne) {
    constexpr size_t kLong = 2'000'000;
    constexpr size_t kEnough = 128 * 1024;
    for (const OutputForm& form : support::FileForms()) {
        const size_t memory = MemoryFor(form, L"x");
        EXPECT_LT(memory, kEnough) << form;
        for (const wchar_t character : {L'x', L'\xE9', L'\n'})
            EXPECT_EQ(memory, MemoryFor(form, std::wstring(kLong, character))) << form;
    }
}

}  // namespace
