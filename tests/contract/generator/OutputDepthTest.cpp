// Documents of any depth are written, on any stack: nothing about an output goes one call deeper
// for each level.

#include <gtest/gtest.h>

#include <vector>

#include "FailingAllocations.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "ProcessUse.h"
#include "StackThread.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonGenerator;
using support::AllOutputForms;
using support::Generator;
using support::NewGenerator;
using support::OutputForm;
using support::WriteIn;
using support::Written;

/// Puts `levels` containers, arrays and objects in turn, one into the other. By reference, so that
/// no place has to be looked up.
void Nest(IJsonGenerator& generator, int levels) {
    uint64_t value = 0;
    ASSERT_EQ(1, generator.ResetRootArrayValue(&value));
    for (int level = 1; level < levels; ++level) {
        const bool inArray = level % 2 == 1;
        ASSERT_EQ(1, inArray ? generator.AddArrayValueObject(value, &value)
                             : generator.AddObjectValueArray(value, L"k", &value));
    }
}

constexpr int kDeep = 200'000;  ///< no stack of an ordinary size carries a call for each
/// With indentation a document of so many levels comes to megabytes.
constexpr int kDeepIndented = 1'000;

/// The text of such a document.
std::wstring Nested(int levels) {
    std::wstring text;
    for (int level = 0; level < levels; ++level) text += level % 2 == 0 ? L"[" : L"{\"k\":";
    if (levels % 2 == 0) text.resize(text.size() - 4);  // the innermost object has no member
    for (int level = levels; level-- > 0;) text += level % 2 == 0 ? L"]" : L"}";
    return text;
}

/// The same with every member and element on a line of its own.
std::wstring NestedIndented(int levels) {
    std::wstring text;
    const auto indent = [](int level) { return L'\n' + std::wstring(4 * level, L' '); };
    for (int level = 0; level < levels; ++level) {
        if (level > 0) text += indent(level) + (level % 2 == 0 ? L"\"k\": " : L"");
        text += level % 2 == 0 ? L'[' : L'{';
    }
    for (int level = levels; level-- > 0;) {
        if (level + 1 < levels) text += indent(level);
        text += level % 2 == 0 ? L']' : L'}';
    }
    return text;
}

int LevelsFor(const OutputForm& form) {
    return form.operation == OutputForm::kIndentedFile ? kDeepIndented : kDeep;
}

Written ExpectedIn(const OutputForm& form, const std::wstring& text) {
    const int32_t selector = form.operation == OutputForm::kText ? 1 : form.selector;
    return {1, (form.IsFile() ? support::MarkOf(selector) : "") + support::TextIn(selector, text)};
}

/// Whether a form's document is written whole.
bool IsWritten(const OutputForm& form) {
    static const std::wstring deep = Nested(kDeep);
    static const std::wstring indented = NestedIndented(kDeepIndented);
    const bool isIndented = form.operation == OutputForm::kIndentedFile;
    const Generator generator = NewGenerator();
    Nest(*generator, LevelsFor(form));
    return WriteIn(form, *generator) == ExpectedIn(form, isIndented ? indented : deep);
}

TEST(OutputDepth, OnAnOrdinaryStack) {
    for (const OutputForm& form : AllOutputForms()) EXPECT_TRUE(IsWritten(form)) << form;
}

TEST(OutputDepth, OnASmallStack) {
    support::OnStackOf(support::kSmallStack, [] {
        for (const OutputForm& form : AllOutputForms()) EXPECT_TRUE(IsWritten(form)) << form;
    });
}

/// Where the first levels end that a walk keeps without memory of its own, and the capacities that
/// follow.
TEST(OutputDepth, AroundEveryCapacity) {
    for (const int capacity : {16, 32, 64, 128, 256})
        for (int levels = capacity - 2; levels <= capacity + 2; ++levels) {
            const Generator generator = NewGenerator();
            Nest(*generator, levels);
            for (const OutputForm& form : AllOutputForms()) {
                const bool isIndented = form.operation == OutputForm::kIndentedFile;
                const std::wstring text = isIndented ? NestedIndented(levels) : Nested(levels);
                EXPECT_EQ(ExpectedIn(form, text), WriteIn(form, *generator)) << form;
            }
        }
}

/// Values follow the deep ones on every level.
TEST(OutputDepth, WhatFollowsTheDeepParts) {
    constexpr int kLevels = 300;
    std::wstring text;
    for (int i = 0; i < kLevels; ++i) text += L"[[],{\"a\":{},\"k\":";
    text += L"null";
    for (int i = 0; i < kLevels; ++i) text += L",\"z\":[1,[2]]},{},3]";
    support::ExpectAllForms(model::Parse(text), *support::GeneratorOf(text));
}

TEST(OutputDepth, ADeepDocumentIsReleasedOnASmallStack) {
    Generator generator = NewGenerator();
    Nest(*generator, kDeep);
    int released = 0;
    support::OnStackOf(support::kSmallStack, [&] { released = generator.release()->Release(); });
    EXPECT_EQ(1, released);
}

/// No file is left open and no memory is lost; the buffers of the two outputs in memory stay.
TEST(OutputDepth, NothingIsLost) {
    const Generator generator = NewGenerator();
    Nest(*generator, kDeepIndented);
    const auto writeAll = [&] {
        for (const OutputForm& form : AllOutputForms()) WriteIn(form, *generator);
    };
    writeAll();
    const support::FailingAllocations allocations;
    const DWORD handles = support::HandleCount();
    for (int i = 0; i < 3; ++i) writeAll();
    EXPECT_EQ(handles, support::HandleCount());
    EXPECT_EQ(0, allocations.LiveBlocks());
}

}  // namespace
