#include "TextInput.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/memorystream.h>
#include <windows.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

#include "Continuation.h"
#include "DirectReader.h"
#include "TextLength.h"
#include "Utf16Source.h"
#include "Utf8Source.h"
#include "common/platform/FaultGuard.h"
#include "common/platform/File.h"
#include "common/platform/NestingGuard.h"

namespace QXJSON {
namespace {

/// Bytes that the C runtime asks the system for at a time.
constexpr size_t kSystemBlock = 64 * 1024;
/// Bytes that are taken at first for strings that do not stand in the text as they are.
constexpr size_t kScratch = 1024;

/// RapidJSON's detection of encodings, on units wide enough for UTF-32.
using AnyUtf = rapidjson::AutoUTF<unsigned>;
template <class ByteStream>
using AnyUtfStream = rapidjson::AutoUTFInputStream<unsigned, ByteStream>;

/// What an attempt puts into a pool that was empty is given back, unless the attempt is kept.
class AttemptMemory {
public:
    explicit AttemptMemory(JsonAllocator& memory) : pool(memory.Size() == 0 ? &memory : nullptr) {}
    ~AttemptMemory() {
        if (pool) pool->Clear();
    }
    AttemptMemory(const AttemptMemory&) = delete;
    AttemptMemory& operator=(const AttemptMemory&) = delete;

    void Keep() { pool = nullptr; }

private:
    JsonAllocator* pool;
};

/// RapidJSON's reader, with a look at the stack in between.
template <class Encoding, class Stream, class Handler>
LoadStatus RunReader(Stream& stream, Handler& handler, bool acceptNan) {
    rapidjson::GenericReader<Encoding, JsonEncoding, HeapAllocator> reader;
    rapidjson::ParseResult result;
    RethrowFaults([&] {
        result = GuardNesting(handler, [&](auto& guarded) {
            return acceptNan
                       ? reader.template Parse<rapidjson::kParseNanAndInfFlag>(stream, guarded)
                       : reader.template Parse<rapidjson::kParseDefaultFlags>(stream, guarded);
        });
    });
    return {result.Code(), result.Offset()};
}

/// Fills the document by what sends it events and returns how that went.
template <class Produce>
LoadStatus Fill(JsonDocument& document, Produce&& produce) {
    AttemptMemory memory(document.GetAllocator());
    LoadStatus status;
    auto fill = [&](JsonDocument& handler) {
        status = produce(handler);
        return status.code == kNoError;
    };
    document.Populate(fill);
    if (status.code == kNoError) memory.Keep();
    return status;
}

/// Fills the document as RapidJSON's ParseStream does.
template <class Encoding, class Stream>
LoadStatus Parse(JsonDocument& document, Stream& stream, bool acceptNan) {
    return Fill(document, [&](JsonDocument& handler) {
        return RunReader<Encoding>(stream, handler, acceptNan);
    });
}

/// What RapidJSON's stream finds out about bytes before it reads them.
struct Detected {
    rapidjson::UTFType type;
    size_t markSize;
};

Detected Detect(std::string_view bytes) {
    Detected detected = {};
    RethrowFaults([&] {
        rapidjson::MemoryStream memory(bytes.data(), bytes.size());
        const AnyUtfStream<rapidjson::MemoryStream> stream(memory, rapidjson::kUTF8);
        const size_t markSize = stream.GetType() == rapidjson::kUTF8 ? 3 : 2;
        detected = {stream.GetType(), stream.HasBOM() ? markSize : 0};
    });
    return detected;
}

/// A status, and whether it calls for a second attempt in the ANSI code page.
struct FirstAttempt {
    LoadStatus status;
    bool notUtf8;
};

/// The literal way: through RapidJSON's detecting stream.
template <class ByteStream>
FirstAttempt ParseAnyUtf(JsonDocument& document, ByteStream& bytes, const TextRules& rules) {
    AnyUtfStream<ByteStream> stream(bytes, rapidjson::kUTF8);
    return {Parse<AnyUtf>(document, stream, rules.acceptNan), false};
}

/// What remains of UTF-8 when the library's own reader has stopped. Code and offset are those of
/// the literal way, whose stream is one byte ahead of its reader as long as there is one.
LoadStatus GoOn(JsonDocument& document, Utf8Stream& stream, const ReaderState& state,
                std::wstring_view begun, bool acceptNan) {
    const LeadingText lead(state);
    ContinuedStream rest(lead, stream);
    ContinuedDocument handler(document, state, lead, begun);
    LoadStatus status = RunReader<rapidjson::UTF8<>>(rest, handler, acceptNan);
    const bool atEnd = stream.AtEnd() && stream.Tell() == status.offset;
    if (status.code != kNoError && !atEnd) ++status.offset;
    return status;
}

/// What has proved to be UTF-8: directly, and where that ends by RapidJSON's reader.
FirstAttempt ParseUtf8(JsonDocument& document, Utf8Stream& stream, size_t markSize,
                       const TextRules& rules) {
    for (size_t i = 0; i < markSize; ++i) stream.Take();
    HeapAllocator heap;
    ByteBuffer scratch(&heap, kScratch);
    Utf8Source source(stream, scratch);
    const LoadStatus status = Fill(document, [&](JsonDocument& handler) {
        ReaderState state;
        bool isRead = false;
        RethrowFaults([&] {
            DirectReader<Utf8Source, JsonDocument> reader(source, handler, state, rules.acceptNan);
            isRead = reader.Read(source.Begin());
        });
        if (isRead) return LoadStatus{};
        const std::wstring_view begun = state.InText() ? source.Text() : std::wstring_view();
        return GoOn(handler, stream, state, begun, rules.acceptNan);
    });
    return {status, status.code == kInvalidEncoding};
}

// ---- Bytes in memory ---------------------------------------------------------------------------

/// Hands out memory up to the end of a page at a time. A text may end at a zero before its length
/// does: what lies on pages that the reader does not get to need not be readable.
class MemorySource final : public ByteSource {
public:
    explicit MemorySource(std::string_view bytes) : rest(bytes) {}

