#include "JsonText.h"

#include <algorithm>

#include "Failure.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

/// The position after the string that begins at `at`.
size_t StringEnd(std::wstring_view json, size_t at) {
    for (++at; json[at] != L'"'; ++at)
        if (json[at] == L'\\') ++at;
    return at + 1;
}

/// The position after the value that begins at `at`.
size_t ValueEnd(std::wstring_view json, size_t at) {
    size_t depth = 0;
    while (at < json.size()) {
        const wchar_t c = json[at];
        const bool closes = c == L'}' || c == L']';
        if (depth == 0 && (closes || c == L',')) break;
        if (c == L'{' || c == L'[') ++depth;
        if (closes) --depth;
        at = c == L'"' ? StringEnd(json, at) : at + 1;
    }
    return at;
}

}  // namespace

std::wstring JsonOf(const Item& container) {
    const auto json = container.Json();
    if (!json) throw Failure{L"the document is too large for the memory"};
    return std::wstring(*json);
}

std::wstring Quoted(std::wstring_view text) {
    const Generator scratch = NewGenerator();
    scratch.NewArray().Get().Append(text).Get();
    const std::wstring_view array = scratch.Text().Get();
    return std::wstring(array.substr(1, array.size() - 2));
}

ValueKind KindOf(std::wstring_view json) {
    switch (json[0]) {
        case L'"':
            return ValueKind::kString;
        case L't':
        case L'f':
            return ValueKind::kBoolean;
        case L'n':
            return ValueKind::kNull;
        case L'{':
            return ValueKind::kObject;
        case L'[':
            return ValueKind::kArray;
        default:
            return ValueKind::kNumber;
    }
}

std::vector<Part> PartsOf(std::wstring_view json) {
    const bool object = KindOf(json) == ValueKind::kObject;
    std::vector<Part> parts;
    if (!object && KindOf(json) != ValueKind::kArray) return parts;
    const size_t last = json.size() - 1;  // the closing bracket
    for (size_t at = 1; at < last;) {
        Part part;
        if (object) {
            part.key = json.substr(at, StringEnd(json, at) - at);
            at += part.key.size() + 1;
        }
        part.value = json.substr(at, ValueEnd(json, at) - at);
        at += part.value.size() + 1;
        parts.push_back(part);
    }
    return parts;
}

std::optional<Part> Find(std::wstring_view container, const std::wstring& segment) {
    const std::vector<Part> parts = PartsOf(container);
    if (KindOf(container) == ValueKind::kObject) {
        const std::wstring key = Quoted(UnescapedKey(segment));
        const auto found = std::find_if(parts.begin(), parts.end(),
                                        [&](const Part& part) { return part.key == key; });
        if (found != parts.end()) return *found;
    } else if (const uint32_t position = PositionOf(segment); position - 1 < parts.size()) {
        return parts[position - 1];
    }
    return std::nullopt;
}

std::optional<std::wstring_view> ValueAt(std::wstring_view json, const ItemPath& path) {
    for (const std::wstring& segment : path.segments) {
        const auto part = Find(json, segment);
        if (!part) return std::nullopt;
        json = part->value;
    }
    return json;
}

}  // namespace tool
