#include "Messages.h"

namespace model {
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

}  // namespace

const wchar_t* EnglishMessage(int code) { return kTexts[code]; }

int CodeOfMessage(const std::wstring& text) {
    for (int code = 0; code < kMessageTexts; ++code)
        if (text == kTexts[code]) return code;
    return -1;
}

}  // namespace model
