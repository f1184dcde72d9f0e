#pragma once

#include <cstdint>
#include <string_view>

#include "Library.h"

namespace tool {

using ValueKind = QXJSON::hosting::ValueKind;

/// What a JSON text consists of, in its order. Whoever reads a text calls these; whoever writes
/// one, or looks for something in it, implements them. A member is its Key and then its value.
class Events {
public:
    Events() = default;
    virtual ~Events() = default;
    Events(const Events&) = delete;
    Events& operator=(const Events&) = delete;

    /// A value that is not a container: the characters of a string in UTF-8, where half of a
    /// surrogate pair stands as if it were a character; the JSON of anything else, a number as it
    /// was written.
    virtual void Scalar(ValueKind kind, std::string_view text) = 0;
    virtual void Key(std::string_view name) = 0;
    virtual void Start(ValueKind container) = 0;
    virtual void End(ValueKind container) = 0;

    /// How much of the text was read when the last event was called, up to and including the last
    /// character of what it reports: in bytes, or characters of the ANSI code page.
    uint64_t place = 0;
};

/// Ignores everything.
class NoEvents : public Events {
public:
    void Scalar(ValueKind, std::string_view) override {}
    void Key(std::string_view) override {}
    void Start(ValueKind) override {}
    void End(ValueKind) override {}
};

}  // namespace tool
