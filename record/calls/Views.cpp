#include "Views.h"

namespace record {

void TextView::LookCarefully() {
    if (!text) return;
    size_t seen = 0;
    for (size_t ahead = 4096;; ahead *= 2) {
        const size_t readable = ReadableBytes(text, ahead) / sizeof(wchar_t);
        const auto* const bytes = reinterpret_cast<const char*>(text);
        while (seen < readable && Load<wchar_t>(bytes + 2 * seen) != 0) ++seen;
        if (seen < readable) return Keep(Tag::kText, seen);
        if (readable < ahead / sizeof(wchar_t)) break;
    }
    Keep(seen > 0 ? Tag::kTextPart : Tag::kBad, seen);
}

void TextView::Write(Sink& sink) const {
    if (tag == Tag::kNull || tag == Tag::kBad) return sink.Put(tag);
    sink.PutData(tag, text, units, sizeof(wchar_t));
}

void BytesView::Look() {
    if (!data) return;
    // Each page once.
    volatile const char* const bytes = data;
    for (uint64_t at = 0; at < wanted; at += 4096) (void)bytes[at];
    if (wanted > 0) (void)bytes[wanted - 1];
    Keep(wanted);
}

void BytesView::LookCarefully() {
    if (data) Keep(ReadableBytes(data, wanted));
}

void BytesView::Write(Sink& sink) const {
    if (tag == Tag::kNull || tag == Tag::kBad) return sink.Put(tag);
    sink.PutData(tag, data, size, 1);
}

void CharactersView::Look() {
    if (data) Keep(Ends(wanted));
}

void CharactersView::LookCarefully() {
    if (data) Keep(Ends(ReadableBytes(data, wanted)));
}

uint64_t CharactersView::Ends(uint64_t readable) const {
    constexpr int kZeros = 8;
    int zeros = 0;
    for (uint64_t at = 0; at < readable; ++at) {
        zeros = data[at] == 0 ? zeros + 1 : 0;
        if (zeros == kZeros) return at + 1;
    }
    return readable;
}

void VariantView::Look() {
    if (variant) Keep(Load<QXJSON::JsonVariant>(variant));
    Seat().Look();
}

void VariantView::LookCarefully() {
    constexpr size_t size = sizeof(QXJSON::JsonVariant);
    if (variant) {
        tag = Tag::kBad;
        if (ReadableBytes(variant, size) == size) Keep(Load<QXJSON::JsonVariant>(variant));
    }
    Seat().LookCarefully();
}

void VariantView::Write(Sink& sink) const {
    if (tag != Tag::kGiven) {
        sink.Put(tag);
        return sink.Put(tag);
    }
    sink.Put(Tag::kNumber, value.tag);
    if (value.tag == QXJSON::kVariantText) return text.Write(sink);
    sink.Put(Tag::kNumber, BitsOf(value.number));
}

}  // namespace record
