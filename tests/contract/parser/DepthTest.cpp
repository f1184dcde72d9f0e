// Nesting that no stack carries. RapidJSON goes one call deeper for each level; the load has to end
// with -5 before the stack does, free what it took and leave a parser that works.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FailingAllocations.h"
#include "JsonDll.h"
#include "LoadForm.h"
#include "ProcessUse.h"
#include "StackThread.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonParser;
using support::LoadOutcome;
using support::NewParser;
using support::Parser;
using support::TempFile;

/// That losses show is what the tests below rely on.
TEST(Depth, LossesShow) {
    const size_t bytes = support::PrivateBytes();
    const int handles = support::HandleCount();
    const std::vector<char> block(16 * 1024 * 1024, 'x');
    HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    EXPECT_GE(support::PrivateBytes(), bytes + block.size());
    EXPECT_EQ(handles + 1, support::HandleCount());
    CloseHandle(event);
    EXPECT_EQ(handles, support::HandleCount());
}

enum class Nesting { kArrays, kObjects, kMixed };

constexpr Nesting kNestings[] = {Nesting::kArrays, Nesting::kObjects, Nesting::kMixed};

std::string Repeated(const std::string& part, size_t count) {
    std::string all;
    all.reserve(part.size() * count);
    while (count-- > 0) all += part;
    return all;
}

/// A well-formed document of `levels` (an even number) levels.
std::string Nested(Nesting nesting, size_t levels) {
    switch (nesting) {
        case Nesting::kArrays:
            return Repeated("[", levels) + Repeated("]", levels);
        case Nesting::kObjects:
            return Repeated("{\"\":", levels) + '0' + Repeated("}", levels);
        default:
            return Repeated("[{\"\":", levels / 2) + '0' + Repeated("}]", levels / 2);
    }
}

/// One document, ready for each of the loads.
class Prepared {
public:
    explicit Prepared(const std::string& document)
        : bytes(document), text(document.begin(), document.end()), file(document) {}

    static constexpr int kLoads = 3;
    int Load(IJsonParser& parser, int which) const {
        switch (which) {
            case 0:
                return parser.LoadJsonBytes(bytes.data(), static_cast<uint32_t>(bytes.size()));
            case 1:
                return parser.LoadJsonString(text.c_str());
            default:
                return parser.LoadJsonFile(file.Name());
        }
    }
    const TempFile& File() const { return file; }
    const std::wstring& Text() const { return text; }

private:
    std::string bytes;
    std::wstring text;
    TempFile file;
};

/// What a load returned, and what an ordinary load on the same object did afterwards.
struct DeepLoad {
    int result = 0;
    int rootAfter = 0;
    int ordinary = 0;
};

DeepLoad LoadDeep(IJsonParser& parser, const Prepared& document, int which) {
    DeepLoad deep;
    deep.result = document.Load(parser, which);
    uint32_t root = 0;
    uint32_t type = 0;
    deep.rootAfter = parser.GetRootItem(&root, &type);
    deep.ordinary = parser.LoadJsonString(L"{\"a\":[1,2,{\"b\":null}]}");
    return deep;
}

void ExpectTooDeep(const DeepLoad& deep) {
    EXPECT_EQ(-5, deep.result);
    EXPECT_EQ(0, deep.rootAfter);
    EXPECT_EQ(1, deep.ordinary);
}

TEST(Depth, TenMillionLevels) {
    for (const Nesting nesting : kNestings) {
        const Prepared document(Nested(nesting, 10'000'000));
        SCOPED_TRACE(static_cast<int>(nesting));
        const Parser parser = NewParser();
        for (int which = 0; which < Prepared::kLoads; ++which) {
            SCOPED_TRACE(which);
            ExpectTooDeep(LoadDeep(*parser, document, which));
            DeepLoad onSmallStack;
            support::OnStackOf(support::kSmallStack,
                               [&] { onSmallStack = LoadDeep(*parser, document, which); });
            ExpectTooDeep(onSmallStack);
        }
        EXPECT_TRUE(document.File().IsClosed());
    }
}

/// Loads each document in turn through each load, `rounds` times; how many loads went as expected.
int CountTooDeep(IJsonParser& parser, const Prepared* documents, size_t count, int rounds) {
    int asExpected = 0;
    for (int i = 0; i < rounds; ++i)
        for (size_t document = 0; document < count; ++document)
            for (int which = 0; which < Prepared::kLoads; ++which) {
                const DeepLoad deep = LoadDeep(parser, documents[document], which);
                if (deep.result == -5 && deep.rootAfter == 0 && deep.ordinary == 1) ++asExpected;
            }
    return asExpected;
}

constexpr size_t kTooDeep = 200'000;
constexpr size_t kGrowth = 2 * 1024 * 1024;  ///< a leak of 2 KiB in each of 1,000 loads

/// What makes the second attempt in the ANSI code page, with its copies of the text, go too deep.
std::string NestedAnsi() { return "[\"\xE9.\"," + Repeated("[", kTooDeep); }

