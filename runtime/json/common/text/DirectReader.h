#pragma once

#include <stdint.h>

#include <cstddef>
#include <limits>
#include <string_view>

#include "NumberReader.h"

// The library's own reader. It only ever says yes: of JSON that is plain and well-formed it makes
// the events that RapidJSON's reader makes, in one pass; at anything else it stops, and leaves it
// to RapidJSON to find out what that is.

namespace QXJSON {

/// What a reader was about to read where it stopped.
enum class Awaited {
    kValue,     ///< a value
    kKey,       ///< the quotation mark of a key
    kInValue,   ///< the rest of a string
    kInKey,     ///< the rest of a key
    kColon,     ///< the colon behind a key
    kFollower,  ///< what may stand behind a value
};

/// A container that is not read to its end.
struct OpenContainer {
    bool isObject;
    uint32_t count;  ///< of the members or elements that are whole
};

/// Where a reader stands in a document.
struct ReaderState {
    /// RapidJSON's reader recurses, and so is the one to judge what is nested deeper.
    static constexpr size_t kDeepest = 256;

    Awaited awaited = Awaited::kValue;
    size_t depth = 0;
    OpenContainer open[kDeepest];

    /// Whether it stopped in a string.
    bool InText() const { return awaited == Awaited::kInKey || awaited == Awaited::kInValue; }
};

/// Reads what a source has, and sends it to a handler that takes everything. A source has
/// - Unit: what its text consists of. The text in hand goes on up to a zero at least.
/// - ReadText(at): reads the rest of a string from here, for Text(), and its quotation mark.
/// Returns
///   where that ends; null where it is refused, after Stop.
/// - PassBlanks(at): the first unit from here that is no white space; a zero at the end of all.
/// - IsEnd(at): whether what is in hand ends here, at a zero that is none of the text.
/// - More(at): whether there is more than what is in hand. Whether or not, what is in hand from
/// `at`
///   on is kept, but may be elsewhere.
/// - CanReachFrom(at): whether ReadPlainNumber can look from here as far ahead as it does.
/// - Stop(at): remembers where the reader stopped.
template <class Source, class Handler>
class DirectReader {
public:
    using Unit = typename Source::Unit;

    DirectReader(Source& from, Handler& to, ReaderState& place, bool acceptNan)
        : source(from), handler(to), state(place), words(acceptNan) {}

    /// Reads a whole document; false where it stopped.
    bool Read(const Unit* at) {
        at = PassBlanks(at);
        do {
            at = ReadLeaf(at);
            if (at) at = PassEnds(at);
        } while (at && state.depth > 0);
        if (at) at = PassBlanks(at);
        return at && (*at == 0 || Stop(at, Awaited::kFollower));
    }

private:
    /// Always null.
    const Unit* Stop(const Unit* at, Awaited awaited) {
        state.awaited = awaited;
        source.Stop(at);
        return nullptr;
    }
    const Unit* PassBlanks(const Unit* at) { return *at > ' ' ? at : source.PassBlanks(at); }
    static Unit EndOf(bool isObject) { return isObject ? Unit{'}'} : Unit{']'}; }

    const Unit* ReadLeaf(const Unit* at);
    const Unit* Open(const Unit* at, bool isObject);
    void Close(bool isObject, uint32_t count);
    const Unit* PassEnds(const Unit* at);
    const Unit* ReadKey(const Unit* at);
    const Unit* ReadString(const Unit* at);
    const Unit* ReadScalar(const Unit* at);
    const Unit* ReadNumber(const Unit* at);
    const Unit* ReadOddNumber(const Unit*& at, Number& number);
    const Unit* ReadNonFinite(const Unit* at, Number& number);
    /// Where a word ends that may stand here; null where another does.
    template <size_t size>
    static const Unit* Behind(const Unit* at, const char (&word)[size]) {
        size_t same = 0;
        while (same < size - 1 && at[same] == static_cast<Unit>(word[same])) ++same;
        return same == size - 1 ? at + same : nullptr;
    }
    /// Whether what is in hand ends within so many units.
    bool EndsWithin(const Unit* at, size_t count) const {
        for (; count > 0 && *at != 0; --count) ++at;
        return source.IsEnd(at);
    }
    template <size_t size>
    const Unit* Match(const Unit* at, const char (&word)[size]);

