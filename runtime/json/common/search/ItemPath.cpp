#include "ItemPath.h"

#include <windows.h>

#include <optional>
#include <string>

#include "PointerWalk.h"
#include "common/ResultCodes.h"
#include "common/platform/FaultGuard.h"
#include "common/text/UnitBlocks.h"

namespace QXJSON {
namespace {

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

/// The first unit that means something in a path, or its end.
const wchar_t* EndOfName(const wchar_t* path) {
    // "/" and the digits lie side by side.
    while (*path != 0 && (*path < L'/' || *path > L'9') && *path != L'~') ++path;
    return path;
}

bool IsEscapedSlash(const wchar_t* at) { return at[0] == L'~' && at[1] == L'/'; }

/// A path that has neither digits nor escapes, which is the same text as a pointer; else nothing.
std::optional<std::wstring_view> AsPointer(const wchar_t* path) {
    if (!path || *path != L'/' || path[1] == 0 || !IsAligned(path)) return std::nullopt;
    const wchar_t* const end = FindUnit(path, [](UnitBlock units) {
        const UnitBlock digit = InRange(units, '0', '9');
        return MaskOf(Either(EqualTo(units, 0), Either(EqualTo(units, '~'), digit)));
    });
    const auto length = static_cast<size_t>(end - path);
    if (*end != 0 || length >= kPathCapacity) return std::nullopt;
    return std::wstring_view(path, length);
}

/// Walks an item path, one segment after the other.
class Translator {
public:
    Translator(MemberLookup& lookup, JsonValue& document, const wchar_t* path, PointerText& pointer)
        : members(lookup), examined(&document), at(path), out(pointer) {}

    int Run() {
        out.Truncate(0);
        if (!at || *at != L'/') return kBadPath;
        if (at[1] == 0) return kSuccess;
        while (*at) {
            const int result = Segment();
            if (result != kSuccess) return result;
        }
        return kSuccess;
    }

    /// The value that the whole pointer leads to, or null.
    JsonValue* Resolve() { return ResolvePointer(members, *examined, Unexamined()); }

private:
    std::wstring_view Unexamined() const { return out.Text().substr(examinedLength); }

    /// Translates the segment whose "/" is next.
    int Segment() {
        const wchar_t* const digit = FirstDigit(at + 1);
        if (!IsDigit(*digit)) return CopyUpTo(digit);
        if (!ExamineParent()) return kBadPath;
        return examined->IsArray() ? Position(digit) : CopyUpTo(EndOfSegment(digit));
    }

    /// The first digit of a segment, or else the segment's end.
    static const wchar_t* FirstDigit(const wchar_t* name) {
        while (*(name = EndOfName(name)) == L'~') name += IsEscapedSlash(name) ? 2 : 1;
        return name;
    }

    static const wchar_t* EndOfSegment(const wchar_t* name) {
        while (*name && *name != L'/') name += IsEscapedSlash(name) ? 2 : 1;
        return name;
    }

    /// Copies the rest of a segment that stands for itself, but for escaped slashes.
    int CopyUpTo(const wchar_t* end) {
        const wchar_t* begin = at;
        for (at = at + 1; at != end; ++at) {
            if (!IsEscapedSlash(at)) continue;
            // Up to the "~", and what stands for the slash after it.
            if (!Put(begin, at + 1) || !out.Put(L'1')) return kBadPath;
            begin = ++at + 1;
        }
        return Put(begin, end) ? kSuccess : kBadPath;
    }

    bool Put(const wchar_t* begin, const wchar_t* end) {
        return out.Put({begin, static_cast<size_t>(end - begin)});
    }

    /// Resolves what is written so far; false where it is malformed. Goes on from what was resolved
    /// the last time.
    bool ExamineParent() {
        if (!IsWellFormed(Unexamined())) return false;
        examined = Resolve();
        if (!examined) RaiseAccessViolation();
        examinedLength = out.Length();
        return true;
    }

    /// Writes the position, counted from 0, that a segment below an array stands for: all of it up
    /// to the next "/", whatever stands before that. A segment that is no number has the position
    /// -1.
    int Position(const wchar_t* digit) {
        // Unsigned, for the lowest integer has no predecessor.
        const auto position = static_cast<int>(static_cast<unsigned>(_wtoi(at + 1)) - 1u);
        // (std::to_wstring would take the way through printf.)
        const std::string digits = std::to_string(position);
        for (at = digit; *at && *at != L'/';) ++at;
        const bool fits = out.Put(L'/') && out.Put(std::wstring(digits.begin(), digits.end()));
        return fits ? kSuccess : kBadPath;
    }

    MemberLookup& members;
    JsonValue* examined;  // the value at so much of the pointer
    size_t examinedLength = 0;
    const wchar_t* at;
    PointerText& out;
};

}  // namespace

int TranslateItemPath(MemberLookup& members, JsonValue& root, const wchar_t* path,
                      PointerText& pointer) {
    return Translator(members, root, path, pointer).Run();
}

JsonValue* ResolveItemPath(MemberLookup& members, JsonValue& root, const wchar_t* path) {
    if (const auto plain = AsPointer(path)) return ResolvePointer(members, root, *plain);
    PointerText pointer;
    Translator translator(members, root, path, pointer);
    return translator.Run() == kSuccess ? translator.Resolve() : nullptr;
}

}  // namespace QXJSON
