// Allocations that fail during outputs: each in turn, alone and with all that follow. The output
// returns -5 or is whole; the file is closed and as it was, the document stays, and no memory is
// lost.

#include <gtest/gtest.h>

#include <limits>

#include "FailingAllocations.h"
#include "OutputForm.h"
#include "OutputReference.h"
#include "TempFile.h"

namespace {

using support::FailingAllocations;
using support::Generator;
using support::GeneratorOf;
using support::OutputForm;
using support::WriteIn;
using support::Written;

constexpr int kHowMany[] = {1, std::numeric_limits<int>::max()};

/// Large and deep enough for buffers and the writers' stacks to grow several times.
std::wstring Document() {
    std::wstring json = L"[\"" + std::wstring(5000, L'x') + L"\"";
    json += L"," + std::wstring(100, L'[') + std::wstring(100, L']');
    return json + L",{\"a\":\"\xE9\"}]";
}

void FailEach(const OutputForm& form, int count) {
    const std::wstring json = Document();
    const model::Document document = model::Parse(json);
    const Written expected = ReferenceIn(form, document);
    FailingAllocations allocations;
    bool happened = true;
    for (int n = 1; happened; ++n) {
        SCOPED_TRACE(testing::Message() << form << ", allocation " << n);
        {
            const Generator generator = GeneratorOf(json);
            allocations.Fail(n, count);
            const Written written = WriteIn(form, *generator);
            happened = allocations.Happened();
            allocations.Stop();
            if (written.result == 1)
                EXPECT_EQ(expected, written);
            else
                EXPECT_EQ(-5, written.result);
            EXPECT_TRUE(written.result == 1 || happened);
            EXPECT_EQ(expected, WriteIn(form, *generator)) << "after the failure";
        }
        EXPECT_EQ(0, allocations.LiveBlocks()) << "memory is lost";
    }
}

/// Whether a save met a failure; it then leaves the file as it was, and makes none.
bool SaveWithFailure(const OutputForm& form, QXJSON::IJsonGenerator& generator,
                     FailingAllocations& allocations, const support::TempFile& file, int first,
                     int count) {
    const bool existed = file.Exists();
    allocations.Fail(first, count);
    const int result = support::SaveIn(form, generator, file.Name());
    const bool happened = allocations.Happened();
    allocations.Stop();
    EXPECT_EQ(happened ? -5 : 1, result);
    EXPECT_EQ(existed || !happened, file.Exists());
    EXPECT_TRUE(!existed || !happened || file.Bytes() == "before");
    return happened;
}

class OutputAllocation : public testing::TestWithParam<int> {};

/// All memory is taken before the file is opened, also for documents that are deep and for strings
/// that are long.
TEST_P(OutputAllocation, AFileIsLostByNone) {
    const Generator generator = GeneratorOf(Document());
    FailingAllocations allocations;
    for (const OutputForm& form : support::FileForms()) {
        bool happened = true;
        for (int n = 1; happened; ++n) {
            SCOPED_TRACE(testing::Message() << form << ", allocation " << n);
            const support::TempFile file("before");
            const support::TempFile missing;
            happened = SaveWithFailure(form, *generator, allocations, file, n, GetParam());
            EXPECT_EQ(happened,
                      SaveWithFailure(form, *generator, allocations, missing, n, GetParam()));
        }
    }
}

TEST_P(OutputAllocation, EveryForm) {
    for (const OutputForm& form : support::AllOutputForms()) FailEach(form, GetParam());
}

INSTANTIATE_TEST_SUITE_P(HowMany, OutputAllocation, testing::ValuesIn(kHowMany));

}  // namespace
