#pragma once

#include <string_view>

#include "ByteBuffer.h"
#include "NumberReader.h"
#include "Utf8Stream.h"

namespace QXJSON {

/// UTF-8 as a source of DirectReader, block by block.
class Utf8Source {
public:
    using Unit = char;

    /// `memory` takes the strings.
    Utf8Source(Utf8Stream& bytes, ByteBuffer& memory) : stream(bytes), scratch(memory) {
        MakeRoom(0);
    }

    const char* Begin() const { return stream.InHand().data(); }
    const char* PassBlanks(const char* at);
    const char* ReadText(const char* at);
    /// The text that was read last; of one that was refused, as much as was read of it.
    std::wstring_view Text() const { return {scratch.Bottom<wchar_t>(), length}; }

    static bool CanReachFrom(const char*) { return true; }
    bool IsEnd(const char* at) const { return at == stream.End(); }
    bool More(const char*& at) { return stream.More(at); }
    void Stop(const char* at) { stream.GoOn(at); }

private:
    wchar_t* MakeRoom(size_t used);
    size_t LengthTo(const wchar_t* out) const {
        return static_cast<size_t>(out - scratch.Bottom<wchar_t>());
    }
    const char* CopyAscii(const char* at, wchar_t*& out);
    const char* CopyOthers(const char* at, wchar_t*& out);
    bool IsUnfinished(const char* at) const;

    Utf8Stream& stream;
    ByteBuffer& scratch;
    wchar_t* limit = nullptr;  // up to here a step of copying can begin
    size_t length = 0;
};

}  // namespace QXJSON
