// Documents with random mistakes in them, loaded and grafted, against RapidJSON itself on the same
// data. The random sequence is fixed, so that every run sees the same documents.

#include <gtest/gtest.h>

#include <random>

#include "Encode.h"
#include "GraftReference.h"
#include "GraftRoute.h"
#include "GraftScene.h"

namespace {

using support::Encode;
using support::Encoding;
using support::ExpectAsReference;
using support::GraftSource;
using support::Operation;
using support::Operations;

constexpr const wchar_t* kDocuments[] = {
    L"{\"name\":\"Zo\xEB\",\"size\":[1,-2,3.25,4e5,-6E-7,18446744073709551616],\"on\":true}",
    L"[NaN,-Infinity,Inf,{\"\":null},[],{},\"\\u00e9\\uD834\\uDD1E\\n\",false]",
    L"{\"\x65E5\x672C\":[\"\xD834\xDD1E\",\"\x20AC\"],\"deep\":{\"er\":{\"and\":[[[[0]]]]}}}",
    L" [ 0.1 , 1E+2 , \"\\\\ \\\" \\/ \\b\\f\\r\\t\" , -0 , 2147483648 , 1e308 ] ",
};

/// What is put in: the characters of the grammar and of numbers, parts of UTF-8 sequences and of
/// marks, zeros.
const std::string kInserts =
    std::string("[]{},:\"\\/ \n019-+.eENIuntf\xC3\xA9\xE2\xED\xA0\xF0\x9D") +
    std::string("\xEF\xBB\xBF\xFE\xFF\x01\0", 7);

class Mutator {
public:
    std::string Mutate(std::string bytes) {
        for (size_t left = 1 + Below(3); left > 0; --left) Step(bytes);
        return bytes;
    }

    size_t Below(size_t bound) { return random() % bound; }

private:
    char NewByte() { return kInserts[Below(kInserts.size())]; }

    void Step(std::string& bytes) {
        if (bytes.empty()) return;
        const size_t at = Below(bytes.size());
        switch (Below(5)) {
            case 0:
                bytes.erase(at, 1 + Below(3));
                return;
            case 1:
                bytes.insert(at, 1, NewByte());
                return;
            case 2:
                bytes[at] = NewByte();
                return;
            case 3:
                bytes.resize(at);
                return;
            default:
                bytes.insert(at, bytes.substr(Below(bytes.size()), Below(8)));
                return;
        }
    }

    std::mt19937 random{20};
};

void ExpectTakenAsByReference(const Operations& routes, int count) {
    Mutator mutator;
    int trees = 0;
    for (int i = 0; i < count; ++i) {
        const Encoding encoding = support::kAllEncodings[mutator.Below(5)];
        const bool mark = mutator.Below(2) == 0;
        const std::wstring document = kDocuments[mutator.Below(std::size(kDocuments))];
        const std::string bytes = mutator.Mutate(Encode(document, encoding, mark));
        SCOPED_TRACE(testing::PrintToString(bytes));
        const Operation& route = routes[static_cast<size_t>(i) % routes.size()];
        trees += ExpectAsReference(route, GraftSource(route, bytes)) ? 1 : 0;
    }
    EXPECT_GT(trees, 0);
    EXPECT_LT(trees, count / 2);
}

TEST(GraftMutations, Files) { ExpectTakenAsByReference(support::FileRoutes(), 400); }

TEST(GraftMutations, Texts) { ExpectTakenAsByReference(support::TextRoutes(), 3000); }

}  // namespace
