#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "DirectReader.h"
#include "Utf8Stream.h"
#include "common/values/JsonTypes.h"

// Where the library's own reader stops RapidJSON's goes on, without any of the text before. It gets
// a text in its place that leads it to the same point: the beginnings of the containers that are
// open, with nothing in them but what stands for all that was read. Of that, the document hears
// nothing.

namespace QXJSON {

/// A text that leads RapidJSON's reader to where another stopped.
struct LeadingText {
    explicit LeadingText(const ReaderState& state);

    std::vector<char> text;   ///< with a zero at its end
    size_t events = 0;        ///< how many it makes
    bool hasStandIn = false;  ///< in the innermost container something stands for what was read
};

/// A leading text, with the rest of a stream behind it. Places are those of the stream.
class ContinuedStream {
public:
    using Ch = char;

    ContinuedStream(const LeadingText& leading, Utf8Stream& stream)
        : lead(leading.text.data()), rest(stream) {}

    Ch Peek() const { return *lead != 0 ? *lead : rest.Peek(); }
    Ch Take() { return *lead != 0 ? *lead++ : rest.Take(); }
    size_t Tell() const { return rest.Tell(); }

    // LCOV_EXCL_START: asked for by the concept; a source is not written to
    Ch* PutBegin() { return nullptr; }
    void Put(Ch) {}
    void Flush() {}
    size_t PutEnd(Ch*) { return 0; }
    // LCOV_EXCL_STOP

private:
    const char* lead;
    Utf8Stream& rest;
};

/// A document that another reader filled up to a point, as the handler of the one that goes on.
class ContinuedDocument {
public:
    using Ch = wchar_t;
    using Size = rapidjson::SizeType;

    /// `begun` is what was read of the string in which the other stopped.
    ContinuedDocument(JsonDocument& target, const ReaderState& place, const LeadingText& leading,
                      std::wstring_view begun)
        : document(target),
          state(place),
          lead(leading),
          ahead(leading.events),
          open(place.depth),
          text(begun) {}

    // The leading text has none of these.
    bool Null() { return document.Null(); }
    bool Bool(bool b) { return document.Bool(b); }
    bool Int(int i) { return document.Int(i); }
    bool Uint(unsigned i) { return document.Uint(i); }
    bool Int64(int64_t i) { return document.Int64(i); }
    bool Uint64(uint64_t i) { return document.Uint64(i); }
    bool Double(double d) { return document.Double(d); }
    // LCOV_EXCL_START: asked for by the concept; numbers are never handed on as text
    bool RawNumber(const Ch* s, Size n, bool copy) { return document.RawNumber(s, n, copy); }
    // LCOV_EXCL_STOP
    bool String(const Ch* s, Size n, bool) {
        if (Passes()) return true;
        return text.empty() ? document.String(s, n, true) : EndText({s, n});
    }
    bool Key(const Ch* s, Size n, bool copy) { return String(s, n, copy); }
    bool StartObject() { return Opens() || document.StartObject(); }
    bool EndObject(Size count) { return document.EndObject(count + Before()); }
    bool StartArray() { return Opens() || document.StartArray(); }
    bool EndArray(Size count) { return document.EndArray(count + Before()); }

private:
    /// Whether the event is one of the leading text.
    bool Passes();
    bool Opens();
    /// How many values the container that ends had in it before.
    Size Before();
    bool EndText(std::wstring_view rest);

    JsonDocument& document;
    const ReaderState& state;
    const LeadingText& lead;
    size_t ahead;       // events of the leading text
    size_t open;        // containers that were open and still are
    size_t depth = 0;   // containers that are open
    std::wstring text;  // of the string that was begun; empty when it is whole
};

}  // namespace QXJSON