    size_t Read(char* block, size_t room) override {
        const size_t toPageEnd = kPage - reinterpret_cast<uintptr_t>(rest.data()) % kPage;
        const std::string_view next = rest.substr(0, std::min(room, toPageEnd));
        std::memcpy(block, next.data(), next.size());
        rest.remove_prefix(next.size());
        return next.size();
    }

private:
    static constexpr size_t kPage = 4096;
    std::string_view rest;
};

FirstAttempt ParseBytes(JsonDocument& document, std::string_view bytes, const TextRules& rules) {
    const Detected detected = Detect(bytes);
    if (detected.type != rapidjson::kUTF8) {
        rapidjson::MemoryStream stream(bytes.data(), bytes.size());
        return ParseAnyUtf(document, stream, rules);
    }
    MemorySource source(bytes);
    ByteBlock block;
    Utf8Stream stream(source, block);
    return ParseUtf8(document, stream, detected.markSize, rules);
}

// ---- Plain text in memory ----------------------------------------------------------------------

/// The library's own way through UTF-16 text. It only ever says yes: whatever it does not load, for
/// any reason, is for the literal way to judge. `begin`, which finds the beginning of the text, is
/// called where faults are caught.
template <class Begin>
bool ReadsDirectly(JsonDocument& document, bool acceptNan, Begin&& begin) {
    HeapAllocator heap;
    ByteBuffer scratch(&heap, kScratch);
    Utf16Source source(scratch);
    const LoadStatus status = Fill(document, [&](JsonDocument& handler) {
        ReaderState state;
        bool isRead = false;
        RethrowFaults([&] {
            const wchar_t* const text = begin();
            DirectReader<Utf16Source, JsonDocument> reader(source, handler, state, acceptNan);
            isRead = text && reader.Read(text);
        });
        return LoadStatus{isRead ? kNoError : kUnspecificSyntax};
    });
    return status.code == kNoError;
}

/// Where text begins that the detection of encodings takes for UTF-16, behind its mark if it has
/// one; null for other text.
const wchar_t* BeginOfUtf16(const wchar_t* text) {
    constexpr unsigned kMark = 0xFEFF;
    const auto fitsByte = [](unsigned unit) { return unit - 1 < 0xFF; };
    if (text[0] == kMark && text[1] != 0) return text + 1;
    return fitsByte(text[0]) && fitsByte(text[1]) ? text : nullptr;
}

// ---- Files -------------------------------------------------------------------------------------

/// Reads a file block by block, from its beginning to its end, and never goes back: it may be a
/// pipe. As for RapidJSON's FileReadStream, a read that falls short is the last.
class FileSource final : public ByteSource {
public:
    FileSource(std::FILE* stream, size_t bytes)
        : file(stream), blockSize(std::min(bytes, ByteBlock::kSize)) {}

