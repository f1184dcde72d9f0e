#pragma once

#include <string_view>

#include "MemberLookup.h"
#include "common/text/UnitBlocks.h"

namespace QXJSON {

/// The size, in UTF-16 units with the terminator, of the buffers that hold one path: the pointer
/// that an item path is translated into, and the item path handed out for a handle.
constexpr size_t kPathCapacity = 1024;

/// The JSON Pointer that an item path is translated into.
class PointerText {
public:
    std::wstring_view Text() const { return {units, length}; }
    size_t Length() const { return length; }

    /// Takes back all that was written after the first `newLength` units.
    void Truncate(size_t newLength) { length = newLength; }
    /// Writes more; false, with nothing written, where it does not fit with a terminator.
    bool Put(std::wstring_view text) {
        if (length + text.size() >= kPathCapacity) return false;
        CopyUnits(units + length, text.data(), text.size());
        length += text.size();
        return true;
    }
    bool Put(wchar_t unit) {
        if (length + 1 >= kPathCapacity) return false;
        units[length++] = unit;
        return true;
    }

private:
    wchar_t units[kPathCapacity];
    size_t length = 0;
};

/// Translates the runtime's item path into a JSON Pointer for `root`: "/" becomes the empty
/// pointer, `~/` becomes `~1`, and positions below arrays, which count from 1, count from 0.
///
/// A segment that contains a digit is looked at together with its parent. Where that parent does
/// not exist the translation raises an access violation, by contract.
///
/// Returns kSuccess, or kBadPath for a path that is null, does not begin with "/", has a digit
/// below a parent whose own pointer is malformed, or is longer than the buffer once translated.
int TranslateItemPath(MemberLookup& members, JsonValue& root, const wchar_t* path,
                      PointerText& pointer);

/// The value at an item path, or null; raises an access violation as TranslateItemPath does.
JsonValue* ResolveItemPath(MemberLookup& members, JsonValue& root, const wchar_t* path);

}  // namespace QXJSON
