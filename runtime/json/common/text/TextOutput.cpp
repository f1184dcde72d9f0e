#include "TextOutput.h"

#include <algorithm>
#include <iterator>

#include "TextWriter.h"
#include "common/platform/File.h"
#include "common/values/DocumentWalk.h"

namespace QXJSON {
namespace {

/// Returns what `use` does with a writer of a layout in an encoding, to a stream of that encoding's
/// units.
template <class Encoding, class Stream, class Use>
bool WithWriter(Stream& stream, Layout layout, const Use& use) {
    switch (layout) {
        case Layout::kCompact:
            return use(CompactWriter<Stream, Encoding>(stream));
        case Layout::kCompactFinite:
            return use(CompactFiniteWriter<Stream, Encoding>(stream));
        default:
            return use(IndentingWriter<Stream, Encoding>(stream));
    }
}

/// Writes a value to a stream; whether all of it.
template <class Encoding, class Stream>
bool WriteTo(Stream& stream, const JsonValue& value, Layout layout) {
    return WithWriter<Encoding>(stream, layout, [&](auto&& writer) { return Walk(value, writer); });
}

// ---- Encodings ---------------------------------------------------------------------------------

enum class Mark { kNone, kInFiles };
enum class ByteOrder { kAsInMemory, kReversed };

/// An encoding of bytes and files: how it is selected, whether files begin with the byte-order
/// mark, the order of a unit's bytes, and what writes it.
struct Encoder {
    OutputEncoding selector;
    Mark mark;
    ByteOrder order;
    void (*writeBytes)(const Encoder& form, ByteBuffer& buffer, const JsonValue& value,
                       Layout layout);
    bool (*writeFile)(const Encoder& form, const wchar_t* name, const JsonValue& root,
                      Layout layout);
};

template <class Encoding>
void WriteBytes(const Encoder& form, ByteBuffer& buffer, const JsonValue& value, Layout layout) {
    using Unit = typename Encoding::Ch;
    buffer.Clear();
    {
        ByteBufferStream<Unit> stream(buffer);
        WriteTo<Encoding>(stream, value, layout);
    }
    if (form.order == ByteOrder::kReversed)
        SwapBytes(buffer.template Bottom<Unit>(), buffer.GetSize() / sizeof(Unit));
}

/// Takes all memory before the file is opened, for what fails then has destroyed what was there.
template <class Encoding>
bool WriteFile(const Encoder& form, const wchar_t* name, const JsonValue& root, Layout layout) {
    constexpr unsigned kByteOrderMark = 0xFEFF;
    BlockStream<typename Encoding::Ch> stream(form.order == ByteOrder::kReversed);
    return WithWriter<Encoding>(stream, layout, [&](auto&& writer) {
        WalkTrail trail;
        writer.ReserveLevels(DepthOf(root, trail));
        const File file = OpenFile(name, L"wb");
        if (!file) return false;
        stream.Begin(file.get());
        if (form.mark == Mark::kInFiles) Encoding::Encode(stream, kByteOrderMark);
        stream.End(Walk(root, writer, trail));
        return true;
    });
}

template <class Encoding>
constexpr Encoder EncoderOf(OutputEncoding selector, Mark mark, ByteOrder order) {
    return {selector, mark, order, WriteBytes<Encoding>, WriteFile<Encoding>};
}

constexpr Encoder kEncoders[] = {
    EncoderOf<EscapedAscii>(kAscii, Mark::kNone, ByteOrder::kAsInMemory),
    EncoderOf<CheckedUtf16>(kUtf16Le, Mark::kInFiles, ByteOrder::kAsInMemory),
    EncoderOf<EncodedUtf8>(kUtf8, Mark::kInFiles, ByteOrder::kAsInMemory),
    EncoderOf<CheckedUtf16>(kUtf16Be, Mark::kInFiles, ByteOrder::kReversed),
};

/// Null for a number that is no encoding.
const Encoder* FindEncoder(int32_t encoding) {
    const auto* const found =
        std::find_if(std::begin(kEncoders), std::end(kEncoders),
                     [=](const Encoder& encoder) { return encoder.selector == encoding; });
    return found != std::end(kEncoders) ? found : nullptr;
}

}  // namespace

bool WriteText(const JsonValue& value, Layout layout, JsonTextBuffer& buffer) {
    buffer.Clear();
    const bool whole = WriteTo<CopiedUtf16>(buffer, value, layout);
    buffer.GetString();  // puts the zero after the text
    return whole;
}

EncodedText::EncodedText() : buffer(nullptr, kCapacity) {}

std::string_view EncodedText::Write(const JsonValue& value, Layout layout, int32_t encoding) {
    const Encoder* const encoder = FindEncoder(encoding);
    if (!encoder) return {};
    encoder->writeBytes(*encoder, buffer, value, layout);
    return {buffer.template Bottom<char>(), buffer.GetSize()};
}

bool SaveFile(const JsonValue& root, Layout layout, const wchar_t* name, int32_t encoding) {
    if (!CanWriteFile(name)) return false;
    const Encoder* const encoder = FindEncoder(encoding);
    if (!encoder || !IsContainer(root)) return OpenFile(name, L"wb") != nullptr;
    return encoder->writeFile(*encoder, name, root, layout);
}

}  // namespace QXJSON
