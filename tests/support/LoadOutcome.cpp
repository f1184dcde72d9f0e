#include "LoadOutcome.h"

#include <gtest/gtest.h>

#include "Messages.h"

namespace support {
namespace {

constexpr uint32_t kObject = 4;

}  // namespace

bool operator==(const LoadOutcome& a, const LoadOutcome& b) {
    return a.result == b.result && a.code == b.code && a.offset == b.offset && a.tree == b.tree;
}

std::ostream& operator<<(std::ostream& out, const LoadOutcome& outcome) {
    return out << "result " << outcome.result << ", code " << outcome.code << ", offset "
               << outcome.offset << ", tree " << testing::PrintToString(outcome.tree);
}

LoadOutcome Success(const std::wstring& tree) { return {1, 0, 0, tree}; }
LoadOutcome Failure(int code, uint64_t offset) { return {0, code, offset, L""}; }
LoadOutcome Escaped() { return {-5, 0, 0, L""}; }

std::wstring TreeOf(QXJSON::IJsonParser& parser) {
    uint32_t root = 0;
    uint32_t type = 0;
    if (parser.GetRootItem(&root, &type) == 0) return L"";
    const wchar_t* text = L"";
    EXPECT_EQ(
        1, type == kObject ? parser.GetObjectJson(root, &text) : parser.GetArrayJson(root, &text));
    return text;
}

LoadOutcome OutcomeOf(QXJSON::IJsonParser& parser, int result) {
    const wchar_t* message = L"";
    EXPECT_EQ(1, parser.GetErrorMessage(&message));
    LoadOutcome outcome = {result, model::CodeOfMessage(message), ~uint64_t{0}, TreeOf(parser)};
    EXPECT_EQ(1, parser.GetErrorOffset(&outcome.offset));
    EXPECT_EQ(outcome.code != 0 ? 1 : 0, parser.HasError());
    return outcome;
}

}  // namespace support
