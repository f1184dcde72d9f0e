#include "Decoder.h"

#include <algorithm>
#include <cstring>

#include "PlayedDelegate.h"

namespace replay {
namespace {

/// References that a host made up: no address is below this.
constexpr uint64_t kLeastAddress = 0x10000;
/// What is in an output before the call, unless that is known.
constexpr uint8_t kUnwritten = 0xCD;

}  // namespace

Decoder::~Decoder() {
    for (const std::wstring& file : files) player.files.Remove(file);
}

const Value& Decoder::Known(const Value& value) {
    if (value.IsHash() || value.tag == Tag::kFileSize || value.tag == Tag::kNotAFile)
        isImpossible = true;
    return value;
}

uint64_t Decoder::Reference() {
    const Value value = before.Next();
    if (value.tag == Tag::kReference) {
        const auto& addresses = player.Object(value.object).addresses;
        const auto found = addresses.find(static_cast<uint32_t>(value.number));
        if (found != addresses.end()) return found->second;
        isImpossible = true;
        return 0;
    }
    if (value.number < kLeastAddress) return value.number;
    if (result.number != record::kFaulted) {
        // A parser is what it was without the call.
        (object.interface == record::Interface::kParser ? isForeign : isImpossible) = true;
    }
    return reinterpret_cast<uint64_t>(BadAddress());
}

QXJSON::IJsonPackageDelegate* Decoder::Delegate() {
    const Value value = before.Next();
    if (value.tag != Tag::kNumber) return nullptr;
    return player.Delegate(object, static_cast<uint32_t>(value.number));
}

void* Decoder::NameOf(const std::wstring& name) {
    const size_t size = (name.size() + 1) * sizeof(wchar_t);
    return std::memcpy(memory.Get(size), name.c_str(), size);
}

void* Decoder::InputFile() {
    const Value name = before.Next();
    const Value content = Known(before.Next());
    if (name.tag != Tag::kText || name.count == 0) return memory.CopyOf(Known(name));
    if (content.tag == Tag::kFolder) return NameOf(player.files.Name());
    if (content.tag != Tag::kBytes) return NameOf(player.files.NoName());
    files.push_back(player.files.NewName());
    player.files.Create(files.back(), content.data, content.count);
    return NameOf(files.back());
}

void* Decoder::OutputFile() {
    const Value name = before.Next();
    const Value content = after.Next();
    if (name.tag != Tag::kText || name.count == 0) return memory.CopyOf(Known(name));
    if (content.tag == Tag::kNotAFile) isImpossible = true;
    if (content.tag == Tag::kLeft) return NameOf(player.files.NoName());
    files.push_back(player.files.NewName());
    return NameOf(files.back());
}

void* Decoder::Variant(bool isCopy) {
    const Value tag = before.Next();
    const Value content = Known(before.Next());
    if (tag.tag != Tag::kNumber && !isCopy) return memory.CopyOf(tag);
    auto* const variant =
        static_cast<QXJSON::JsonVariant*>(memory.Get(sizeof(QXJSON::JsonVariant)));
    variant->tag = static_cast<uint16_t>(tag.number);
    if (variant->tag == QXJSON::kVariantText)
        variant->text = static_cast<const wchar_t*>(memory.CopyOf(content));
    else
        variant->number = static_cast<int64_t>(content.number);
    return variant;
}

void* Decoder::Output(size_t size, int values) {
    const Value pointer = before.Next();
    const Value left = after.Next();
    const Value second = values > 1 ? after.Next() : Value();
    if (pointer.tag != Tag::kGiven) return memory.CopyOf(pointer);
    if (left.tag == Tag::kReadOnly) return ReadOnlyAddress();
    auto* const place = static_cast<uint8_t*>(memory.Get(size));
    std::memset(place, kUnwritten, size);
    if (left.tag == Tag::kLeft) {
        std::memcpy(place, &left.number, std::min(size, sizeof left.number));
        if (values > 1) std::memcpy(place + 8, &second.number, sizeof second.number);
    }
    return place;
}

}  // namespace replay
