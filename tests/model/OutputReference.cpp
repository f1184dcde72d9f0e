#include "OutputReference.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/memorybuffer.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace model {
namespace {

using Utf16 = rapidjson::UTF16<>;
using Bytes = rapidjson::MemoryBuffer;
using Text = rapidjson::GenericStringBuffer<Utf16>;

template <class Stream, class Encoding, unsigned kFlags>
using Compact = rapidjson::Writer<Stream, Utf16, Encoding, rapidjson::CrtAllocator, kFlags>;

/// A file that is written through a buffer of 260 bytes: the buffer goes to the file when there is
/// no room in it for one byte more, and when the writer has come to the end.
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

/// Writes compactly in an encoding.
template <class Encoding, class Stream>
void Write(const Value& value, Stream& stream, Numbers numbers) {
    if (numbers == Numbers::kAll) {
        Compact<Stream, Encoding, rapidjson::kWriteNanAndInfFlag> writer(stream);
        value.Accept(writer);
    } else {
        Compact<Stream, Encoding, rapidjson::kWriteDefaultFlags> writer(stream);
        value.Accept(writer);
    }
}

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

Document ReferenceArrayOf(const std::wstring& text) {
    Document document;
    auto& allocator = document.GetAllocator();
    Value element = building::NewString(text, allocator);
    document.SetArray().PushBack(element, allocator);
    return document;
}

std::wstring ReferenceText(const Value& value, Numbers numbers) {
    Text text;
    Write<Utf16>(value, text, numbers);
    return {text.GetString(), text.GetSize() / sizeof(wchar_t)};
}

std::string ReferenceBytes(const Value& value, int32_t selector, Numbers numbers) {
    Bytes bytes;
    InEncoding(selector, [&](auto encoding) {
        rapidjson::EncodedOutputStream<decltype(encoding), Bytes> stream(bytes, false);
        Write<decltype(encoding)>(value, stream, numbers);
    });
    return std::string(bytes.GetBuffer(), bytes.GetSize());
}

std::string ReferenceFile(const Value& value, int32_t selector, bool indented) {
    Blocks blocks;
    InEncoding(selector, [&](auto encoding) {
        using Encoding = decltype(encoding);
        using Stream = rapidjson::EncodedOutputStream<Encoding, Blocks>;
        Stream stream(blocks);
        if (!indented) return Write<Encoding>(value, stream, Numbers::kAll);
        rapidjson::PrettyWriter<Stream, Utf16, Encoding> writer(stream);
        value.Accept(writer);
    });
    return blocks.File();
}

bool IsWellFormed(const std::wstring& text) {
    const auto kindOf = [](wchar_t c) { return c & 0xFC00; };
    for (size_t i = 0; i < text.size(); ++i) {
        if (kindOf(text[i]) == 0xDC00) return false;
        if (kindOf(text[i]) == 0xD800 && (++i == text.size() || kindOf(text[i]) != 0xDC00))
            return false;
    }
    return true;
}

}  // namespace model
