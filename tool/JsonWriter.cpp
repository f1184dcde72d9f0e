#include "JsonWriter.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>

#include "Text.h"

namespace tool {
namespace {

using namespace rapidjson;

template <class Target>
using Output = EncodedOutputStream<Target, ByteSink>;

template <class Target>
using CompactWriter = Writer<Output<Target>, UTF8<>, Target>;
template <class Target>
using IndentingWriter = PrettyWriter<Output<Target>, UTF8<>, Target>;

/// A string as JSON in which everything but ASCII is an escape.
std::string Escaped(std::string_view text) {
    std::string json = "\"";
    while (!text.empty()) {
        const size_t length = std::min(FindLoneSurrogate(text), text.size());
        StringBuffer piece;
        Writer<StringBuffer, UTF8<>, ASCII<>>(piece).String(text.data(),
                                                            static_cast<SizeType>(length));
        json.append(piece.GetString() + 1, piece.GetSize() - 2);  // without its quotation marks
        text.remove_prefix(length);
        if (text.empty()) break;
        json += LoneSurrogateEscape(text);
        text.remove_prefix(kSurrogateSize);
    }
    return json + '"';
}

/// Events for one of RapidJSON's writers.
template <class Target, class Format>
class JsonWriter : public Events {
public:
    explicit JsonWriter(ByteSink& sink) : output(sink, false), format(output) {}

    void Scalar(ValueKind kind, std::string_view text) override {
        if (kind == ValueKind::kString)
            String(text);
        else
            format.RawValue(text.data(), text.size(), kNumberType);
    }
    void Key(std::string_view name) override { String(name); }
    void Start(ValueKind kind) override {
        kind == ValueKind::kObject ? format.StartObject() : format.StartArray();
    }
    void End(ValueKind kind) override {
        kind == ValueKind::kObject ? format.EndObject() : format.EndArray();
    }

    Format& Inner() { return format; }

private:
    void String(std::string_view text) {
        if (FindLoneSurrogate(text) == std::string_view::npos) {
            format.String(text.data(), static_cast<SizeType>(text.size()));
            return;
        }
        const std::string json = Escaped(text);
        format.RawValue(json.data(), json.size(), kStringType);
    }

    Output<Target> output;
    Format format;
};

template <class Target>
std::unique_ptr<Events> New(ByteSink& sink, const TextForm& form) {
    if (form.indent == 0) return std::make_unique<JsonWriter<Target, CompactWriter<Target>>>(sink);
    auto writer = std::make_unique<JsonWriter<Target, IndentingWriter<Target>>>(sink);
    writer->Inner().SetIndent(form.indentWith, form.indent);
    return writer;
}

}  // namespace

std::unique_ptr<Events> NewWriter(ByteSink& sink, const TextForm& form) {
    using QXJSON::hosting::Encoding;
    switch (form.encoding) {
        case Encoding::kAscii:
            return New<ASCII<>>(sink, form);
        case Encoding::kUtf16Le:
            return New<UTF16LE<>>(sink, form);
        case Encoding::kUtf16Be:
            return New<UTF16BE<>>(sink, form);
        default:
            return New<UTF8<>>(sink, form);
    }
}

std::string JsonOf(std::string_view text) {
    ByteSink sink;
    NewWriter(sink, TextForm())->Scalar(ValueKind::kString, text);
    return sink.Text();
}

}  // namespace tool
