#include "TextInput.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/filereadstream.h>
#include <rapidjson/memorystream.h>
#include <windows.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include "FaultGuard.h"
#include "File.h"
#include "NestingGuard.h"
#include "PlainText.h"

namespace QXJSON {
namespace {

/// RapidJSON's detection of encodings, on units wide enough for UTF-32.
using AnyUtf = rapidjson::AutoUTF<unsigned>;
template <class ByteStream>
using AnyUtfStream = rapidjson::AutoUTFInputStream<unsigned, ByteStream>;

/// Fills the document from a stream: RapidJSON's ParseStream with a look at the stack in between.
template <unsigned flags, class Encoding, class Stream>
LoadStatus ParseWith(JsonDocument& document, Stream& stream) {
    rapidjson::GenericReader<Encoding, JsonEncoding, HeapAllocator> reader;
    rapidjson::ParseResult result;
    auto fill = [&](JsonDocument& handler) {
        RethrowFaults([&] {
            result = GuardNesting(handler, [&](auto& guarded) {
                return reader.template Parse<flags>(stream, guarded);
            });
        });
        return !result.IsError();
    };
    document.Populate(fill);
    return {result.Code(), result.Offset()};
}

template <class Encoding, class Stream>
LoadStatus Parse(JsonDocument& document, Stream& stream, bool acceptNan) {
    return acceptNan ? ParseWith<rapidjson::kParseNanAndInfFlag, Encoding>(document, stream)
                     : ParseWith<rapidjson::kParseDefaultFlags, Encoding>(document, stream);
}

/// A status, and whether it calls for a second attempt in the ANSI code page.
struct FirstAttempt {
    LoadStatus status;
    bool notUtf8;
};

template <class ByteStream>
FirstAttempt ParseAnyUtf(JsonDocument& document, ByteStream& bytes, const TextRules& rules) {
    AnyUtfStream<ByteStream> stream(bytes, rapidjson::kUTF8);
    const LoadStatus status = Parse<AnyUtf>(document, stream, rules.acceptNan);
    return {status, status.code == kInvalidEncoding && stream.GetType() == rapidjson::kUTF8};
}

/// Memory for so many things, not cleared; null when there is none.
template <class T>
std::unique_ptr<T[]> Buffer(size_t count) {
    return std::unique_ptr<T[]>(new (std::nothrow) T[count]);
}

// ---- The literal way: through RapidJSON's detecting stream -------------------------------------

FirstAttempt ParseBytes(JsonDocument& document, std::string_view bytes, const TextRules& rules) {
    rapidjson::MemoryStream stream(bytes.data(), bytes.size());
    return ParseAnyUtf(document, stream, rules);
}

FirstAttempt ParseFile(JsonDocument& document, std::FILE* file, const TextRules& rules) {
    std::vector<char> buffer(rules.fileBufferSize);
    rapidjson::FileReadStream stream(file, buffer.data(), buffer.size());
    return ParseAnyUtf(document, stream, rules);
}

// ---- The fast way: for text that proves to be well-formed --------------------------------------
// It only ever says yes. Whatever it does not load, for any reason, is for the literal way to
// judge.

bool LoadsPlainText(JsonDocument& document, std::wstring_view text, const TextRules& rules) {
    if (WellFormedLength(text) != text.size()) return false;
    PlainTextStream stream(text.data());
    return Parse<PlainUtf16>(document, stream, rules.acceptNan).code == kNoError;
}

/// What RapidJSON's stream finds out about bytes before it reads them.
struct Detected {
    rapidjson::UTFType type;
    size_t markSize;
};

Detected Detect(std::string_view bytes) {
    rapidjson::MemoryStream memory(bytes.data(), bytes.size());
    const AnyUtfStream<rapidjson::MemoryStream> stream(memory, rapidjson::kUTF8);
    const size_t markSize = stream.GetType() == rapidjson::kUTF8 ? 3 : 2;
    return {stream.GetType(), stream.HasBOM() ? markSize : 0};
}

bool LoadsPlainBytes(JsonDocument& document, std::string_view bytes, const TextRules& rules) {
    const Detected detected = Detect(bytes);
    const bool isUtf16 = detected.type == rapidjson::kUTF16LE && bytes.size() % 2 == 0;
    if (!isUtf16 && detected.type != rapidjson::kUTF8) return false;
    bytes.remove_prefix(detected.markSize);
    const auto units = Buffer<wchar_t>(bytes.size() + 1);
    if (!units) return false;
    std::optional<size_t> length;
    RethrowFaults([&] {
        length = isUtf16 ? DecodeUtf16Le(bytes, units.get()) : DecodeUtf8(bytes, units.get());
    });
    return length && LoadsPlainText(document, {units.get(), *length}, rules);
}

// ---- The second attempt: the ANSI code page ----------------------------------------------------

/// Bytes in the system's ANSI code page as zero-terminated UTF-16; nothing when they are no text.
std::optional<std::vector<wchar_t>> FromAnsi(std::string_view bytes) {
    if (bytes.size() > INT_MAX) return std::nullopt;
    const int length = static_cast<int>(bytes.size());
    const int count = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    if (count < 1) return std::nullopt;
    std::vector<wchar_t> text(static_cast<size_t>(count) + 1);
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), count);
    return text;
}

