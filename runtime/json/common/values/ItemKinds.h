#pragma once

#include <stdint.h>

#include <limits>

#include "JsonTypes.h"
#include "common/ValueCodes.h"

// What can be added to a document: one type for each kind of item, which makes the value (`Make`).
// Where it goes is ValueBuild.h's and the generator's affair.

namespace QXJSON {

/// What all kinds share unless they say otherwise.
struct ItemKind {
    /// By contract the item is stored without a test that there is a value to be overwritten.
    static constexpr bool kNeedsTarget = false;
    /// A scalar whose reference in an array is not the address of the new element (see Append).
    static constexpr bool kOddReference = false;
    /// Whether the item is one at all; if not, nothing is added.
    bool Known() const { return true; }
    /// Whether the text to be stored is there.
    bool HasText() const { return true; }
};

struct ObjectItem : ItemKind {
    JsonValue Make(JsonAllocator&) const { return JsonValue(rapidjson::kObjectType); }
};

struct ArrayItem : ItemKind {
    JsonValue Make(JsonAllocator&) const { return JsonValue(rapidjson::kArrayType); }
};

struct NullItem : ItemKind {
    JsonValue Make(JsonAllocator&) const { return JsonValue(); }
};

struct BooleanItem : ItemKind {
    explicit BooleanItem(bool flag) : value(flag) {}
    static constexpr bool kOddReference = true;
    JsonValue Make(JsonAllocator&) const { return JsonValue(value); }
    bool value;
};

/// A number of one of the widths; a float comes as the double that it widens to.
template <class Number>
struct NumberItem : ItemKind {
    explicit NumberItem(Number number) : value(number) {}
    static constexpr bool kOddReference = true;
    JsonValue Make(JsonAllocator&) const { return JsonValue(value); }
    Number value;
};

/// The integer 0 or one of the numbers that JSON has no digits for.
struct SpecialNumberItem : ItemKind {
    explicit SpecialNumberItem(uint32_t kind) : selector(kind) {}
    bool Known() const { return selector <= kNumberMinusInfinity; }
    JsonValue Make(JsonAllocator&) const {
        using Limits = std::numeric_limits<double>;
        switch (selector) {
            case kNumberFinite:
                return JsonValue(0);
            case kNumberNan:
                return JsonValue(Limits::quiet_NaN());
            case kNumberInfinity:
                return JsonValue(Limits::infinity());
            default:
                return JsonValue(-Limits::infinity());
        }
    }
    uint32_t selector;
};

/// Zero-terminated text, copied.
struct TextItem : ItemKind {
    explicit TextItem(const wchar_t* characters) : text(characters) {}
    static constexpr bool kNeedsTarget = true;
    bool HasText() const { return text != nullptr; }
    JsonValue Make(JsonAllocator& allocator) const { return JsonValue(text, allocator); }
    const wchar_t* text;
};

/// A document that was parsed in an annex of the pool: a large one stays there, a small one is
/// copied. Make it into a value only once.
struct DocumentItem : ItemKind {
    DocumentItem(JsonValue& parsed, DocumentPool::Annex& memory) : source(parsed), annex(memory) {}
    static constexpr bool kNeedsTarget = true;
    JsonValue Make(JsonAllocator& allocator) const;
    JsonValue& source;
    DocumentPool::Annex& annex;
};

}  // namespace QXJSON
