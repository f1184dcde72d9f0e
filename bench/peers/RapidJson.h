#pragma once

#include <rapidjson/document.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/memorybuffer.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <optional>
#include <stdexcept>
#include <string>

#include "Checksum.h"
#include "Form.h"
#include "peers/WholeFile.h"

namespace bench {

/// Bare RapidJSON over UTF-16: the floor, because the library itself is made of it. It does
/// what the library must at least do, without interfaces, checks and guards.
class RapidJson {
    using Encoding = rapidjson::UTF16<wchar_t>;
    using Document = rapidjson::GenericDocument<Encoding>;
    using Value = rapidjson::GenericValue<Encoding>;

public:
    static constexpr const char* kName = "RapidJSON";
    using Place = Value*;

    // ---- Loading
    void LoadText(const std::wstring& text) {
        Fresh().Parse<rapidjson::kParseNanAndInfFlag>(text.c_str());
        ExpectLoaded();
    }
    void LoadBytes(const std::string& bytes) {
        rapidjson::MemoryStream memory(bytes.data(), bytes.size());
        LoadStream<rapidjson::EncodedInputStream<rapidjson::UTF8<>, rapidjson::MemoryStream>,
                   rapidjson::UTF8<>>(memory);
    }
    void LoadFile(const std::wstring& file) { LoadBytes(ReadWhole(file)); }

    /// Bytes in any encoding of UTF, as the check of what was written reads them.
    void LoadAnyBytes(const void* data, size_t bytes) {
        rapidjson::MemoryStream memory(static_cast<const char*>(data), bytes);
        LoadStream<rapidjson::AutoUTFInputStream<unsigned, rapidjson::MemoryStream>,
                   rapidjson::AutoUTF<unsigned>>(memory);
    }

    // ---- Reading
    uint64_t Walk() const { return Sum(*document); }

    int64_t Find(const std::wstring& key) const {
        const auto found = document->FindMember(Name(key));
        return found == document->MemberEnd() ? kAbsent : found->value.GetInt();
    }

    // ---- Building
    Place RootArray() { return &Fresh().SetArray(); }
    Place RootObject() { return &Fresh().SetObject(); }
    Place AddObject(Place parent) { return Append(parent, Value(rapidjson::kObjectType)); }
    Place AddObject(Place parent, const std::wstring& key) {
        return AddMember(parent, key, Value(rapidjson::kObjectType));
    }
    Place AddArray(Place parent) { return Append(parent, Value(rapidjson::kArrayType)); }
    Place AddArray(Place parent, const std::wstring& key) {
        return AddMember(parent, key, Value(rapidjson::kArrayType));
    }
    void AddInt(Place parent, int32_t number) { Append(parent, Value(number)); }
    void AddInt(Place parent, const std::wstring& key, int32_t number) {
        AddMember(parent, key, Value(number));
    }
    void AddDouble(Place parent, const std::wstring& key, double number) {
        AddMember(parent, key, Value(number));
    }
    void AddText(Place parent, const std::wstring& key, const std::wstring& text) {
        AddMember(parent, key, Copy(text));
    }

    // ---- A keyed store
    void Clear() { RootObject(); }
    void Set(const std::wstring& key, double number) {
        const auto found = document->FindMember(Name(key));
        if (found != document->MemberEnd())
            found->value.SetDouble(number);
        else
            AddMember(&*document, key, Value(number));
    }
    double Get(const std::wstring& key) const {
        return document->FindMember(Name(key))->value.GetDouble();
    }
    bool Contains(const std::wstring& key) const {
        return document->FindMember(Name(key)) != document->MemberEnd();
    }
    void Remove(const std::wstring& key) {
        document->EraseMember(document->FindMember(Name(key)));  // keeps the order
    }
    size_t Count() const { return document->MemberCount(); }

    // ---- Writing
    static constexpr bool Writes(Form) { return true; }
    Written Write(Form form) {
        switch (form) {
            case Form::kAscii:
                return WriteTo<rapidjson::ASCII<>>(ascii);
            case Form::kUtf8:
                return WriteTo<rapidjson::UTF8<>>(utf8);
            case Form::kUtf16Be:
                return WriteSwapped();
            default:
                return WriteTo<Encoding>(utf16);
        }
    }

    /// As UTF-8, four spaces for each level.
    Written WriteIndented() {
        utf8.Clear();
        rapidjson::PrettyWriter<decltype(utf8), Encoding, rapidjson::UTF8<>> writer(utf8);
        document->Accept(writer);
        return {utf8.GetString(), utf8.GetSize()};
    }

private:
    Document& Fresh() { return document.emplace(); }

    void ExpectLoaded() const {
        if (document->HasParseError()) throw std::runtime_error("RapidJSON did not parse");
    }

    template <class Stream, class Source>
    void LoadStream(rapidjson::MemoryStream& memory) {
        Stream stream(memory);
        Fresh().ParseStream<rapidjson::kParseNanAndInfFlag, Source>(stream);
        ExpectLoaded();
    }

    static Value Name(const std::wstring& key) {
        return Value(
            rapidjson::StringRef(key.c_str(), static_cast<rapidjson::SizeType>(key.size())));
    }
    Value Copy(const std::wstring& text) {
        return Value(text.c_str(), static_cast<rapidjson::SizeType>(text.size()),
                     document->GetAllocator());
    }

    Place Append(Place parent, Value item) {
        parent->PushBack(item, document->GetAllocator());
        return parent->End() - 1;
    }
    Place AddMember(Place parent, const std::wstring& key, Value item) {
        parent->AddMember(Copy(key), item, document->GetAllocator());
        return &(parent->MemberEnd() - 1)->value;
    }

    static std::wstring_view View(const Value& text) {
        return {text.GetString(), text.GetStringLength()};
    }

    static uint64_t Sum(const Value& value) {
        switch (value.GetType()) {
            case rapidjson::kObjectType: {
                uint64_t sum = ContainerSum(value.MemberCount());
                for (const auto& member : value.GetObject())
                    sum += NameSum(View(member.name)) + Sum(member.value);
                return sum;
            }
            case rapidjson::kArrayType: {
                uint64_t sum = ContainerSum(value.Size());
                for (const auto& element : value.GetArray()) sum += Sum(element);
                return sum;
            }
            case rapidjson::kStringType:
                return StringSum(View(value));
            case rapidjson::kNumberType:
                return NumberSum(value.GetDouble());
            case rapidjson::kNullType:
                return kNullSum;
            default:
                return BooleanSum(value.GetBool());
        }
    }

    template <class Target>
    Written WriteTo(rapidjson::GenericStringBuffer<Target>& buffer) {
        buffer.Clear();
        rapidjson::Writer<rapidjson::GenericStringBuffer<Target>, Encoding, Target> writer(buffer);
        document->Accept(writer);
        return {buffer.GetString(), buffer.GetSize()};
    }

    Written WriteSwapped() {
        using Target = rapidjson::UTF16BE<>;
        using Stream = rapidjson::EncodedOutputStream<Target, rapidjson::MemoryBuffer>;
        swapped.Clear();
        Stream stream(swapped, /*putBOM=*/false);
        rapidjson::Writer<Stream, Encoding, Target> writer(stream);
        document->Accept(writer);
        return {swapped.GetBuffer(), swapped.GetSize()};
    }

    std::optional<Document> document;
    rapidjson::GenericStringBuffer<rapidjson::ASCII<>> ascii;
    rapidjson::GenericStringBuffer<rapidjson::UTF8<>> utf8;
    rapidjson::GenericStringBuffer<Encoding> utf16;
    rapidjson::MemoryBuffer swapped;
};

}  // namespace bench
