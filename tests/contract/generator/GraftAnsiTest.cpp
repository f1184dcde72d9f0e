// A file that is not valid UTF-8 is read again in the system's ANSI code page; text is not. Which
// characters that gives depends on the machine; the expectations go through the same code page.

#include <gtest/gtest.h>

#include "Encode.h"
#include "GraftReference.h"
#include "GraftRoute.h"
#include "GraftScene.h"
#include "OutputForm.h"
#include "PlainReader.h"

namespace {

using model::FromAnsi;
using model::Taken;
using support::ExpectAsReference;
using support::FileRoutes;
using support::GraftScene;
using support::GraftSource;
using support::Operation;

const std::string kMark = "\xEF\xBB\xBF";

struct Row {
    std::string bytes;
    Taken::Kind kind;
};

/// A character of its own after the invalid byte keeps two-byte code pages from eating a quote.
const Row kRows[] = {
    {"[\"\xE9.\"]", Taken::kContainer},
    {"{\"\xE9t\xE9.\":\"\xFC \"}", Taken::kContainer},
    {"[\"\xC3\xA9 \xE9.\",[1,{}]]", Taken::kContainer},
    {"[\"\xED\xA0\x80.\"]", Taken::kContainer},
    {"[\"\xF5.\"]", Taken::kContainer},
    {"[\"\xC0\x80.\"]", Taken::kContainer},
    // Special numbers count as numbers here, too.
    {"[\"\xE9.\",NaN,Inf,-Infinity]", Taken::kContainer},
    {"{\"a\":NaN,\"b\":\"\xE9.\"}", Taken::kContainer},
    // A zero ends the second attempt as it ends the first.
    {std::string("[\"\xE9.\"]\0]", 8), Taken::kContainer},
    {"\"\xE9.\"", Taken::kScalar},
    // The second attempt reads a mark as text before the document.
    {kMark + "[\"\xE9.\"]", Taken::kBroken},
    {kMark + "\"\xE9.\"", Taken::kBroken},
    {"[\"\xE9.\"", Taken::kBroken},
    {"[\"\xE9.", Taken::kBroken},
    {"[\"\xE9.\",]", Taken::kBroken},
    {"[\"\xE9.\"] 1", Taken::kBroken},
    {"[\"\xE9.\",1e309]", Taken::kBroken},
    {"[\"\xE9.\",\"\\uD800\"]", Taken::kBroken},
    {"[\"\xE9.\"] // no", Taken::kBroken},
    // Only a string that is not UTF-8 leads to the second attempt.
    {"[\xE9]", Taken::kBroken},
    {"[] \xE9", Taken::kBroken},
    {"[1,]\"\xE9\"", Taken::kBroken},
    {support::Encode(L"[\"\xDC00\"]", support::Encoding::kUtf16Le), Taken::kBroken},
    {support::Encode(L"[\"\xD800.\"]", support::Encoding::kUtf16Be, true), Taken::kBroken},
};

TEST(GraftAnsi, TheSecondAttempt) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::PrintToString(row.bytes));
        for (const Operation& route : FileRoutes()) {
            const GraftSource source(route, row.bytes);
            EXPECT_EQ(row.kind, model::ReferenceTake(route, source).kind) << route;
            ExpectAsReference(route, source);
        }
    }
}

TEST(GraftAnsi, CharactersAreThoseOfTheCodePage) {
    for (const Operation& route : FileRoutes()) {
        GraftScene scene;
        const GraftSource source(route, std::string("[\"\xE9\xFC.\",NaN]"));
        EXPECT_EQ(GraftScene::AnswerOf(route), route.call(*scene, GraftScene::Good(route, source)));
        EXPECT_EQ(GraftScene::DocumentWith(route, FromAnsi("[\"\xE9\xFC.\",NaN]")),
                  support::JsonOf(*scene));
    }
}

/// Text that, read as UTF-8, holds a string that is not valid. Nothing shows the encoding of the
/// first of these, the second has the mark of UTF-8, the third is plain UTF-16.
TEST(GraftAnsi, TextHasNoSecondAttempt) {
    const std::string sources[] = {"[\"\xE9-\"]", kMark + "[\"\xE9.- \"]",
                                   support::Encode(L"[\"\xD800.\"]", support::Encoding::kUtf16Le)};
    for (const std::string& bytes : sources) {
        for (const Operation& route : support::TextRoutes()) {
            GraftScene scene;
            const GraftSource source(route, bytes);
            scene.ExpectFailure(0, route, GraftScene::Good(route, source));
            scene.ExpectNextHandle(GraftScene::kNext);
        }
    }
}

/// Files larger than the read buffer, with the invalid byte in each part of it.
TEST(GraftAnsi, LargeFiles) {
    for (const size_t front :
         {0u, 2040u, 2043u, 2044u, 2045u, 2046u, 2047u, 2048u, 5000u, 300000u}) {
        const std::string bytes =
            "[\"" + std::string(front, '-') + "\xE9.\",\"" + std::string(3000, '+') + "\"]";
        SCOPED_TRACE(front);
        for (const Operation& route : FileRoutes())
            EXPECT_TRUE(ExpectAsReference(route, GraftSource(route, bytes)));
    }
}

}  // namespace
