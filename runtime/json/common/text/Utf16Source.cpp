#include "Utf16Source.h"

#include "Escapes.h"
#include "UnitBlocks.h"

namespace QXJSON {

/// A string whose first run ends at something else than its quotation mark.
const wchar_t* Utf16Source::ReadEscaped(const wchar_t* at, const wchar_t* end) {
    scratch.Clear();
    const auto put = [&](const wchar_t* units, size_t count) {
        CopyUnits(scratch.Push<wchar_t>(count), units, count);
    };
    while (*end == '\\') {
        put(at, static_cast<size_t>(end - at));
        wchar_t units[2];
        size_t count = 0;
        at = ReadEscape(end, units, count);
        if (!at) return nullptr;
        put(units, count);
        end = EndOfWellFormedRun(at);
    }
    if (*end != '"') return nullptr;
    put(at, static_cast<size_t>(end - at));
    chars = scratch.Bottom<wchar_t>();
    length = scratch.GetSize() / sizeof(wchar_t);
    return end + 1;
}

}  // namespace QXJSON
