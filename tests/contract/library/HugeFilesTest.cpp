// Files too large for what reads them in the ANSI code page: their size does not fit into an int.

#include <gtest/gtest.h>

#include <string>

#include "FileLoads.h"
#include "TempFile.h"

namespace {

using support::FileLoad;
using support::FileOutcome;
using support::TempFile;

/// What a size of 32 bits would make of the large ones is a document.
TEST(HugeFiles, AnsiTextKeepsItsFirstError) {
    const std::string bytes = "{\"\xE9.\":1}";
    for (const FileLoad& load : support::kFileLoads)
        for (const uint64_t size : {uint64_t{1} << 31, uint64_t{1} << 32}) {
            SCOPED_TRACE(testing::Message() << load.name << ", " << size);
            TempFile file(bytes);
            EXPECT_EQ(1, load.load(file.Name()).result);
            ASSERT_TRUE(file.Extend(size + bytes.size()));
            const FileOutcome outcome = load.load(file.Name());
            EXPECT_NE(1, outcome.result);
            if (load.tells) {
                EXPECT_EQ(12, outcome.code);
                EXPECT_EQ(bytes.find('\xE9') + 1, outcome.offset);
            }
            EXPECT_TRUE(file.IsClosed());
        }
}

/// A document that ends at a zero is not read to the end of its file.
TEST(HugeFiles, Utf8EndsAtAZero) {
    for (const FileLoad& load : support::kFileLoads) {
        TempFile file("{\"\xC3\xA9\":1}");
        const FileOutcome expected = load.load(file.Name());
        ASSERT_TRUE(file.Extend(uint64_t{1} << 32));
        EXPECT_EQ(expected, load.load(file.Name())) << load.name;
    }
}

}  // namespace
