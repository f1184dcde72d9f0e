// Files are written in blocks of 260 bytes, whatever their size.

#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "ImportPatch.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "OutputReference.h"
#include "TempFile.h"

namespace {

using support::FileForms;
using support::Generator;
using support::GeneratorOf;
using support::OutputForm;
using support::ReferenceIn;
using support::WriteIn;
using support::Written;

constexpr size_t kBlock = 260;

/// Whether a size is a whole number of blocks, give or take a few bytes.
bool IsNearBlocks(size_t size) {
    constexpr size_t kNear = 3;
    return (size + kNear) % kBlock <= 2 * kNear;
}

std::wstring DocumentOf(size_t characters) {
    return L"{\"text\":\"" + std::wstring(characters, L'x') + L"\"}";
}

TEST(OutputBlocks, DocumentsOfEverySizeAroundWholeBlocks) {
    int sizes = 0;
    for (size_t characters = 0; characters < 5 * kBlock; ++characters) {
        const std::wstring json = DocumentOf(characters);
        const model::Document document = model::Parse(json);
        Generator generator;
        for (const OutputForm& form : FileForms()) {
            const Written expected = ReferenceIn(form, document);
            if (!IsNearBlocks(expected.bytes->size())) continue;
            if (generator == nullptr) generator = GeneratorOf(json);
            EXPECT_EQ(expected, WriteIn(form, *generator))
                << form << ", " << characters << " characters";
            ++sizes;
        }
    }
    EXPECT_GT(sizes, 300);
}

/// As above for a character that takes several bytes, so that blocks end within it, in texts that
/// are shorter and longer than what is written at once.
TEST(OutputBlocks, BlocksThatEndWithinACharacter) {
    for (size_t front = 0; front < 16; ++front) {
        std::wstring json = L"[\"" + std::wstring(front, L'x');
        const int characters = front < 8 ? 300 : 4000;
        for (int i = 0; i < characters; ++i) json += L"\xD834\xDD1E\x4E2D";
        json += L"\"]";
        const Generator generator = GeneratorOf(json);
        const model::Document document = model::Parse(json);
        for (const OutputForm& form : FileForms())
            EXPECT_EQ(ReferenceIn(form, document), WriteIn(form, *generator))
                << form << ", " << front << " characters in front";
    }
}

std::vector<size_t> g_writes;
size_t g_room = 0;  ///< how many bytes the disk still takes

size_t WriteWhileThereIsRoom(const void* data, size_t size, size_t count, std::FILE* file) {
    const size_t bytes = size * count;
    g_writes.push_back(bytes);
    const size_t written = std::fwrite(data, 1, bytes < g_room ? bytes : g_room, file);
    g_room -= written;
    return size == 0 ? 0 : written / size;
}

void StartWith(size_t room) {
    g_writes.clear();
    g_room = room;
}

constexpr size_t kPlenty = 1 << 20;

TEST(OutputBlocks, EachBlockIsWrittenWhenTheNextBegins) {
    const support::ImportPatch write(support::JsonDll(), "fwrite", &WriteWhileThereIsRoom);
    ASSERT_TRUE(write.Found());
    for (const size_t characters : {0, 100, 250, 251, 1000}) {
        const Generator generator = GeneratorOf(DocumentOf(characters));
        for (const OutputForm& form : FileForms()) {
            SCOPED_TRACE(testing::Message() << form << ", " << characters << " characters");
            StartWith(kPlenty);
            const Written written = WriteIn(form, *generator);
            ASSERT_TRUE(written.bytes);
            std::vector<size_t> expected;
            size_t left = written.bytes->size();
            for (; left > kBlock; left -= kBlock) expected.push_back(kBlock);
            expected.push_back(left);
            EXPECT_EQ(expected, g_writes);
        }
    }
}

/// A full disk does not show in the result. The file is closed, and the next output is whole.
TEST(OutputBlocks, AFullDisk) {
    const support::ImportPatch write(support::JsonDll(), "fwrite", &WriteWhileThereIsRoom);
    ASSERT_TRUE(write.Found());
    const std::wstring json = DocumentOf(2000);
    const Generator generator = GeneratorOf(json);
    const model::Document document = model::Parse(json);
    for (const OutputForm& form : FileForms()) {
        SCOPED_TRACE(testing::Message() << form);
        const Written whole = ReferenceIn(form, document);
        for (const size_t room : {0, 1, 259, 260, 261, 1000}) {
            StartWith(room);
            EXPECT_EQ((Written{1, whole.bytes->substr(0, room)}), WriteIn(form, *generator));
        }
        StartWith(kPlenty);
        EXPECT_EQ(whole, WriteIn(form, *generator));
    }
}

}  // namespace
