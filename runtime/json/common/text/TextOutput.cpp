#include "TextOutput.h"

#include <algorithm>
#include <iterator>

#include "BlockStream.h"
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
            return use(TextWriter<Stream, Encoding, Layout::kCompact>(stream));
        case Layout::kCompactFinite:
            return use(TextWriter<Stream, Encoding, Layout::kCompactFinite>(stream));
        default:
            return use(TextWriter<Stream, Encoding, Layout::kIndented>(stream));
    }
}

/// Writes a value into a buffer; whether all of it.
template <class Encoding>
bool WriteTo(ByteBuffer& buffer, const JsonValue& value, Layout layout) {
    ByteBufferStream<typename Encoding::Unit> stream(buffer);
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
    using Unit = typename Encoding::Unit;
    buffer.Clear();
    WriteTo<Encoding>(buffer, value, layout);
    if (form.order == ByteOrder::kReversed)
        SwapBytes(buffer.template Bottom<Unit>(), buffer.GetSize() / sizeof(Unit));
}

/// Takes all memory before the file is opened, for what fails then has destroyed what was there.
template <class Encoding>
bool WriteFile(const Encoder& form, const wchar_t* name, const JsonValue& root, Layout layout) {
    constexpr wchar_t kByteOrderMark[] = {0xFEFF, 0};
    BlockStream<typename Encoding::Unit> stream(form.order == ByteOrder::kReversed);
    return WithWriter<Encoding>(stream, layout, [&](auto&& writer) {
        WalkTrail trail;
        DepthOf(root, trail);  // the trail has the memory for the walk then
        const File file = OpenFile(name, L"wb");
        if (!file) return false;
        stream.Begin(file.get());
        if (form.mark == Mark::kInFiles) {
            auto* to = stream.Reserve(kLongestCharacter);
            PutText<Encoding>(kByteOrderMark, kByteOrderMark + 1, to);
            stream.Advance(to);
        }
        stream.End(Walk(root, writer, trail));
        return true;
    });
}

// LCOV_EXCL_START: the compiler calls it
template <class Encoding>
constexpr Encoder EncoderOf(OutputEncoding selector, Mark mark, ByteOrder order) {
    return {selector, mark, order, WriteBytes<Encoding>, WriteFile<Encoding>};
}
// LCOV_EXCL_STOP

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
    const bool whole = WriteTo<CopiedUtf16>(buffer.stack_, value, layout);
    buffer.GetString();  // puts the zero after the text
    return whole;
}

EncodedText::EncodedText() : buffer(&theHeap, kCapacity) {}

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
