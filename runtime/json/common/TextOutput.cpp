#include "TextOutput.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cstring>

#include "File.h"
#include "NestingGuard.h"
#include "OutputEncodings.h"

namespace QXJSON {
namespace {

constexpr size_t kCapacity = 256;
/// Bytes that the C runtime hands to the system at a time.
constexpr size_t kSystemBlock = 64 * 1024;

template <class Buffer, class Target, unsigned flags>
using CompactWriter = rapidjson::Writer<Buffer, JsonEncoding, Target, HeapAllocator, flags>;
template <class Buffer, class Target>
using IndentingWriter = rapidjson::PrettyWriter<Buffer, JsonEncoding, Target, HeapAllocator>;

/// Writes a value in the encoding `Target` to a buffer of that encoding's units, in place of what
/// the buffer held.
template <class Target, class Buffer>
bool WriteInto(Buffer& buffer, const JsonValue& value, Layout layout) {
    buffer.Clear();
    const auto writeWith = [&](auto&& writer) { return Walk(value, writer); };
    switch (layout) {
        case Layout::kCompact:
            return writeWith(CompactWriter<Buffer, Target, rapidjson::kWriteNanAndInfFlag>(buffer));
        case Layout::kCompactFinite:
            return writeWith(CompactWriter<Buffer, Target, rapidjson::kWriteDefaultFlags>(buffer));
        default:
            return writeWith(IndentingWriter<Buffer, Target>(buffer));
    }
}

template <class Buffer>
std::string_view BytesOf(const Buffer& buffer) {
    // The string that a buffer hands out ends with a zero, for which it makes room.
    const auto* const begin = reinterpret_cast<const char*>(buffer.GetString());
    return {begin, buffer.GetSize()};
}

void SwapBytes(JsonTextBuffer& buffer) {
    const size_t count = buffer.GetSize() / sizeof(wchar_t);
    wchar_t* const units = buffer.Push(0) - count;
    for (size_t i = 0; i < count; ++i)
        units[i] = static_cast<wchar_t>(units[i] << 8 | units[i] >> 8);
}

std::string_view MarkOf(int32_t encoding) {
    switch (encoding) {
        case kUtf16Le:
            return "\xFF\xFE";
        case kUtf8:
            return "\xEF\xBB\xBF";
        case kUtf16Be:
            return "\xFE\xFF";
        default:
            return "";
    }
}

/// Writes a text to a file in blocks of 260 bytes. A block is written when the next one begins, the
/// last one only with the end of the text: one that ended early keeps its whole blocks.
class BlockWriter {
public:
    explicit BlockWriter(std::FILE* target) : file(target) {}

    void Put(std::string_view bytes) {
        while (!bytes.empty()) {
            if (used == sizeof block) Flush();
            const size_t count = std::min(bytes.size(), sizeof block - used);
            std::memcpy(block + used, bytes.data(), count);
            used += count;
            bytes.remove_prefix(count);
        }
    }

    void Flush() {
        std::fwrite(block, 1, used, file);
        used = 0;
    }

private:
    std::FILE* file;
    size_t used = 0;
    char block[260];
};

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
    EncodedText text;
    const bool whole = text.Write(root, layout, encoding);
    if (!text.Bytes().data()) return true;
    std::setvbuf(file.get(), nullptr, _IOFBF, kSystemBlock);
    BlockWriter blocks(file.get());
    blocks.Put(MarkOf(encoding));
    blocks.Put(text.Bytes());
    if (whole) blocks.Flush();
    return true;
}

}  // namespace QXJSON
