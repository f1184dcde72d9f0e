#include "TextOutput.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/filewritestream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>

#include "File.h"
#include "NestingGuard.h"

namespace QXJSON {
namespace {

/// The bytes of a file go to the C runtime in blocks of this size. The size shows: a text that ends
/// early keeps its whole blocks only.
constexpr size_t kFileBlock = 260;

template <class Stream, class Target, unsigned flags>
using CompactWriter = rapidjson::Writer<Stream, JsonEncoding, Target, HeapAllocator, flags>;
template <class Stream, class Target>
using IndentingWriter = rapidjson::PrettyWriter<Stream, JsonEncoding, Target, HeapAllocator>;

/// Writes a value in the encoding `Target` to a stream of that encoding's units.
template <class Target, class Stream>
bool Write(const JsonValue& value, Layout layout, Stream& stream) {
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

/// Writes a value as bytes of the encoding `Target`, which is one of wchar_t units or of char.
template <class Target, class ByteStream>
void WriteEncoded(const JsonValue& value, Layout layout, ByteStream& bytes, bool mark) {
    rapidjson::EncodedOutputStream<Target, ByteStream> stream(bytes, mark);
    Write<Target>(value, layout, stream);
}

/// Writes a value as bytes of a selected encoding; false for a number that is none.
template <class ByteStream>
bool WriteSelected(const JsonValue& value, Layout layout, int32_t encoding, ByteStream& bytes,
                   bool mark) {
    switch (encoding) {
        case kAscii:
            WriteEncoded<rapidjson::ASCII<>>(value, layout, bytes, mark);
            return true;
        case kUtf16Le:
            WriteEncoded<rapidjson::UTF16LE<>>(value, layout, bytes, mark);
            return true;
        case kUtf8:
            WriteEncoded<rapidjson::UTF8<>>(value, layout, bytes, mark);
            return true;
        case kUtf16Be:
            WriteEncoded<rapidjson::UTF16BE<>>(value, layout, bytes, mark);
            return true;
        default:
            return false;
    }
}

}  // namespace

bool WriteText(const JsonValue& value, Layout layout, JsonTextBuffer& buffer) {
    buffer.Clear();
    const bool whole = Write<JsonEncoding>(value, layout, buffer);
    buffer.GetString();  // puts the zero behind the text
    return whole;
}

bool WriteBytes(const JsonValue& value, Layout layout, int32_t encoding, ByteBuffer& buffer) {
    buffer.Clear();
    return WriteSelected(value, layout, encoding, buffer, /*mark=*/false);
}

bool SaveFile(const JsonValue& root, Layout layout, const wchar_t* name, int32_t encoding) {
    if (!CanWriteFile(name)) return false;
    const File file = OpenFile(name, L"wb");
    if (!file) return false;
    if (IsContainer(root)) {
        char block[kFileBlock] = {};
        rapidjson::FileWriteStream stream(file.get(), block, sizeof block);
        WriteSelected(root, layout, encoding, stream, /*mark=*/true);
    }
    return true;
}

}  // namespace QXJSON
