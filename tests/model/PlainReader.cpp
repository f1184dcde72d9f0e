#include "PlainReader.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/filereadstream.h>
#include <rapidjson/memorystream.h>
#include <windows.h>

#include <cstdio>
#include <vector>

#include "TempFile.h"

namespace model {
namespace {

constexpr unsigned kNan = rapidjson::kParseNanAndInfFlag;

/// Reads a byte stream; returns whether bytes that are not UTF-8 ended it.
template <class ByteStream>
bool Detect(bool acceptsNan, ByteStream& bytes, Document& document) {
    using AnyUtf = rapidjson::AutoUTF<unsigned>;
    rapidjson::AutoUTFInputStream<unsigned, ByteStream> stream(bytes, rapidjson::kUTF8);
    if (acceptsNan)
        document.ParseStream<kNan, AnyUtf>(stream);
    else
        document.ParseStream<rapidjson::kParseDefaultFlags, AnyUtf>(stream);
    return stream.GetType() == rapidjson::kUTF8 &&
           document.GetParseError() == rapidjson::kParseErrorStringInvalidEncoding;
}

void ParseAnsi(bool acceptsNan, const std::string& bytes, Document& document) {
    const std::wstring text = FromAnsi(bytes);
    if (acceptsNan)
        document.Parse<kNan>(text.c_str());
    else
        document.Parse(text.c_str());
}

}  // namespace

Document ReadText(const LoadRules& rules, const std::wstring& text) {
    const size_t size = std::wstring(text.c_str()).size() * sizeof(wchar_t);
    rapidjson::MemoryStream stream(reinterpret_cast<const char*>(text.data()), size);
    Document document;
    Detect(rules.acceptsNan, stream, document);
    return document;
}

Document ReadBytes(const LoadRules& rules, const std::string& bytes) {
    rapidjson::MemoryStream stream(bytes.data(), bytes.size());
    Document document;
    if (Detect(rules.acceptsNan, stream, document))
        ParseAnsi(rules.acceptsAnsiNan, bytes, document);
    return document;
}

Document ReadFile(const LoadRules& rules, const wchar_t* name) {
    Document document;
    std::FILE* const file = _wfopen(name, L"rb");
    if (!file) return document;
    std::vector<char> block(rules.fileBlock);
    rapidjson::FileReadStream stream(file, block.data(), block.size());
    const bool isAnsi = Detect(rules.acceptsNan, stream, document);
    std::fclose(file);
    if (isAnsi) ParseAnsi(rules.acceptsAnsiNan, support::ReadFileBytes(name), document);
    return document;
}

Document Parse(const std::wstring& json) {
    Document document;
    document.Parse<kNan>(json.c_str());
    return document;
}

Document ParseExactly(const std::wstring& json) {
    Document document;
    document.Parse<kNan | rapidjson::kParseFullPrecisionFlag>(json.c_str());
    return document;
}

std::wstring FromAnsi(const std::string& bytes) {
    const int size = static_cast<int>(bytes.size());
    const int count = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::wstring text(static_cast<size_t>(count), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), count);
    return text;
}

}  // namespace model
