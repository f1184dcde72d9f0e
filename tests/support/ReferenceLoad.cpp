#include "ReferenceLoad.h"

#include <rapidjson/document.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/filereadstream.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <windows.h>

#include <cstdio>

#include "TempFile.h"

namespace support {
namespace {

using Utf16 = rapidjson::UTF16<>;
using Document = rapidjson::GenericDocument<Utf16>;
using Buffer = rapidjson::GenericStringBuffer<Utf16>;
using TreeWriter = rapidjson::Writer<Buffer, Utf16, Utf16, rapidjson::CrtAllocator,
                                     rapidjson::kWriteNanAndInfFlag>;

constexpr int kDocumentEmpty = 1;
constexpr int kInvalidValue = 3;
constexpr int kInvalidEncoding = 12;
constexpr int kEmptyText = 21;

std::wstring TreeOf(const Document& document) {
    Buffer buffer;
    TreeWriter writer(buffer);
    document.Accept(writer);
    return buffer.GetString();
}

LoadOutcome Judge(const Document& document) {
    if (document.HasParseError())
        return Failure(document.GetParseError(), document.GetErrorOffset());
    if (!document.IsObject() && !document.IsArray()) return Failure(kInvalidValue, 0);
    return Success(TreeOf(document));
}

/// The document that a byte stream holds, and whether it was read as UTF-8.
template <class ByteStream>
LoadOutcome Detect(ByteStream& bytes, bool& isUtf8) {
    rapidjson::AutoUTFInputStream<unsigned, ByteStream> stream(bytes, rapidjson::kUTF8);
    Document document;
    document.ParseStream<rapidjson::kParseNanAndInfFlag, rapidjson::AutoUTF<unsigned>>(stream);
    isUtf8 = stream.GetType() == rapidjson::kUTF8;
    return Judge(document);
}

LoadOutcome LoadAnsi(const std::string& bytes) {
    Document document;
    document.Parse(FromAnsi(bytes).c_str());
    return Judge(document);
}

LoadOutcome EmptyAsText(const LoadOutcome& outcome) {
    return outcome.code == kDocumentEmpty ? Failure(kEmptyText, 0) : outcome;
}

}  // namespace

std::wstring FromAnsi(const std::string& bytes) {
    const int size = static_cast<int>(bytes.size());
    const int count = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::wstring text(static_cast<size_t>(count), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), count);
    return text;
}

LoadOutcome ReferenceLoadBytes(const std::string& bytes) {
    rapidjson::MemoryStream stream(bytes.data(), bytes.size());
    bool isUtf8 = false;
    const LoadOutcome first = Detect(stream, isUtf8);
    return EmptyAsText(isUtf8 && first.code == kInvalidEncoding ? LoadAnsi(bytes) : first);
}

LoadOutcome ReferenceLoadText(const std::wstring& text) {
    const size_t size = std::wstring(text.c_str()).size() * sizeof(wchar_t);
    rapidjson::MemoryStream stream(reinterpret_cast<const char*>(text.data()), size);
    bool isUtf8 = false;
    return EmptyAsText(Detect(stream, isUtf8));
}

LoadOutcome ReferenceLoadFile(const wchar_t* fileName) {
    std::FILE* file = _wfopen(fileName, L"rb");
    char buffer[1024];
    rapidjson::FileReadStream stream(file, buffer, sizeof buffer);
    bool isUtf8 = false;
    const LoadOutcome first = Detect(stream, isUtf8);
    std::fclose(file);
    return isUtf8 && first.code == kInvalidEncoding ? LoadAnsi(ReadFileBytes(fileName)) : first;
}

}  // namespace support
