#include "ItemPath.h"

#include <cstdlib>

#include "Failure.h"

namespace tool {

ItemPath::ItemPath(const std::wstring& path) {
    if (path.empty() || path[0] != L'/')
        throw Failure{path + L": an item path begins with a slash"};
    if (path == L"/") return;
    for (size_t at = 0; at < path.size(); ++at) {
        if (path[at] == L'/') {
            segments.emplace_back();
            continue;
        }
        segments.back() += path[at];
        if (path.compare(at, 2, L"~/") == 0) segments.back() += path[++at];
    }
}

std::wstring ItemPath::Text() const {
    std::wstring text;
    for (const std::wstring& segment : segments) text += L"/" + segment;
    return text.empty() ? L"/" : text;
}

std::wstring UnescapedKey(const std::wstring& segment) {
    std::wstring key;
    for (size_t at = 0; at < segment.size(); ++at) {
        if (segment[at] != L'~') {
            key += segment[at];
            continue;
        }
        const wchar_t escaped = ++at < segment.size() ? segment[at] : L'\0';
        if (escaped != L'0' && escaped != L'1' && escaped != L'/')
            throw Failure{segment + L": inside a key, a tilde is written ~0 and a slash ~/"};
        key += escaped == L'0' ? L'~' : L'/';
    }
    return key;
}

uint32_t PositionOf(const std::wstring& segment) {
    const int position = _wtoi(segment.c_str());  // as the library reads it
    return position > 0 ? static_cast<uint32_t>(position) : 0;
}

}  // namespace tool
