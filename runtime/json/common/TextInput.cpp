#include "TextInput.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/filereadstream.h>
#include <rapidjson/memorystream.h>
#include <windows.h>

#include <climits>
#include <optional>
#include <vector>

#include "FaultGuard.h"
#include "File.h"
#include "NestingGuard.h"

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

FirstAttempt ParseBytes(JsonDocument& document, const char* bytes, size_t size,
                        const TextRules& rules) {
    rapidjson::MemoryStream stream(bytes, size);
    return ParseAnyUtf(document, stream, rules);
}

FirstAttempt ParseFile(JsonDocument& document, std::FILE* file, const TextRules& rules) {
    std::vector<char> buffer(rules.fileBufferSize);
    rapidjson::FileReadStream stream(file, buffer.data(), buffer.size());
    return ParseAnyUtf(document, stream, rules);
}

/// Bytes in the system's ANSI code page as zero-terminated UTF-16; nothing when they are no text.
std::optional<std::vector<wchar_t>> FromAnsi(const char* bytes, size_t size) {
    if (size > INT_MAX) return std::nullopt;
    const int length = static_cast<int>(size);
    const int count = MultiByteToWideChar(CP_ACP, 0, bytes, length, nullptr, 0);
    if (count < 1) return std::nullopt;
    std::vector<wchar_t> text(static_cast<size_t>(count) + 1);
    MultiByteToWideChar(CP_ACP, 0, bytes, length, text.data(), count);
    return text;
}

/// The second attempt. Nothing when the bytes are no ANSI text: the first attempt's error stands.
std::optional<LoadStatus> ParseAnsi(JsonDocument& document, const char* bytes, size_t size,
                                    const TextRules& rules) {
    const auto text = FromAnsi(bytes, size);
    if (!text) return std::nullopt;
    rapidjson::GenericStringStream<JsonEncoding> stream(text->data());
    return Parse<JsonEncoding>(document, stream, rules.acceptNanInAnsi);
}

/// The whole of a file; nothing when it cannot be read, or is empty.
std::optional<std::vector<char>> ReadWhole(const wchar_t* name) {
    const File file = OpenFile(name, L"rb");
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0) return std::nullopt;
    const long size = std::ftell(file.get());
    if (size < 1 || std::fseek(file.get(), 0, SEEK_SET) != 0) return std::nullopt;
    std::vector<char> bytes(static_cast<size_t>(size));
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) return std::nullopt;
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

LoadStatus LoadBytes(JsonDocument& document, const char* bytes, uint32_t length,
                     const TextRules& rules) {
    if (!bytes) return {kNullText};
    return WithFallback(ParseBytes(document, bytes, length, rules),
                        [&] { return ParseAnsi(document, bytes, length, rules); });
}

LoadStatus LoadText(JsonDocument& document, const wchar_t* text, const TextRules& rules) {
    if (!text) return {kNullText};
    const size_t size = sizeof(wchar_t) * static_cast<size_t>(lstrlenW(text));
    return ParseBytes(document, reinterpret_cast<const char*>(text), size, rules).status;
}

LoadStatus LoadFile(JsonDocument& document, const wchar_t* name, const TextRules& rules) {
    File file = OpenFile(name, L"rb");
    if (!file) return {name ? kNoSuchFile : kNullFileName};
    const FirstAttempt first = ParseFile(document, file.get(), rules);
    file.reset();
    return WithFallback(first, [&]() -> std::optional<LoadStatus> {
        const auto bytes = ReadWhole(name);
        return bytes ? ParseAnsi(document, bytes->data(), bytes->size(), rules) : std::nullopt;
    });
}

}  // namespace QXJSON
