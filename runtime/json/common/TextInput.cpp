#include "TextInput.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/filereadstream.h>
#include <rapidjson/memorystream.h>
#include <windows.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

#include "FaultGuard.h"
#include "File.h"
#include "NestingGuard.h"
#include "PlainText.h"
#include "Utf8Stream.h"

namespace QXJSON {
namespace {

/// Bytes that the C runtime asks the system for at a time.
constexpr size_t kSystemBlock = 64 * 1024;

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

/// UTF-8 from a source whose first bytes are known, as far as its encoding is told by them.
bool LoadsUtf8(JsonDocument& document, std::string_view beginning, ByteSource& source,
               const TextRules& rules) {
    const Detected detected = Detect(beginning);
    if (detected.type != rapidjson::kUTF8) return false;
    ByteBlock block;
    Utf8Stream stream(source, block);
    for (size_t i = 0; i < detected.markSize; ++i) stream.Take();
    return Parse<Utf8InRuns>(document, stream, rules.acceptNan).code == kNoError;
}

class MemorySource final : public ByteSource {
public:
    explicit MemorySource(std::string_view bytes) : rest(bytes) {}

    size_t Read(char* block, size_t room) override {
        const std::string_view next = rest.substr(0, room);
        std::memcpy(block, next.data(), next.size());
        rest.remove_prefix(next.size());
        return next.size();
    }

private:
    std::string_view rest;
};

class FileSource final : public ByteSource {
public:
    /// Reads the first block, so that a look at it is possible.
    FileSource(std::FILE* stream, size_t blockSize)
        : file(stream),
          first(std::min(blockSize, ByteBlock::kSize)),
          size(std::fread(first.data(), 1, first.size(), file)) {}

    std::string_view Beginning() const { return {first.data(), size}; }

    size_t Read(char* block, size_t room) override {
        if (size == 0) size = std::fread(first.data(), 1, std::min(room, first.size()), file);
        const size_t count = size;
        std::memcpy(block, first.data(), count);
        size = 0;
        return count;
    }

private:
    std::FILE* file;
    std::vector<char> first;
    size_t size;
};

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

/// The whole of a file; nothing when it is empty, or does not open, or cannot be measured or read.
std::optional<std::vector<char>> ReadWhole(const wchar_t* name) {
    const File file = OpenFile(name, L"rb");
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0) return std::nullopt;
    const long end = std::ftell(file.get());
    if (end < 1 || std::fseek(file.get(), 0, SEEK_SET) != 0) return std::nullopt;
    std::vector<char> bytes(static_cast<size_t>(end));
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

LoadStatus LoadBytes(JsonDocument& document, const char* data, uint32_t length,
                     const TextRules& rules) {
    if (!data) return {kNullText};
    const std::string_view bytes(data, length);
    MemorySource source(bytes);
    if (LoadsUtf8(document, bytes, source, rules)) return {};
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
    std::setvbuf(file.get(), nullptr, _IOFBF, kSystemBlock);
    FileSource source(file.get(), rules.fileBufferSize);
    if (LoadsUtf8(document, source.Beginning(), source, rules)) return {};
    std::rewind(file.get());
    const FirstAttempt first = ParseFile(document, file.get(), rules);
    file.reset();
    return WithFallback(first, [&]() -> std::optional<LoadStatus> {
        const auto bytes = ReadWhole(name);
        return bytes ? ParseAnsi(document, {bytes->data(), bytes->size()}, rules) : std::nullopt;
    });
}

}  // namespace QXJSON