    Source& source;
    Handler& handler;
    ReaderState& state;
    const bool words;  // NaN, Inf and Infinity are numbers
};

/// Reads up to the end of the first value that has no others in it, and opens the containers in
/// front of it. Returns null where the reader stops, as all of these do.
template <class Source, class Handler>
auto DirectReader<Source, Handler>::ReadLeaf(const Unit* at) -> const Unit* {
    while (*at == '[' || *at == '{') {
        const size_t depth = state.depth;
        const Unit* const behind = Open(at, *at == '{');
        if (!behind || state.depth == depth) return behind;
        at = behind;
    }
    return *at == '"' ? ReadString(at + 1) : ReadScalar(at);
}

/// Goes on to the first value in a container, or passes over an empty one.
template <class Source, class Handler>
auto DirectReader<Source, Handler>::Open(const Unit* at, bool isObject) -> const Unit* {
    if (state.depth == ReaderState::kDeepest) return Stop(at, Awaited::kValue);
    if (isObject)
        handler.StartObject();
    else
        handler.StartArray();
    state.open[state.depth] = {isObject, 0};
    at = PassBlanks(at + 1);
    if (*at == EndOf(isObject)) {
        Close(isObject, 0);
        return at + 1;
    }
    ++state.depth;
    return isObject ? ReadKey(at) : at;
}

template <class Source, class Handler>
void DirectReader<Source, Handler>::Close(bool isObject, uint32_t count) {
    if (isObject)
        handler.EndObject(count);
    else
        handler.EndArray(count);
}

/// Passes over what follows a value: the ends of the containers that it is the last in, and the way
/// to the next value.
template <class Source, class Handler>
auto DirectReader<Source, Handler>::PassEnds(const Unit* at) -> const Unit* {
    for (; state.depth > 0; --state.depth, ++at) {
        OpenContainer& container = state.open[state.depth - 1];
        ++container.count;
        at = PassBlanks(at);
        if (*at == ',') {
            at = PassBlanks(at + 1);
            return container.isObject ? ReadKey(at) : at;
        }
        if (*at != EndOf(container.isObject)) return Stop(at, Awaited::kFollower);
        Close(container.isObject, container.count);
    }
    return at;
}

/// Reads a key, and goes on to its value.
template <class Source, class Handler>
auto DirectReader<Source, Handler>::ReadKey(const Unit* at) -> const Unit* {
    if (*at != '"') return Stop(at, Awaited::kKey);
    at = source.ReadText(at + 1);
    if (!at) {
        state.awaited = Awaited::kInKey;
        return nullptr;
    }
    const std::wstring_view key = source.Text();
    handler.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()), true);
    at = PassBlanks(at);
    return *at == ':' ? PassBlanks(at + 1) : Stop(at, Awaited::kColon);
}

template <class Source, class Handler>
auto DirectReader<Source, Handler>::ReadString(const Unit* at) -> const Unit* {
    at = source.ReadText(at);
    if (!at) {
        state.awaited = Awaited::kInValue;
        return nullptr;
    }
    const std::wstring_view text = source.Text();
    handler.String(text.data(), static_cast<rapidjson::SizeType>(text.size()), true);
    return at;
}

template <class Source, class Handler>
auto DirectReader<Source, Handler>::ReadScalar(const Unit* at) -> const Unit* {
    const Unit* behind = nullptr;
    switch (*at) {
        case 'n':
            if ((behind = Match(at, "null"))) handler.Null();
            break;
        case 't':
            if ((behind = Match(at, "true"))) handler.Bool(true);
            break;
        case 'f':
            if ((behind = Match(at, "false"))) handler.Bool(false);
            break;
        default:
            return ReadNumber(at);
    }
    return behind;
}

/// Passes over a word that is a value.
template <class Source, class Handler>
template <size_t size>
auto DirectReader<Source, Handler>::Match(const Unit* at, const char (&word)[size]) -> const Unit* {
    do {
        if (const Unit* const behind = Behind(at, word)) return behind;
    } while (EndsWithin(at, size) && source.More(at));
    return Stop(at, Awaited::kValue);
}

template <class Source, class Handler>
auto DirectReader<Source, Handler>::ReadNumber(const Unit* at) -> const Unit* {
    Number number;
    const Unit* behind = source.CanReachFrom(at) ? ReadPlainNumber(at, number) : nullptr;
    if (!behind || *behind == 0) {
        behind = ReadOddNumber(at, number);
        if (!behind) return nullptr;
    }
    Send(number, handler);
    return behind;
}

/// Reads any number, or one at the end of what is in hand.
template <class Source, class Handler>
auto DirectReader<Source, Handler>::ReadOddNumber(const Unit*& at, Number& number) -> const Unit* {
    for (bool more = true;;) {
        NumberReader<Unit> reader(at);
        const bool isNumber = reader.Read(number);
        if (more && source.IsEnd(reader.End())) {
            more = source.More(at);
            continue;
        }
        if (isNumber) return reader.End();
        return words ? ReadNonFinite(at, number) : Stop(at, Awaited::kValue);
    }
}

/// NaN and the infinities, with or without a minus, or what is no value at all.
template <class Source, class Handler>
auto DirectReader<Source, Handler>::ReadNonFinite(const Unit* at, Number& number) -> const Unit* {
    using Limits = std::numeric_limits<double>;
    const bool minus = *at == '-';
    const Unit first = minus ? at[1] : at[0];
    if (first != 'N' && first != 'I') return Stop(at, Awaited::kValue);
    while (EndsWithin(at, sizeof "-Infinity") && source.More(at)) {
    }
    const Unit* const word = minus ? at + 1 : at;
    number.kind = Number::kDouble;
    number.real = Limits::quiet_NaN();
    const Unit* behind = Behind(word, "NaN");
    if (!behind) {
        number.real = minus ? -Limits::infinity() : Limits::infinity();
        behind = Behind(word, "Infinity");
        if (!behind) behind = Behind(word, "Inf");
    }
    // RapidJSON's reader goes on here as if these were digits, or the beginning of a longer word.
    const bool goesOn = behind && (*behind == '.' || (*behind | 0x20) == 'e' || *behind == 'i');
    return behind && !goesOn ? behind : Stop(at, Awaited::kValue);
}

}  // namespace QXJSON
