#include "ItemPath.h"

#include "Failure.h"

namespace tool {
namespace {

/// Replaces every occurrence of one pair of characters, from left to right.
std::wstring Replaced(std::wstring text, const wchar_t* pair, const std::wstring& by) {
    for (size_t at = 0; (at = text.find(pair, at, 2)) != std::wstring::npos; at += by.size())
        text.replace(at, 2, by);
    return text;
}

}  // namespace

ItemPath::ItemPath(const std::wstring& path) {
    if (path.empty() || path[0] != L'/')
        throw Failure{path + L": an item path begins with a slash"};
    size_t last = 0;
    for (size_t at = 0; at < path.size(); ++at) {
        if (path[at] == L'~' && path.compare(at, 2, L"~/") == 0)
            ++at;  // a slash inside of a key
        else if (path[at] == L'/')
            last = at;
    }
    parent = last == 0 ? L"/" : path.substr(0, last);
    segment = path.substr(last + 1);
}

std::wstring ItemPath::RememberedKey() const { return Replaced(segment, L"~/", L"~1"); }

std::wstring ItemPath::Key() const {
    return Replaced(Replaced(RememberedKey(), L"~1", L"/"), L"~0", L"~");
}

uint32_t ItemPath::Position() const {
    uint32_t position = 0;
    for (const wchar_t c : segment) {
        if (c < L'0' || c > L'9' || position > 100000000) return 0;
        position = 10 * position + static_cast<uint32_t>(c - L'0');
    }
    return position;
}

}  // namespace tool
