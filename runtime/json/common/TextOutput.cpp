#include "TextOutput.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>

#include <string_view>

#include "BlockStream.h"
#include "DocumentWalk.h"
#include "File.h"
#include "OutputEncodings.h"

namespace QXJSON {
namespace {

constexpr size_t kCapacity = 256;
/// Bytes that the C runtime hands to the system at a time.
constexpr size_t kSystemBlock = 64 * 1024;

template <class Stream, class Target, unsigned flags>
using CompactWriter = rapidjson::Writer<Stream, JsonEncoding, Target, HeapAllocator, flags>;
template <class Stream, class Target>
using IndentingWriter = rapidjson::PrettyWriter<Stream, JsonEncoding, Target, HeapAllocator>;

/// Writes a value in the encoding `Target` to a stream of that encoding's units; whether all of it.
template <class Target, class Stream>
bool WriteTo(Stream& stream, const JsonValue& value, Layout layout) {
    const auto writeWith = [&](auto&& writer) { return Walk(value, writer); };
    switch (layout) {
        case Layout::kCompact:
            return writeWith(CompactWriter<Stream, Target, rapidjson::kWriteNanAndInfFlag>(stream));
        case Layout::kCompactFinite:
            return writeWith(CompactWriter<Stream, Target, rapidjson::kWriteDefaultFlags>(stream));
        default:
            return writeWith(IndentingWriter<Stream, Target>(stream));
    }
}

/// The same, in place of what a buffer held.
template <class Target, class Buffer>
bool WriteInto(Buffer& buffer, const JsonValue& value, Layout layout) {
    buffer.Clear();
    return WriteTo<Target>(buffer, value, layout);
}

/// The same, as a file behind a byte-order mark.
template <class Target, class Unit>
void WriteAsFile(std::FILE* file, std::basic_string_view<Unit> mark, bool swapped,
                 const JsonValue& value, Layout layout) {
    BlockStream<Unit> stream(file, swapped);
    for (const Unit unit : mark) stream.Put(unit);
    if (WriteTo<Target>(stream, value, layout)) stream.End();
}

template <class Buffer>
std::string_view BytesOf(const Buffer& buffer) {
    // The string that a buffer hands out ends with a zero, for which it makes room.
    const auto* const begin = reinterpret_cast<const char*>(buffer.GetString());
    return {begin, buffer.GetSize()};
}

void SwapBytes(JsonTextBuffer& buffer) {
    const size_t count = buffer.GetSize() / sizeof(wchar_t);
    QXJSON::SwapBytes(buffer.Push(0) - count, count);
}

}  // namespace

bool WriteText(const JsonValue& value, Layout layout, JsonTextBuffer& buffer) {
    const bool whole = WriteInto<CopiedUtf16>(buffer, value, layout);
    buffer.GetString();  // puts the zero behind the text
    return whole;
}

EncodedText::EncodedText() : wide(nullptr, kCapacity), narrow(nullptr, kCapacity) {}

bool EncodedText::Write(const JsonValue& value, Layout layout, int32_t encoding) {
    bytes = {};
    bool whole = true;
    switch (encoding) {
        case kAscii:
            whole = WriteInto<rapidjson::ASCII<>>(narrow, value, layout);
            break;
        case kUtf8:
            whole = WriteInto<rapidjson::UTF8<>>(narrow, value, layout);
            break;
        case kUtf16Le:
            whole = WriteInto<CheckedUtf16>(wide, value, layout);
            break;
        case kUtf16Be:
            whole = WriteInto<CheckedUtf16>(wide, value, layout);
            SwapBytes(wide);
            break;
        default:
            return whole;
    }
    const bool isNarrow = encoding == kAscii || encoding == kUtf8;
    bytes = isNarrow ? BytesOf(narrow) : BytesOf(wide);
    return whole;
}

bool SaveFile(const JsonValue& root, Layout layout, const wchar_t* name, int32_t encoding) {
    if (!CanWriteFile(name)) return false;
    const File file = OpenFile(name, L"wb");
    if (!file) return false;
    if (!IsContainer(root)) return true;
    std::setvbuf(file.get(), nullptr, _IOFBF, kSystemBlock);
    using namespace std::string_view_literals;
    switch (encoding) {
        case kAscii:
            WriteAsFile<rapidjson::ASCII<>>(file.get(), ""sv, false, root, layout);
            break;
        case kUtf8:
            WriteAsFile<rapidjson::UTF8<>>(file.get(), "\xEF\xBB\xBF"sv, false, root, layout);
            break;
        case kUtf16Le:
        case kUtf16Be:
            WriteAsFile<CheckedUtf16>(file.get(), L"\xFEFF"sv, encoding == kUtf16Be, root, layout);
            break;
        default:
            break;
    }
    return true;
}

}  // namespace QXJSON
