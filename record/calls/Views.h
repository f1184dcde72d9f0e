#pragma once

#include <algorithm>

#include "JsonVariant.h"
#include "Memory.h"
#include "Sink.h"
#include "common/text/TextLength.h"

namespace record {

constexpr uint32_t kMostUnits = 0xFFFFFFF0;

// What a host's pointer leads to. Look() reads memory and may fault; LookCarefully() takes its
// place where that happened, and finds out what can be read.

/// A text that ends at a zero.
class TextView {
public:
    explicit TextView(const wchar_t* text = nullptr) : text(text) {}

    void Look() {
        if (text) Keep(Tag::kText, QXJSON::CountUnits(text));
    }
    void LookCarefully();
    bool IsWhole() const { return tag == Tag::kText; }
    const wchar_t* Text() const { return text; }
    size_t Bound() const { return kDataSize + units * sizeof(wchar_t); }
    void Write(Sink& sink) const;

protected:
    void Keep(Tag found, size_t count) {
        tag = found;
        units = static_cast<uint32_t>(std::min<size_t>(count, kMostUnits));
    }

private:
    const wchar_t* text;
    Tag tag = Tag::kNull;
    uint32_t units = 0;
};

/// Bytes of a known count.
class BytesView {
public:
    explicit BytesView(const void* data = nullptr, uint64_t wanted = 0)
        : data(static_cast<const char*>(data)), wanted(std::min<uint64_t>(wanted, kMostUnits)) {}

    void Look();
    void LookCarefully();
    size_t Bound() const { return kDataSize + size; }
    void Write(Sink& sink) const;

protected:
    void Keep(uint64_t readable) {
        size = static_cast<uint32_t>(readable);
        tag = readable == wanted ? Tag::kBytes : readable > 0 ? Tag::kBytesPart : Tag::kBad;
    }

    const char* data;
    uint64_t wanted;

private:
    Tag tag = Tag::kNull;
    uint32_t size = 0;
};

/// Characters of a known count that end at a zero before that: what follows the zero may not be
/// readable, and is not recorded. A zero in any encoding is among eight zero bytes.
class CharactersView : public BytesView {
public:
    using BytesView::BytesView;

    void Look();
    void LookCarefully();

private:
    uint64_t Ends(uint64_t readable) const;
};

/// The tag of a variant, and its text or number: two values.
class VariantView {
public:
    explicit VariantView(const QXJSON::JsonVariant* variant = nullptr) : variant(variant) {}
    explicit VariantView(QXJSON::JsonVariant copy)
        : variant(nullptr), value(copy), tag(Tag::kGiven) {}

    void Look();
    void LookCarefully();
    size_t Bound() const { return kNumberSize + text.Bound(); }
    void Write(Sink& sink) const;

private:
    void Keep(QXJSON::JsonVariant read) {
        value = read;
        tag = Tag::kGiven;
    }
    TextView& Seat() {
        const bool hasText = tag == Tag::kGiven && value.tag == QXJSON::kVariantText;
        text = TextView(hasText ? value.text : nullptr);
        return text;
    }

    const QXJSON::JsonVariant* variant;
    QXJSON::JsonVariant value = {};
    Tag tag = Tag::kNull;
    TextView text;
};

}  // namespace record
