#include "ItemPath.h"

#include <windows.h>

#include "FaultGuard.h"
#include "PointerWalk.h"
#include "ResultCodes.h"

namespace QXJSON {
namespace {

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool IsEscapedSlash(const wchar_t* at) { return at[0] == L'~' && at[1] == L'/'; }

/// The pointer that is being written; refuses what does not fit.
class PointerWriter {
public:
    explicit PointerWriter(wchar_t (&buffer)[kPathCapacity]) : begin(buffer) {}

    bool Put(wchar_t c) {
        if (length + 1 >= kPathCapacity) return false;
        begin[length++] = c;
        begin[length] = 0;
        return true;
    }

    bool Put(const wchar_t* text) {
        while (*text)
            if (!Put(*text++)) return false;
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

    /// Copies the next character, or the two of an escaped slash.
    bool Copy() {
        if (!IsEscapedSlash(at)) return out.Put(*at++);
        at += 2;
        return out.Put(L"~1");
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
        wchar_t position[16];
        // Unsigned, for the lowest integer has no predecessor.
        wsprintfW(position, L"/%d", static_cast<int>(static_cast<unsigned>(_wtoi(name)) - 1u));
        out.Truncate(parentLength);
        while (*at && *at != L'/') at += IsEscapedSlash(at) ? 2 : 1;
        return out.Put(position) ? kSuccess : kBadPath;
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
    wchar_t pointer[kPathCapacity];
    if (TranslateItemPath(members, root, path, pointer) != kSuccess) return nullptr;
    return ResolvePointer(members, root, pointer);
}

}  // namespace QXJSON
