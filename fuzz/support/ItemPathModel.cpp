#include "ItemPathModel.h"

#include <rapidjson/pointer.h>

#include <algorithm>
#include <cwchar>

namespace fuzz {
namespace {

using building::Value;

bool HasDigit(const std::wstring& text) { return text.find_first_of(L"0123456789") != text.npos; }

std::wstring Moved(const std::wstring& number, int by) {
    return std::to_wstring(std::wcstol(number.c_str(), nullptr, 10) + by);
}

std::wstring Replaced(std::wstring text, const wchar_t* from, const wchar_t* to) {
    for (size_t at = 0; (at = text.find(from, at)) != text.npos; at += 2) text.replace(at, 2, to);
    return text;
}

/// In an item path: the segment from `start` on, up to the slash that ends it.
std::wstring ItemSegment(const std::wstring& path, size_t start) {
    size_t end = start;
    while (end < path.size() && path[end] != L'/') end += path.compare(end, 2, L"~/") == 0 ? 2 : 1;
    return path.substr(start, end - start);
}

}  // namespace

int TranslatePath(Value& root, const std::wstring& path, std::wstring& pointer) {
    pointer.clear();
    if (path == L"/") return 1;
    if (path.empty() || path[0] != L'/') return -10;
    for (size_t start = 0; start < path.size();) {
        const std::wstring segment = ItemSegment(path, start + 1);
        start += 1 + segment.size();
        std::wstring translated = Replaced(segment, L"~/", L"~1");
        if (HasDigit(segment)) {
            const rapidjson::GenericPointer<Value> parsed(pointer.c_str(), pointer.size());
            if (!parsed.IsValid()) return -10;
            const Value* parent = parsed.Get(root);
            if (!parent) return -5;
            if (parent->IsArray()) translated = Moved(segment, -1);
        }
        pointer += L"/" + translated;
    }
    return 1;
}

std::wstring TranslatePointer(Value& root, const std::wstring& pointer) {
    if (pointer.empty()) return L"/";
    std::wstring path;
    for (size_t start = 0; start < pointer.size();) {
        const size_t end = std::min(pointer.find(L'/', start + 1), pointer.size());
        std::wstring segment = pointer.substr(start + 1, end - start - 1);
        const Value* parent = building::Resolve(root, pointer.substr(0, start));
        if (HasDigit(segment) && parent && parent->IsArray()) segment = Moved(segment, 1);
        path += L"/" + segment;
        start = end;
    }
    return Replaced(path, L"~1", L"~/");
}

}  // namespace fuzz
