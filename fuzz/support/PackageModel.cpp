#include "PackageModel.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cmath>

#include "PackageReference.h"
#include "ReferenceLoad.h"
#include "RoundTrip.h"

namespace fuzz {
namespace {

using support::PackageAsks;

constexpr support::Output kAllGiven[] = {support::Output::kGiven, support::Output::kGiven};

bool AreEqual(wchar_t a, wchar_t b) {
    const auto lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? c + 32 : c + 0; };
    return lower(a) == lower(b);
}

std::optional<Outputs> ReadAs(PackageAsks asks, const Value& value) {
    using support::Asks;
    switch (asks) {
        case PackageAsks::kText:
            if (value.IsObject()) return Read(Asks::kObjectText, value);
            if (value.IsArray()) return Read(Asks::kArrayText, value);
            return Read(Asks::kString, value);
        case PackageAsks::kString:
            return Read(Asks::kString, value);
        case PackageAsks::kNumber:
            return Read(Asks::kDouble, value);
        case PackageAsks::kBoolean:
            return Read(Asks::kBoolean, value);
        case PackageAsks::kStringVariant:
            return value.IsString() ? Read(Asks::kVariant, value) : std::nullopt;
        case PackageAsks::kVariant:
            return Read(Asks::kVariant, value);
        case PackageAsks::kBlob:
            return Read(Asks::kBlob, value);
        case PackageAsks::kType:
            return Read(Asks::kItemType, value);
        default:
            return Outputs{L"1"};
    }
}

/// What a missing key answers.
int AbsenceOf(const support::PackageGetter& getter) {
    return getter.asks == PackageAsks::kExistence ? 0 : -1;
}

}  // namespace

void PackageModel::Load(const support::PackageOutcome& outcome, const std::wstring& json) {
    members.clear();
    // A number too large for a double may become Infinity, which ends the text of the outcome.
    building::Document document = ParseExactly(outcome.text);
    if (document.HasParseError()) document.Parse(json.c_str());
    for (auto& member : document.GetObject())
        members.push_back({fuzz::TextOf(member.name), Value(member.value, Allocator())});
    state.code = outcome.code;
    state.offset = outcome.offset;
}

void PackageModel::Set(const std::wstring& key, Value&& value) {
    const auto found = Find(key);
    if (found != members.end())
        found->value = value;
    else
        members.push_back({key, std::move(value)});
}

void PackageModel::SetText(const std::wstring& key, const std::wstring& text) {
    Set(key, building::NewString(text, Allocator()));
}

void PackageModel::SetNumber(const std::wstring& key, double number) {
    constexpr double kTwoTo63 = 9223372036854775808.0;
    if (std::trunc(number) != number || std::fabs(number) > kTwoTo63)
        Set(key, Value(number));
    else
        Set(key, Value(number == kTwoTo63 ? INT64_MIN : static_cast<int64_t>(number)));
}

int PackageModel::SetJson(const std::wstring& key, const std::wstring& json) {
    if (support::ReferencePackageText(json).result != 1) return 0;
    const building::Document document = ParseExactly(support::ReferenceLoadText(json).tree);
    Set(key, Value(document, Allocator()));
    return 1;
}

int PackageModel::Remove(const std::wstring& key) {
    const auto found = Find(key);
    if (found == members.end()) return 0;
    members.erase(found);
    return 1;
}

support::Answer PackageModel::Get(const support::PackageGetter& getter, const std::wstring& key) {
    const auto found = Find(key);
    if (found == members.end()) return PackageFailure(getter, AbsenceOf(getter), kAllGiven);
    const auto outputs = ReadAs(getter.asks, found->value);
    if (!outputs) return PackageFailure(getter, -3, kAllGiven);
    return {1, *outputs};
}

std::optional<std::wstring> PackageModel::TextOf(const std::wstring& key, int& failure) {
    const auto found = Find(key);
    failure = found == members.end() ? -1 : -3;
    if (found == members.end()) return std::nullopt;
    const auto outputs = ReadAs(PackageAsks::kText, found->value);
    return outputs ? std::optional(outputs->front()) : std::nullopt;
}

support::PackageState PackageModel::State() {
    state.text = Text();
    state.keys = static_cast<uint32_t>(members.size());
    return state;
}

std::vector<PackageModel::Member>::iterator PackageModel::Find(const std::wstring& key) {
    return std::find_if(members.begin(), members.end(), [&](const Member& member) {
        if (state.ignoreCase == 0) return member.name == key;
        return std::equal(key.begin(), key.end(), member.name.begin(), member.name.end(), AreEqual);
    });
}

std::wstring PackageModel::Text() {
    using Utf16 = rapidjson::UTF16<>;
    using Buffer = rapidjson::GenericStringBuffer<Utf16>;
    Buffer buffer;
    rapidjson::Writer<Buffer, Utf16, Utf16> writer(buffer);
    bool goesOn = writer.StartObject();
    for (const Member& member : members) {
        const auto length = static_cast<rapidjson::SizeType>(member.name.size());
        goesOn = goesOn && writer.Key(member.name.data(), length) && member.value.Accept(writer);
    }
    if (goesOn) writer.EndObject();
    return {buffer.GetString(), buffer.GetSize() / sizeof(wchar_t)};
}

}  // namespace fuzz