/// The second attempt. Nothing when the bytes are no ANSI text: the first attempt's error stands.
std::optional<LoadStatus> ParseAnsi(JsonDocument& document, std::string_view bytes,
                                    const TextRules& rules) {
    const auto text = FromAnsi(bytes);
    if (!text) return std::nullopt;
    rapidjson::GenericStringStream<JsonEncoding> stream(text->data());
    return Parse<JsonEncoding>(document, stream, rules.acceptNanInAnsi);
}

/// Bytes in memory of their own.
struct Bytes {
    std::unique_ptr<char[]> data;
    size_t size = 0;

    std::string_view View() const { return {data.get(), size}; }
};

/// The whole of an open file, read so many bytes at a time; nothing when it is empty, or cannot be
/// measured or read.
std::optional<Bytes> ReadWhole(std::FILE* file, size_t blockSize) {
    if (!file || std::fseek(file, 0, SEEK_END) != 0) return std::nullopt;
    const long end = std::ftell(file);
    if (end < 1 || std::fseek(file, 0, SEEK_SET) != 0) return std::nullopt;
    const auto size = static_cast<size_t>(end);
    Bytes bytes{Buffer<char>(size), size};
    for (size_t at = 0, count = 0; bytes.data && at < size; at += count) {
        count = std::min(blockSize, size - at);
        if (std::fread(bytes.data.get() + at, 1, count, file) != count) return std::nullopt;
    }
    if (!bytes.data) return std::nullopt;
    return bytes;
}

/// The status of the first attempt, or of the second one where that is called for and possible.
/// Without the memory for the second attempt the first one's error stands too.
template <class Retry>
LoadStatus WithFallback(const FirstAttempt& first, Retry&& retry) {
    if (!first.notUtf8) return first.status;
    try {
        return retry().value_or(first.status);
    } catch (const std::bad_alloc&) {
        return first.status;
    }
}

}  // namespace

LoadStatus LoadBytes(JsonDocument& document, const char* data, uint32_t length,
                     const TextRules& rules) {
    if (!data) return {kNullText};
    const std::string_view bytes(data, length);
    if (LoadsPlainBytes(document, bytes, rules)) return {};
    return WithFallback(ParseBytes(document, bytes, rules),
                        [&] { return ParseAnsi(document, bytes, rules); });
}

LoadStatus LoadText(JsonDocument& document, const wchar_t* text, const TextRules& rules) {
    if (!text) return {kNullText};
    const std::wstring_view units(text, LengthOf(text));
    const std::string_view bytes(reinterpret_cast<const char*>(text),
                                 units.size() * sizeof(wchar_t));
    const Detected detected = Detect(bytes);
    const bool even = reinterpret_cast<uintptr_t>(text) % alignof(wchar_t) == 0;
    if (even && detected.type == rapidjson::kUTF16LE &&
        LoadsPlainText(document, units.substr(detected.markSize / sizeof(wchar_t)), rules))
        return {};
    return ParseBytes(document, bytes, rules).status;
}

LoadStatus LoadFile(JsonDocument& document, const wchar_t* name, const TextRules& rules) {
    File file = OpenFile(name, L"rb");
    if (!file) return {name ? kNoSuchFile : kNullFileName};
    if (const auto bytes = ReadWhole(file.get(), rules.fileBufferSize);
        bytes && LoadsPlainBytes(document, bytes->View(), rules))
        return {};
    std::rewind(file.get());
    const FirstAttempt first = ParseFile(document, file.get(), rules);
    file.reset();
    return WithFallback(first, [&]() -> std::optional<LoadStatus> {
        // In one piece, unlike the first attempt.
        const auto bytes = ReadWhole(OpenFile(name, L"rb").get(), SIZE_MAX);
        return bytes ? ParseAnsi(document, bytes->View(), rules) : std::nullopt;
    });
}

}  // namespace QXJSON
