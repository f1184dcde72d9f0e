#include "ItemPathModel.h"

#include <rapidjson/pointer.h>

#include <algorithm>
#include <climits>
#include <cwchar>

namespace model {
namespace {

using building::Value;

constexpr const wchar_t* kDigits = L"0123456789";

/// Where a pointer must fit, with its terminator.
constexpr size_t kPointerCapacity = 1024;

bool HasDigit(const std::wstring& text) { return text.find_first_of(kDigits) != text.npos; }

/// The number of a segment, read as _wtoi and written as "%d" do: with 32 bits, which wrap.
std::wstring Moved(const std::wstring& segment, int by) {
    const long number = std::wcstol(segment.c_str(), nullptr, 10);
    const auto read = static_cast<int>(std::clamp<long>(number, INT_MIN, INT_MAX));
    return std::to_wstring(
        static_cast<int>(static_cast<unsigned>(read) + static_cast<unsigned>(by)));
}

std::wstring Replaced(std::wstring text, const wchar_t* from, const wchar_t* to) {
    for (size_t at = 0; (at = text.find(from, at)) != text.npos; at += 2) text.replace(at, 2, to);
    return text;
}

/// In an item path: the segment from `start` on, up to the slash that ends it, if its parent is no
/// array.
std::wstring ItemSegment(const std::wstring& path, size_t start) {
    size_t end = start;
    while (end < path.size() && path[end] != L'/') end += path.compare(end, 2, L"~/") == 0 ? 2 : 1;
    return path.substr(start, end - start);
}

/// What of such a segment with a digit is one below an array, where it ends at the first slash
/// after that digit.
std::wstring Position(const std::wstring& segment) {
    return segment.substr(0, segment.find(L'/', segment.find_first_of(kDigits)));
}

}  // namespace

int TranslatePath(Value& root, const std::wstring& path, std::wstring& pointer) {
    pointer.clear();
    if (path == L"/") return 1;
    if (path.empty() || path[0] != L'/') return -10;
    for (size_t start = 0; start < path.size();) {
        std::wstring segment = ItemSegment(path, start + 1);
        std::wstring translated = Replaced(segment, L"~/", L"~1");
        if (HasDigit(segment)) {
            const rapidjson::GenericPointer<Value> parsed(pointer.c_str(), pointer.size());
            // The whole pointer will be malformed too.
            if (!parsed.IsValid()) return -10;
            const Value* parent = parsed.Get(root);
            if (!parent) return -5;
            if (parent->IsArray()) {
                segment = Position(segment);
                translated = Moved(segment, -1);
            }
        }
        pointer += L"/" + translated;
        if (pointer.size() >= kPointerCapacity) return -10;
        start += 1 + segment.size();
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

}  // namespace model
