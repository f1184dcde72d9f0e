#include "JsonWriter.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <type_traits>

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
    JsonWriter(ByteSink& sink, const Colours& whichColours)
        : output(sink, false), format(output), colours(whichColours) {}

    void Scalar(ValueKind kind, std::string_view text) override {
        if (kind == ValueKind::kString)
            String(text, ColourOf(kind));
        else
            Json(text, kNumberType, ColourOf(kind));
    }
    void Key(std::string_view name) override { String(name, Colour::kKey); }
    void Start(ValueKind kind) override {
        kind == ValueKind::kObject ? format.StartObject() : format.StartArray();
    }
    void End(ValueKind kind) override {
        kind == ValueKind::kObject ? format.EndObject() : format.EndArray();
    }

    Format& Inner() { return format; }

private:
    void String(std::string_view text, Colour colour) {
        const bool isWhole = FindLoneSurrogate(text) == std::string_view::npos;
        if (isWhole && !colours)
            format.String(text.data(), static_cast<SizeType>(text.size()));
        else
            Json(isWhole ? Quoted(text) : Escaped(text), kStringType, colour);
    }
    void Json(std::string_view json, Type type, Colour colour) {
        if (!colours) {
            format.RawValue(json.data(), json.size(), type);
            return;
        }
        const std::string coloured = colours.In(colour, json);
        format.RawValue(coloured.data(), coloured.size(), type);
    }
    /// A string as JSON, as the format would write it.
    static std::string Quoted(std::string_view text) {
        using Encoding = std::conditional_t<std::is_same_v<Target, ASCII<>>, ASCII<>, UTF8<>>;
        StringBuffer json;
        Writer<StringBuffer, UTF8<>, Encoding>(json).String(text.data(),
                                                            static_cast<SizeType>(text.size()));
        return {json.GetString(), json.GetSize()};
    }

    Output<Target> output;
    Format format;
    const Colours colours;
};

template <class Target>
std::unique_ptr<Events> New(ByteSink& sink, const TextForm& form) {
    if (form.indent == 0)
        return std::make_unique<JsonWriter<Target, CompactWriter<Target>>>(sink, form.colours);
    auto writer = std::make_unique<JsonWriter<Target, IndentingWriter<Target>>>(sink, form.colours);
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
