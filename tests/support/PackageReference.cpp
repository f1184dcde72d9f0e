#include "PackageReference.h"

#include <rapidjson/document.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/filereadstream.h>
#include <rapidjson/memorybuffer.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdio>

#include "ReferenceLoad.h"
#include "TempFile.h"

namespace support {
namespace {

using Utf16 = rapidjson::UTF16<>;
using Document = rapidjson::GenericDocument<Utf16>;
using TextBuffer = rapidjson::GenericStringBuffer<Utf16>;

constexpr int kDocumentEmpty = 1;
constexpr int kInvalidEncoding = 12;
constexpr int kEmptyText = 21;
constexpr int kRootNotObject = 22;

template <class Value>
std::wstring TextOf(const Value& value) {
    TextBuffer buffer;
    rapidjson::Writer<TextBuffer, Utf16, Utf16> writer(buffer);
    value.Accept(writer);
    return std::wstring(buffer.GetString(), buffer.GetSize() / sizeof(wchar_t));
}

PackageOutcome Judge(const Document& document) {
    if (document.HasParseError()) {
        const int code = document.GetParseError();
        if (code == kDocumentEmpty) return PackageRefused(kEmptyText, 0);
        return PackageRefused(code, document.GetErrorOffset());
    }
    if (document.IsObject()) return PackageLoaded(TextOf(document));
    return document.IsArray() ? PackageArrayRoot() : PackageRefused(kRootNotObject, 0);
}

/// Reads a byte stream into the document; whether it was read as UTF-8.
template <class ByteStream>
bool Detect(ByteStream& bytes, Document& document) {
    rapidjson::AutoUTFInputStream<unsigned, ByteStream> stream(bytes, rapidjson::kUTF8);
    document.ParseStream<rapidjson::kParseDefaultFlags, rapidjson::AutoUTF<unsigned>>(stream);
    return stream.GetType() == rapidjson::kUTF8;
}

template <class Target>
std::string Written(const Document& document) {
    using Encoded = rapidjson::EncodedOutputStream<Target, rapidjson::MemoryBuffer>;
    rapidjson::MemoryBuffer buffer;
    Encoded stream(buffer, false);
    rapidjson::Writer<Encoded, Utf16, Target> writer(stream);
    document.Accept(writer);
    return std::string(buffer.GetBuffer(), buffer.GetSize());
}

}  // namespace

PackageOutcome ReferencePackageText(const std::wstring& text) {
    const size_t size = std::wstring(text.c_str()).size() * sizeof(wchar_t);
    rapidjson::MemoryStream stream(reinterpret_cast<const char*>(text.data()), size);
    Document document;
    Detect(stream, document);
    return Judge(document);
}

PackageOutcome ReferencePackageFile(const wchar_t* fileName) {
    std::FILE* file = _wfopen(fileName, L"rb");
    char buffer[1024];
    rapidjson::FileReadStream stream(file, buffer, sizeof buffer);
    Document document;
    const bool isUtf8 = Detect(stream, document);
    std::fclose(file);
    if (!isUtf8 || document.GetParseError() != kInvalidEncoding) return Judge(document);
    Document ansi;
    ansi.Parse(FromAnsi(ReadFileBytes(fileName)).c_str());
    return Judge(ansi);
}

std::string ReferencePackageBytes(const std::wstring& json, int encoding) {
    Document document;
    document.Parse(json.c_str());
    switch (encoding) {
        case 0:
            return Written<rapidjson::ASCII<>>(document);
        case 1:
            return Written<rapidjson::UTF16LE<>>(document);
        case 2:
            return Written<rapidjson::UTF8<>>(document);
        default:
            return Written<rapidjson::UTF16BE<>>(document);
    }
}

std::wstring ReferenceNumber(double number) {
    return TextOf(rapidjson::GenericValue<Utf16>(number));
}

std::wstring ReferenceNumber(int64_t number) {
    return TextOf(rapidjson::GenericValue<Utf16>(number));
}

}  // namespace support
