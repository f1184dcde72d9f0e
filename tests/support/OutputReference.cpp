#include "OutputReference.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/memorybuffer.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace support {
namespace {

using Utf16 = rapidjson::UTF16<>;
using Bytes = rapidjson::MemoryBuffer;

template <class Stream, class Encoding>
using Compact = rapidjson::Writer<Stream, Utf16, Encoding, rapidjson::CrtAllocator,
                                  rapidjson::kWriteNanAndInfFlag>;

/// A file behind a buffer of 260 bytes: the buffer goes to the file when there is no room in it for
/// one byte more, and when the writer has come to the end.
class Blocks {
public:
    using Ch = char;

    void Put(char c) {
        constexpr size_t kBuffer = 260;
        if (buffer.size() == kBuffer) Flush();
        buffer += c;
    }
    void Flush() {
        file += buffer;
        buffer.clear();
    }
    const std::string& File() const { return file; }

private:
    std::string buffer;
    std::string file;
};

/// Runs `action` with a value of the encoding's type.
template <class Action>
void InEncoding(int32_t selector, Action action) {
    switch (selector) {
        case 0:
            return action(rapidjson::ASCII<>());
        case 1:
            return action(rapidjson::UTF16LE<>());
        case 2:
            return action(rapidjson::UTF8<>());
        default:
            return action(rapidjson::UTF16BE<>());
    }
}

}  // namespace

ReferenceDocument ReferenceParse(const std::wstring& json) {
    ReferenceDocument document;
    document.Parse<rapidjson::kParseNanAndInfFlag>(json.c_str());
    return document;
}

ReferenceDocument ReferenceArrayOf(const std::wstring& text) {
    ReferenceDocument document;
    auto& allocator = document.GetAllocator();
    const auto length = static_cast<rapidjson::SizeType>(text.size());
    ReferenceDocument::ValueType element(text.data(), length, allocator);
    document.SetArray().PushBack(element, allocator);
    return document;
}

std::wstring ReferenceText(const ReferenceDocument& document) {
    using Text = rapidjson::GenericStringBuffer<Utf16>;
    Text text;
    Compact<Text, Utf16> writer(text);
    document.Accept(writer);
    return text.GetString();
}

std::string ReferenceBytes(const ReferenceDocument& document, int32_t selector) {
    Bytes bytes;
    InEncoding(selector, [&](auto encoding) {
        using Stream = rapidjson::EncodedOutputStream<decltype(encoding), Bytes>;
        Stream stream(bytes, false);
        Compact<Stream, decltype(encoding)> writer(stream);
        document.Accept(writer);
    });
    return std::string(bytes.GetBuffer(), bytes.GetSize());
}

std::string ReferenceFile(const ReferenceDocument& document, int32_t selector, bool indented) {
    Blocks blocks;
    InEncoding(selector, [&](auto encoding) {
        using Encoding = decltype(encoding);
        using Stream = rapidjson::EncodedOutputStream<Encoding, Blocks>;
        Stream stream(blocks);
        Compact<Stream, Encoding> compact(stream);
        rapidjson::PrettyWriter<Stream, Utf16, Encoding> pretty(stream);
        if (indented)
            document.Accept(pretty);
        else
            document.Accept(compact);
    });
    return blocks.File();
}

}  // namespace support
