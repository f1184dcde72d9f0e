// Loading and reading: the parser.

#include <string>

#include "Console.h"
#include "Library.h"
#include "Modes.h"

namespace host {
namespace {

using QXJSON::IJsonParser;

constexpr uint32_t kString = 0, kNumber = 1, kBoolean = 2, kObject = 4, kArray = 5;
constexpr const wchar_t* kTypeNames[] = {L"string", L"number", L"boolean",
                                         L"null",   L"object", L"array"};

std::wstring NumberText(IJsonParser& parser, uint32_t item) {
    int64_t whole = 0;
    if (parser.GetItemInt64(item, &whole) == 1) return std::to_wstring(whole);
    uint64_t large = 0;
    if (parser.GetItemUInt64(item, &large) == 1) return std::to_wstring(large);
    double number = 0;
    parser.GetItemDouble(item, &number);
    wchar_t text[32];
    std::swprintf(text, std::size(text), L"%.17g", number);
    return text;
}

/// A string, and the size of the bytes that it holds if it is base64 (which any short word may be).
std::wstring StringText(IJsonParser& parser, uint32_t item) {
    const wchar_t* text = nullptr;
    parser.GetItemString(item, &text);
    std::wstring line = Quoted(text);
    const uint8_t* data = nullptr;
    uint32_t size = 0;
    const bool padded = !line.empty() && line.find(L"=\"") != std::wstring::npos;
    if (padded && parser.GetItemBlob(item, &data, &size) == 1)
        line += L"  (a blob of " + std::to_wstring(size) + L" bytes)";
    return line;
}

std::wstring ValueText(IJsonParser& parser, uint32_t item, uint32_t type) {
    uint32_t number = 0;
    switch (type) {
        case kString:
            return StringText(parser, item);
        case kNumber:
            return NumberText(parser, item);
        case kBoolean:
            parser.GetItemBoolean(item, &number);
            return number ? L"true" : L"false";
        case kObject:
        case kArray:
            parser.GetChildCount(item, &number);
            return std::to_wstring(number) + (number == 1 ? L" child" : L" children");
        default:
            return L"";
    }
}

/// Prints an item and, below it, its children. The outline goes as deep as the stack of a host
/// should be asked to; the library itself would go on.
void PrintItem(IJsonParser& parser, uint32_t item, uint32_t type, const std::wstring& name,
               int depth) {
    constexpr int kDeepest = 200;
    Print(L"%*ls%ls  #%u %ls  %ls\n", depth * 2, L"", name.c_str(), item, kTypeNames[type],
          ValueText(parser, item, type).c_str());
    if ((type != kObject && type != kArray) || depth == kDeepest) return;
    uint32_t count = 0, child = 0, childType = 0;
    parser.GetChildCount(item, &count);
    for (uint32_t i = 0; i < count; ++i) {
        const wchar_t* key = nullptr;
        const bool named = parser.GetMemberName(item, i, &key) == 1;
        Expect(parser.GetChildItem(item, i, &child, &childType), "GetChildItem");
        PrintItem(parser, child, childType, named ? key : L"[" + std::to_wstring(i + 1) + L"]",
                  depth + 1);
    }
}

/// Says what the library says of a load.
void PrintOutcome(IJsonParser& parser, const wchar_t* what, int result) {
    const wchar_t* message = L"";
    uint64_t offset = 0;
    parser.GetErrorMessage(&message);
    parser.GetErrorOffset(&offset);
    if (result == 1)
        Print(L"%ls: loaded\n", what);
    else if (parser.HasError())
        Print(L"%ls: result %d at offset %llu: %ls\n", what, result, offset, message);
    else
        Print(L"%ls: result %d\n", what, result);
}

}  // namespace

bool ShowFile(const wchar_t* fileName, const wchar_t* itemPath) {
    const Parser parser = NewParser();
    const int result = parser->LoadJsonFile(fileName);
    PrintOutcome(*parser, fileName, result);
    if (result != 1) return false;

    uint32_t item = 0, type = 0;
    Expect(parser->GetRootItem(&item, &type), "GetRootItem");
    PrintItem(*parser, item, type, L"/", 0);
    if (!itemPath) return true;

    const int found = parser->GetItemByPath(itemPath, &item);
    if (found != 1) {
        Print(L"\n%ls: nothing there (result %d)\n", itemPath, found);
        return false;
    }
    Expect(parser->GetItemType(item, &type), "GetItemType");
    Print(L"\n%ls = #%u %ls  %ls\n", itemPath, item, kTypeNames[type],
          ValueText(*parser, item, type).c_str());
    return true;
}

bool ShowEncodings() {
    struct Sample {
        const wchar_t* name;
        std::string bytes;
    };
    using namespace std::string_literals;
    const Sample samples[] = {
        {L"UTF-8", "[\"\xC3\xA9\"]"},
        {L"UTF-8 with mark", "\xEF\xBB\xBF[\"\xC3\xA9\"]"},
        {L"UTF-16LE", "[\0\"\0\xE9\0\"\0]\0"s},
        {L"UTF-16BE with mark", "\xFE\xFF\0[\0\"\0\xE9\0\"\0]"s},
        {L"UTF-32LE", "[\0\0\0\"\0\0\0\xE9\0\0\0\"\0\0\0]\0\0\0"s},
        {L"ANSI code page", "[\"\xE9\"]"},
        {L"NaN", "[NaN, -Infinity]"},
        {L"trailing comma", "[1, 2,]"},
        {L"a bare number", "5"},
        {L"nothing", ""},
    };
    const Parser parser = NewParser();
    for (const Sample& sample : samples)
        PrintOutcome(
            *parser, sample.name,
            parser->LoadJsonBytes(sample.bytes.data(), static_cast<uint32_t>(sample.bytes.size())));
    return true;
}

}  // namespace host
