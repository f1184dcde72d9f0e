#include "ItemPath.h"

#include <rapidjson/pointer.h>

#include <algorithm>
#include <cstdlib>

#include "Failure.h"
#include "Text.h"

namespace tool {
namespace {

/// An item path as a JSON Pointer, but for its positions.
std::string AsPointer(const std::string& path) {
    if (path == "/") return "";
    std::string pointer = path;
    for (size_t at = 0; (at = pointer.find("~/", at)) != std::string::npos; at += 2)
        pointer[at + 1] = '1';
    return pointer;
}

/// The position that a segment of an item path names, read as the library reads it: what comes
/// after the digits is ignored.
uint64_t PositionOf(const std::string& key) {
    const long position = std::strtol(key.c_str(), nullptr, 10);
    return position > 0 ? static_cast<uint64_t>(position) : 0;
}

Segment SegmentOf(const rapidjson::Pointer::Token& token, PathSyntax syntax) {
    Segment segment = {{token.name, token.length}, 0, false};
    if (syntax == PathSyntax::kItemPath) {
        segment.position = PositionOf(segment.key);
    } else {
        segment.isEnd = segment.key == "-";
        if (token.index != rapidjson::kPointerInvalidIndex)
            segment.position = uint64_t{token.index} + 1;
    }
    return segment;
}

}  // namespace

ItemPath::ItemPath(const std::string& path, PathSyntax syntax) : text(path) {
    const bool isPointer = syntax == PathSyntax::kPointer;
    const std::string pointer = isPointer ? path : AsPointer(path);
    if (path.empty() ? !isPointer : path[0] != '/')
        throw Failure{FromUtf8(path) + (isPointer
                                            ? L": a JSON Pointer is empty or begins with a slash"
                                            : L": an item path begins with a slash")};
    const rapidjson::Pointer parsed(pointer.c_str(), pointer.size());
    if (!parsed.IsValid())
        throw Failure{FromUtf8(path) + L": inside a key, a tilde is written ~0 and a slash " +
                      (isPointer ? L"~1" : L"~/")};
    for (size_t i = 0; i < parsed.GetTokenCount(); ++i)
        segments.push_back(SegmentOf(parsed.GetTokens()[i], syntax));
}

std::string ItemPath::Parent() const {
    size_t slash = text.rfind('/');
    while (slash != 0 && text[slash - 1] == '~') slash = text.rfind('/', slash - 1);
    return text.substr(0, slash);
}

std::string PathOfMember(const std::string& parent, std::string_view key, PathSyntax syntax) {
    std::string path = parent + "/";
    for (const char c : key) {
        if (c == '~')
            path += "~0";
        else if (c == '/')
            path += syntax == PathSyntax::kPointer ? "~1" : "~/";
        else
            path += c;
    }
    return path;
}

std::string PathOfElement(const std::string& parent, uint64_t position, PathSyntax syntax) {
    return parent + "/" + std::to_string(syntax == PathSyntax::kPointer ? position - 1 : position);
}

}  // namespace tool
