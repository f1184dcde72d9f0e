#include "PackageModel.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cmath>

#include "OutputReference.h"
#include "PackageReference.h"

namespace model {
namespace {

using support::Asks;

std::optional<Outputs> ReadAs(Asks asks, const Value& value) {
    switch (asks) {
        case Asks::kAnyText:
            // A package's texts end at a number that is not finite, a parser's do not.
            if (value.IsObject() || value.IsArray())
                return Outputs{ReferenceText(value, Numbers::kFinite)};
            return Read(Asks::kString, value);
        case Asks::kTextVariant:
            return value.IsString() ? Read(Asks::kVariant, value) : std::nullopt;
        case Asks::kExistence:
            return Outputs{L"1"};
        default:
            return Read(asks, value);
    }
}

}  // namespace

support::PackageOutcome PackageModel::Load(const Document& read) {
    const auto outcome = ReferencePackage(read);
    members.clear();
    if (!read.HasParseError() && read.IsObject())
        for (const auto& member : read.GetObject())
            members.push_back(
                {std::wstring(CharactersOf(member.name)), Value(member.value, Allocator())});
    state.code = outcome.code;
    state.offset = outcome.offset;
    return outcome;
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
    const Document read = ReadText(kPackageLoads, json);
    if (read.HasParseError() || (!read.IsObject() && !read.IsArray())) return 0;
    Set(key, Value(read, Allocator()));
    return 1;
}

int PackageModel::Remove(const std::wstring& key) {
    const auto found = Find(key);
    if (found == members.end()) return 0;
    members.erase(found);
    return 1;
}

support::Answer PackageModel::Get(const support::Operation& getter, const std::wstring& key) {
    const auto found = Find(key);
    if (found == members.end())
        return PackageFailure(getter, getter.asks == Asks::kExistence ? 0 : -1);
    const auto outputs = ReadAs(getter.asks, found->value);
    if (!outputs) return PackageFailure(getter, -3);
    return {1, *outputs};
}

std::optional<std::wstring> PackageModel::TextOf(const std::wstring& key, int& failure) {
    const auto found = Find(key);
    failure = found == members.end() ? -1 : -3;
    if (found == members.end()) return std::nullopt;
    const auto outputs = ReadAs(Asks::kAnyText, found->value);
    return outputs ? std::optional(outputs->front()) : std::nullopt;
}

support::PackageState PackageModel::State() {
    state.text = Text();
    state.keys = static_cast<uint32_t>(members.size());
    return state;
}

std::vector<PackageModel::Member>::iterator PackageModel::Find(const std::wstring& key) {
    return std::find_if(members.begin(), members.end(), [&](const Member& member) {
        return AreSame(member.name, key, state.ignoreCase == 0);
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

}  // namespace model
