#include "Reading.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include "Encoding.h"

namespace tool {
namespace {

using namespace rapidjson;

constexpr unsigned kFlags = kParseNumbersAsStringsFlag | kParseIterativeFlag;

/// Passes what RapidJSON's reader finds on to Events.
template <class Stream>
class Adapter : public BaseReaderHandler<UTF8<>, Adapter<Stream>> {
public:
    Adapter(Events& whoIsTold, const Stream& source, unsigned unitsAhead)
        : events(whoIsTold), stream(source), ahead(unitsAhead) {}

    bool Null() { return Scalar(ValueKind::kNull, "null"); }
    bool Bool(bool value) { return Scalar(ValueKind::kBoolean, value ? "true" : "false"); }
    bool RawNumber(const char* text, SizeType length, bool) {
        return Scalar(ValueKind::kNumber, {text, length});
    }
    bool String(const char* text, SizeType length, bool) {
        return Scalar(ValueKind::kString, {text, length});
    }
    bool Key(const char* text, SizeType length, bool) {
        Found().Key({text, length});
        return true;
    }
    bool StartObject() { return Start(ValueKind::kObject); }
    bool EndObject(SizeType) { return End(ValueKind::kObject); }
    bool StartArray() { return Start(ValueKind::kArray); }
    bool EndArray(SizeType) { return End(ValueKind::kArray); }

    bool rootIsContainer = false;

private:
    Events& Found() {
        events.place = stream.Tell() - ahead;
        return events;
    }
    bool Scalar(ValueKind kind, std::string_view text) {
        Found().Scalar(kind, text);
        return true;
    }
    bool Start(ValueKind kind) {
        rootIsContainer = true;
        Found().Start(kind);
        return true;
    }
    bool End(ValueKind kind) {
        Found().End(kind);
        return true;
    }

    Events& events;
    const Stream& stream;
    const unsigned ahead;  ///< how far the stream has read beyond what it gave to the reader
};

/// A stream that the reader does not copy, so that its position can be looked at meanwhile.
class WideStream : public GenericStringStream<UTF16<>> {
    using GenericStringStream::GenericStringStream;
};

template <unsigned flags, class SourceEncoding, class Stream>
ReadingResult Read(Stream& stream, Events& events, unsigned ahead = 0) {
    GenericReader<SourceEncoding, UTF8<>> reader;
    Adapter<Stream> adapter(events, stream, ahead);
    const ParseResult result = reader.template Parse<kFlags | flags>(stream, adapter);
    return {!result.IsError(), result.Code() == kParseErrorStringInvalidEncoding,
            adapter.rootIsContainer, result.IsError() ? result.Offset() : stream.Tell(),
            !result.IsError()};
}

}  // namespace

ReadingResult ReadJson(ByteStream& bytes, Events& events) {
    const Encoding encoding = EncodingOf(bytes);
    if (encoding.type == kUTF8) {
        for (unsigned i = 0; i < encoding.mark; ++i) bytes.Take();
        ReadingResult result =
            Read<kParseNanAndInfFlag | kParseValidateEncodingFlag, UTF8<>>(bytes, events);
        result.isWhole = result.good && bytes.AtEnd();
        return result;
    }
    AutoUTFInputStream<unsigned, ByteStream> units(bytes);
    ReadingResult result =
        Read<kParseNanAndInfFlag, AutoUTF<unsigned>>(units, events, encoding.width);
    result.isNotUtf8 = false;
    result.isWhole = result.good && bytes.AtEnd();
    return result;
}

ReadingResult ReadJson(const std::wstring& text, Events& events) {
    WideStream units(text.c_str());
    return Read<kParseNoFlags, UTF16<>>(units, events);
}

void ReadKnownJson(std::string_view json, Events& events) {
    ByteStream bytes(json);
    Read<kParseNanAndInfFlag, UTF8<>>(bytes, events);
}

}  // namespace tool