    size_t Read(char* block, size_t) override {
        if (ended) return 0;
        const size_t count = std::fread(block, 1, blockSize, file);
        ended = count < blockSize;
        return count;
    }

private:
    std::FILE* file;
    size_t blockSize;
    bool ended = false;
};

FirstAttempt ParseFile(JsonDocument& document, std::FILE* file, const TextRules& rules) {
    FileSource source(file, rules.fileBufferSize);
    ByteBlock block;
    Utf8Stream stream(source, block);
    const Detected detected = Detect(stream.InHand());
    return detected.type == rapidjson::kUTF8 ? ParseUtf8(document, stream, detected.markSize, rules)
                                             : ParseAnyUtf(document, stream, rules);
}

// ---- The second attempt: the ANSI code page ----------------------------------------------------

/// As many bytes as the system can be told of: its lengths are of type int. A greater one is
/// negative to it, and stands for text up to its zero, which counts; without a zero there is no
/// text.
std::string_view Countable(std::string_view bytes) {
    if (bytes.size() <= INT_MAX) return bytes;
    const void* zero = nullptr;
    RethrowFaults([&] { zero = std::memchr(bytes.data(), 0, bytes.size()); });
    if (!zero) return {};
    const auto length = static_cast<size_t>(static_cast<const char*>(zero) - bytes.data()) + 1;
    return length <= INT_MAX ? bytes.substr(0, length) : std::string_view();
}

/// Bytes in the system's ANSI code page as zero-terminated UTF-16; nothing when they are no text.
std::optional<std::vector<wchar_t>> FromAnsi(std::string_view bytes) {
    const auto convert = [&](wchar_t* text, int capacity) {
        const int length = static_cast<int>(bytes.size());
        int count = 0;
        RethrowFaults(
            [&] { count = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text, capacity); });
        return count;
    };
    const int count = convert(nullptr, 0);
    if (count < 1) return std::nullopt;
    std::vector<wchar_t> text(static_cast<size_t>(count) + 1);
    if (convert(text.data(), count) != count) return std::nullopt;
    return text;
}

/// The second attempt. Nothing when the bytes are no ANSI text: the first attempt's error stands.
std::optional<LoadStatus> ParseAnsi(JsonDocument& document, std::string_view bytes,
                                    const TextRules& rules) {
    const auto text = FromAnsi(Countable(bytes));
    if (!text) return std::nullopt;
    const auto begin = [&] { return text->data(); };
    if (ReadsDirectly(document, rules.acceptNanInAnsi, begin)) return LoadStatus{};
    rapidjson::GenericStringStream<JsonEncoding> stream(text->data());
    return Parse<JsonEncoding>(document, stream, rules.acceptNanInAnsi);
}

/// The whole of a file; nothing when it is empty or larger than the system can convert, or does not
/// open, or cannot be measured or read.
std::optional<std::vector<char>> ReadWhole(const wchar_t* name) {
    const File file = OpenFile(name, L"rb");
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0) return std::nullopt;
    const int64_t end = std::ftell(file.get());
    if (end < 1 || end > INT_MAX || std::fseek(file.get(), 0, SEEK_SET) != 0) return std::nullopt;
    std::vector<char> bytes(static_cast<size_t>(end));
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) return std::nullopt;
    // A size beyond 32 bits may have been told without its upper half: there must be no byte more.
    if (std::fgetc(file.get()) != EOF) return std::nullopt;
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
    return WithFallback(ParseBytes(document, bytes, rules),
                        [&] { return ParseAnsi(document, bytes, rules); });
}

LoadStatus LoadText(JsonDocument& document, const wchar_t* text, const TextRules& rules) {
    if (!text) return {kNullText};
    size_t length = 0;
    try {
        const auto begin = [text] { return BeginOfUtf16(text); };
        if (IsAligned(text) && ReadsDirectly(document, rules.acceptNan, begin)) return {};
        length = LengthOf(text);
    } catch (const ProcessorFault&) {
        // Text that memory ends before is empty, as LengthOf has it.
    }
    const std::string_view bytes(reinterpret_cast<const char*>(text), length * sizeof(wchar_t));
    return ParseBytes(document, bytes, rules).status;
}

LoadStatus LoadFile(JsonDocument& document, const wchar_t* name, const TextRules& rules) {
    File file = OpenFile(name, L"rb");
    if (!file) return {name ? kNoSuchFile : kNullFileName};
    std::setvbuf(file.get(), nullptr, _IOFBF, kSystemBlock);
    const FirstAttempt first = ParseFile(document, file.get(), rules);
    file.reset();
    return WithFallback(first, [&]() -> std::optional<LoadStatus> {
        const auto bytes = ReadWhole(name);
        return bytes ? ParseAnsi(document, {bytes->data(), bytes->size()}, rules) : std::nullopt;
    });
}

}  // namespace QXJSON
