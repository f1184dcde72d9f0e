#include "LoadOutcome.h"

#include <gtest/gtest.h>

namespace support {
namespace {

constexpr const wchar_t* kTexts[kMessageTexts] = {
    L"No error.",
    L"The document is empty.",
    L"The root must not be followed by other values.",
    L"Invalid value.",
    L"Missing a name for object member.",
    L"Missing a colon after a name of object member.",
    L"Missing a comma or '}' after an object member.",
    L"Missing a comma or ']' after an array element.",
    L"Incorrect hex digit after \\u escape in string.",
    L"The surrogate pair in string is invalid.",
    L"Invalid escape character in string.",
    L"Missing a closing quotation mark in string.",
    L"Invalid encoding in string.",
    L"Number too big to be stored in double.",
    L"Missing fraction part in number.",
    L"Missing exponent in number.",
    L"Terminate parsing due to Handler error.",
    L"Unspecific syntax error.",
    L"The pointer to the json text is null.",
    L"The pointer to the file name is null.",
    L"The file name does not exist.",
    L"The string is empty.",
    L"Failed to load the JSON data because its root node is not an object",
};

constexpr uint32_t kObject = 4;

}  // namespace

const wchar_t* EnglishMessage(int code) { return kTexts[code]; }

int CodeOfMessage(const std::wstring& text) {
    for (int code = 0; code < kMessageTexts; ++code)
        if (text == kTexts[code]) return code;
    return -1;
}

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
    LoadOutcome outcome = {result, CodeOfMessage(message), ~uint64_t{0}, TreeOf(parser)};
    EXPECT_EQ(1, parser.GetErrorOffset(&outcome.offset));
    EXPECT_EQ(outcome.code != 0 ? 1 : 0, parser.HasError());
    return outcome;
}

}  // namespace support
