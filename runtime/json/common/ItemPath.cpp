#include "ItemPath.h"

#include <windows.h>

#include <string>

#include "FaultGuard.h"
#include "PointerWalk.h"
#include "ResultCodes.h"
#include "UnitBlocks.h"

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

/// Whether a path is its own pointer: names that mean nothing but themselves.
bool IsPlain(const wchar_t* path) {
    if (*path != L'/' || path[1] == 0 || !IsAligned(path)) return false;
    const wchar_t* const end = FindUnit(path, [](UnitBlock units) {
        return MaskOf(_mm_or_si128(
            _mm_cmpeq_epi16(units, _mm_setzero_si128()),
            _mm_or_si128(InRange(units, '0', '9'), _mm_cmpeq_epi16(units, AllUnits('~')))));
    });
    return *end == 0 && end - path < static_cast<ptrdiff_t>(kPathCapacity);
}

/// The pointer that is being written; refuses what does not fit.
class PointerWriter {
public:
    explicit PointerWriter(wchar_t (&buffer)[kPathCapacity]) : begin(buffer) {}

    bool Put(wchar_t c) { return Put(std::wstring_view(&c, 1)); }

    bool Put(std::wstring_view text) {
        if (length + text.size() >= kPathCapacity) return false;
        CopyUnits(begin + length, text.data(), text.size());
        length += text.size();
        begin[length] = 0;
        return true;
    }

    /// Takes back all that was written behind the first `newLength` units.
    void Truncate(size_t newLength) { begin[length = newLength] = 0; }

    const wchar_t* Text() const { return begin; }
    size_t Length() const { return length; }

private:
    wchar_t* begin;
    size_t length = 0;
};

/// Walks an item path, one segment after the other.
class Translator {
public:
    Translator(MemberLookup& lookup, JsonValue& document, const wchar_t* path,
               wchar_t (&pointer)[kPathCapacity])
        : members(lookup), root(document), at(path), out(pointer) {}

    int Run() {
        while (*at) {
            const int result = Segment();
            if (result != kSuccess) return result;
        }
        return kSuccess;
    }

private:
    /// What a segment turns out to be once its first digit asked for its parent.
    enum class Parent { kArray, kOther, kMalformed };

    /// Translates the segment whose "/" is next.
    int Segment() {
        const wchar_t* const name = at + 1;
        const size_t parentLength = out.Length();
        bool examined = false;
        if (!Copy()) return kBadPath;
        while (*at && *at != L'/') {
            if (!examined && IsDigit(*at)) {
                examined = true;
                const Parent parent = ExamineParent(parentLength);
                if (parent == Parent::kMalformed) return kBadPath;
                if (parent == Parent::kArray) return Position(name, parentLength);
            }
            if (!Copy()) return kBadPath;
        }
        return kSuccess;
    }

    /// Copies an escaped slash, or the next unit with all behind it that mean nothing.
    bool Copy() {
        const wchar_t* const begin = at;
        if (IsEscapedSlash(at)) {
            at += 2;
            return out.Put(L'~') && out.Put(L'1');
        }
        at = EndOfName(at + 1);
        return out.Put({begin, static_cast<size_t>(at - begin)});
    }

    Parent ExamineParent(size_t parentLength) const {
        const std::wstring_view pointer(out.Text(), parentLength);
        if (!IsWellFormed(pointer)) return Parent::kMalformed;
        const JsonValue* const parent = ResolvePointer(members, root, pointer);
        if (!parent) RaiseAccessViolation();
        return parent->IsArray() ? Parent::kArray : Parent::kOther;
    }

    /// Replaces what was copied of a segment below an array by its position counted from 0, and
    /// passes over the rest of the segment. A segment that is no number has the position -1.
    int Position(const wchar_t* name, size_t parentLength) {
        // Unsigned, for the lowest integer has no predecessor.
        const auto position = static_cast<int>(static_cast<unsigned>(_wtoi(name)) - 1u);
        const std::string digits = std::to_string(position);
        out.Truncate(parentLength);
        while (*at && *at != L'/') at += IsEscapedSlash(at) ? 2 : 1;
        const bool fits = out.Put(L'/') && out.Put(std::wstring(digits.begin(), digits.end()));
        return fits ? kSuccess : kBadPath;
    }

    MemberLookup& members;
    JsonValue& root;
    const wchar_t* at;
    PointerWriter out;
};

}  // namespace

int TranslateItemPath(MemberLookup& members, JsonValue& root, const wchar_t* path,
                      wchar_t (&pointer)[kPathCapacity]) {
    pointer[0] = 0;
    if (!path || *path != L'/') return kBadPath;
    if (path[1] == 0) return kSuccess;
    return Translator(members, root, path, pointer).Run();
}

JsonValue* ResolveItemPath(MemberLookup& members, JsonValue& root, const wchar_t* path) {
    if (path && IsPlain(path)) return ResolvePointer(members, root, KeyOf(path));
    wchar_t pointer[kPathCapacity];
    if (TranslateItemPath(members, root, path, pointer) != kSuccess) return nullptr;
    return ResolvePointer(members, root, pointer);
}

}  // namespace QXJSON
