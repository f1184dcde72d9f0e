#pragma once

#include <string_view>

#include "ByteBuffer.h"
#include "NumberReader.h"
#include "UnitRuns.h"

namespace QXJSON {

/// Zero-terminated UTF-16 text at an even address, as a source of DirectReader. Strings without
/// escapes are used where they stand.
class Utf16Source {
public:
    using Unit = wchar_t;

    /// `memory` takes the strings that have escapes.
    explicit Utf16Source(ByteBuffer& memory) : scratch(memory) {}

    const wchar_t* PassBlanks(const wchar_t* at) { return SkipBlanks(at); }
    const wchar_t* ReadText(const wchar_t* at) {
        const wchar_t* const end = EndOfWellFormedRun(at);
        if (*end != '"') return ReadEscaped(at, end);
        chars = at;
        length = static_cast<size_t>(end - at);
        return end + 1;
    }
    /// The text that was read last.
    std::wstring_view Text() const { return {chars, length}; }

    static bool CanReachFrom(const wchar_t* at) {
        return InOnePage(at, kNumberReach * sizeof(wchar_t));
    }
    /// All of it is in hand.
    static bool IsEnd(const wchar_t*) { return false; }
    static bool More(const wchar_t*) { return false; }  // LCOV_EXCL_LINE: for the end alone
    /// What is refused is read from the beginning again.
    static void Stop(const wchar_t*) {}

private:
    const wchar_t* ReadEscaped(const wchar_t* at, const wchar_t* end);

    ByteBuffer& scratch;
    const wchar_t* chars = nullptr;
    size_t length = 0;
};

}  // namespace QXJSON
