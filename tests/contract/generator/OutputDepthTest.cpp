// Documents that are nested deeper than the stack of the caller carries: writing them answers -5,
// closes the file and leaves a generator that works.

#include <gtest/gtest.h>

#include <vector>

#include "FailingAllocations.h"
#include "JsonDll.h"
#include "OutputExhaustion.h"
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

constexpr int kTooDeep = 200'000;

/// The forms without indentation: with it, a document of so many levels comes to hundreds of
/// megabytes before the stack ends.
std::vector<OutputForm> CompactForms() {
    std::vector<OutputForm> forms;
    for (const OutputForm& form : AllOutputForms())
        if (form.operation != OutputForm::kIndentedFile) forms.push_back(form);
    return forms;
}

/// On a small stack one that is indented is bearable.
std::vector<OutputForm> FormsForASmallStack() {
    std::vector<OutputForm> forms = CompactForms();
    forms.push_back({OutputForm::kIndentedFile, 2});
    return forms;
}

/// How many of the forms do not answer -5, or leave their file open.
int CountSurvivals(IJsonGenerator& generator, const std::vector<OutputForm>& forms) {
    int count = 0;
    for (const OutputForm& form : forms) {
        const support::TempFile file("before");
        const int result = form.IsFile() ? support::SaveIn(form, generator, file.Name())
                                         : WriteIn(form, generator).result;
        if (result != -5 || !file.IsClosed()) ++count;
    }
    return count;
}

void ExpectWorks(IJsonGenerator& generator) {
    uint32_t root = 0;
    ASSERT_EQ(1, generator.LoadJsonString(L"{\"a\":[1,{\"b\":null}]}", &root));
    support::ExpectAllForms(support::ReferenceParse(L"{\"a\":[1,{\"b\":null}]}"), generator);
}

TEST(OutputDepth, TooDeepForAnOrdinaryStack) {
    const Generator generator = NewGenerator();
    Nest(*generator, kTooDeep);
    EXPECT_EQ(0, CountSurvivals(*generator, CompactForms()));
    EXPECT_EQ(0, CountSurvivals(*generator, CompactForms()));
    ExpectWorks(*generator);
}

TEST(OutputDepth, TooDeepForASmallStack) {
    Generator generator = NewGenerator();
    Nest(*generator, kTooDeep);
    int survivals = 1;
    int released = 0;
    support::OnStackOf(support::kSmallStack, [&] {
        survivals = CountSurvivals(*generator, FormsForASmallStack());
        released = generator.release()->Release();
    });
    EXPECT_EQ(0, survivals);
    EXPECT_EQ(1, released);
}

/// A file keeps the whole blocks before the place where the stack ended.
TEST(OutputDepth, AFileKeepsWholeBlocks) {
    const Generator generator = NewGenerator();
    Nest(*generator, kTooDeep);
    std::string whole;
    while (whole.size() < size_t{6} * kTooDeep) whole += "[{\"k\":";
    for (const int32_t encoding : {0, 2}) {
        const support::TempFile file("before");
        const OutputForm form = {OutputForm::kFile, encoding};
        EXPECT_EQ(-5, support::SaveIn(form, *generator, file.Name()));
        const std::string text = file.Bytes();
        const size_t mark = encoding == 2 ? 3 : 0;
        EXPECT_EQ(0u, text.size() % 260);
        ASSERT_GT(text.size(), 260u);
        EXPECT_EQ(text.substr(mark), whole.substr(0, text.size() - mark));
    }
}

/// The document is whole all the while, and can grow.
TEST(OutputDepth, TheDocumentIsStillThere) {
    const Generator generator = NewGenerator();
    Nest(*generator, kTooDeep);
    EXPECT_EQ(-5, WriteIn({OutputForm::kText}, *generator).result);
    uint32_t handle = 0;
    uint32_t added = 0;
    EXPECT_EQ(1, generator->GetItemHandleByPath(L"/1/k/1/k", &handle));
    EXPECT_EQ(1, generator->AddArrayItemInt(static_cast<int32_t>(handle), 1, &added));
    EXPECT_EQ(handle + 1, added);
    EXPECT_EQ(-5, WriteIn({OutputForm::kText}, *generator).result);
}

TEST(OutputDepth, ThreeHundredLevelsOnASmallStack) {
    const Generator generator = NewGenerator();
    Nest(*generator, 300);
    std::wstring json;
    for (int i = 0; i < 149; ++i) json += L"[{\"k\":";
    json += L"[{}]";
    for (int i = 0; i < 149; ++i) json += L"}]";
    const support::ReferenceDocument document = support::ReferenceParse(json);
    for (const OutputForm& form : AllOutputForms()) {
        support::Written written = {};
        support::OnStackOf(support::kSmallStack, [&] { written = WriteIn(form, *generator); });
        EXPECT_EQ(support::ReferenceIn(form, document), written) << form;
    }
}

/// No file is left open and no memory is lost; the buffers of the two outputs in memory stay.
TEST(OutputDepth, NothingIsLost) {
    const Generator generator = NewGenerator();
    Nest(*generator, kTooDeep);
    support::PrepareForExhaustion();
    EXPECT_EQ(0, CountSurvivals(*generator, CompactForms()));
    const support::FailingAllocations allocations;
    const DWORD handles = support::HandleCount();
    for (int i = 0; i < 10; ++i) EXPECT_EQ(0, CountSurvivals(*generator, CompactForms()));
    EXPECT_EQ(handles, support::HandleCount());
    EXPECT_EQ(0, allocations.LiveBlocks());
}

}  // namespace