TEST(Depth, AThousandTimesWithoutLoss) {
    const Prepared documents[] = {
        Prepared(Repeated("[", kTooDeep)), Prepared(Nested(Nesting::kArrays, kTooDeep)),
        Prepared(Nested(Nesting::kObjects, kTooDeep)), Prepared(Nested(Nesting::kMixed, kTooDeep))};
    constexpr int kRounds = 84;
    constexpr int kLoads = kRounds * 4 * Prepared::kLoads;
    static_assert(kLoads >= 1000, "a thousand loads");

    const Parser parser = NewParser();
    const auto load = [&](int rounds) { return CountTooDeep(*parser, documents, 4, rounds); };
    const auto expectNoLoss = [&](const auto& run) {
        run(3);
        const support::FailingAllocations allocations;
        const size_t bytes = support::PrivateBytes();
        const int handles = support::HandleCount();
        EXPECT_EQ(kLoads, run(kRounds));
        EXPECT_LT(support::PrivateBytes(), bytes + kGrowth);
        EXPECT_EQ(handles, support::HandleCount());
        EXPECT_EQ(0, allocations.LiveBlocks());
    };
    expectNoLoss(load);
    expectNoLoss([&](int rounds) {
        int asExpected = 0;
        support::OnStackOf(support::kSmallStack, [&] { asExpected = load(rounds); });
        return asExpected;
    });
    for (const Prepared& document : documents) EXPECT_TRUE(document.File().IsClosed());
}

TEST(Depth, TheSecondAttemptAsAnsiTextLosesNothingEither) {
    const std::string bytes = NestedAnsi();
    const auto size = static_cast<uint32_t>(bytes.size());
    const TempFile file(bytes);
    const Parser parser = NewParser();
    const auto load = [&](int rounds) {
        int asExpected = 0;
        for (int i = 0; i < rounds; ++i) {
            if (parser->LoadJsonBytes(bytes.data(), size) == -5) ++asExpected;
            if (parser->LoadJsonFile(file.Name()) == -5) ++asExpected;
        }
        return asExpected;
    };
    load(3);
    const support::FailingAllocations allocations;
    const size_t before = support::PrivateBytes();
    EXPECT_EQ(200, load(100));
    EXPECT_EQ(0, allocations.LiveBlocks());
    EXPECT_LT(support::PrivateBytes(), before + kGrowth);
    EXPECT_TRUE(file.IsClosed());
    EXPECT_EQ(support::Success(L"[1]"), support::LoadFile(*parser, "[1]"));
}

/// What a failed load leaves, seen through all queries.
TEST(Depth, ATooDeepLoadLeavesAnEmptyParserWithoutError) {
    const Parser parser = NewParser();
    for (const wchar_t* before : {L"[1,{}]", L"[1", L""}) {
        parser->LoadJsonString(before);
        const std::string deep = Repeated("[", kTooDeep);
        EXPECT_EQ(support::Escaped(), support::LoadBytes(*parser, deep));
        EXPECT_EQ(support::Escaped(), support::LoadFile(*parser, deep));
    }
    EXPECT_EQ(support::Success(L"[1]"), support::LoadBytes(*parser, "[1]"));
}

/// Depth alone is no error: what the stack carries loads, and can be written again.
TEST(Depth, ThreeHundredLevelsFitASmallStack) {
    for (const Nesting nesting : kNestings) {
        const Prepared document(Nested(nesting, 300));
        const Parser parser = NewParser();
        for (int which = 0; which < Prepared::kLoads; ++which) {
            int result = 0;
            std::wstring tree;
            support::OnStackOf(support::kSmallStack, [&] {
                result = document.Load(*parser, which);
                tree = support::TreeOf(*parser);
            });
            EXPECT_EQ(1, result);
            EXPECT_EQ(document.Text(), tree);
        }
    }
}

TEST(Depth, AThousandLevelsFitAnOrdinaryStack) {
    for (const Nesting nesting : kNestings) {
        const Prepared document(Nested(nesting, 1000));
        const Parser parser = NewParser();
        for (int which = 0; which < Prepared::kLoads; ++which) {
            EXPECT_EQ(support::Success(document.Text()),
                      support::OutcomeOf(*parser, document.Load(*parser, which)));
        }
    }
}

TEST(Depth, ThreeHundredLevelsOfAnsiTextFitASmallStack) {
    const std::string bytes = "[\"\xE9.\"," + Nested(Nesting::kMixed, 300) + "]";
    const Parser parser = NewParser();
    int result = 0;
    support::OnStackOf(support::kSmallStack, [&] {
        result = parser->LoadJsonBytes(bytes.data(), static_cast<uint32_t>(bytes.size()));
    });
    EXPECT_EQ(1, result);
}

/// A document as deep as the stack just carries is not lost on a smaller one: it can be released
/// there, and read in its upper levels.
TEST(Depth, TheDeepestDocumentThatLoadsIsReleasedOnASmallStack) {
    size_t levels = 1000;
    Parser parser = NewParser();
    while (parser->LoadJsonString(Prepared(Nested(Nesting::kMixed, 2 * levels)).Text().c_str()) ==
           1)
        levels *= 2;
    const Prepared document(Nested(Nesting::kMixed, levels));
    ASSERT_EQ(1, document.Load(*parser, 1));
    int next = 0;
    int released = 0;
    support::OnStackOf(support::kSmallStack, [&] {
        next = parser->LoadJsonString(L"[1]");
        document.Load(*parser, 1);
        released = parser.release()->Release();
    });
    EXPECT_EQ(1, next);
    EXPECT_EQ(1, released);
}

}  // namespace
