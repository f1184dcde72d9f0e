#include "Readings.h"

#include <algorithm>
#include <cmath>

#include "Base64.h"

namespace model {
namespace {

using support::Asks;
using support::Show;

std::optional<Outputs> When(bool accepts, std::wstring shown) {
    if (!accepts) return std::nullopt;
    return Outputs{std::move(shown)};
}

uint32_t NumberClassOf(const Value& value) {
    if (!value.IsDouble()) return 0;
    const double number = value.GetDouble();
    if (std::isnan(number)) return 1;
    return std::isfinite(number) ? 0 : number > 0 ? 2 : 3;
}

std::optional<Outputs> ReadNumber(Asks asks, const Value& value) {
    switch (asks) {
        case Asks::kDouble:
            return When(true, Show(value.GetDouble()));
        case Asks::kFloat:
            return When(true, Show(static_cast<float>(value.GetDouble())));
        case Asks::kUInt64:
            return When(value.IsUint64(), Show(value.GetUint64()));
        case Asks::kInt64:
            return When(value.IsInt64(), Show(value.GetInt64()));
        case Asks::kUInt:
            return When(value.IsUint(), Show(value.GetUint()));
        case Asks::kInt:
            return When(value.IsInt(), Show(value.GetInt()));
        case Asks::kVariant:
            return When(value.IsInt64(), L"number " + Show(value.GetInt64()));
        case Asks::kNumberClass:
            return When(true, Show(NumberClassOf(value)));
        default:
            return std::nullopt;
    }
}

/// Texts are seen as far as their first zero.
std::optional<Outputs> ReadString(Asks asks, const Value& value) {
    const std::wstring visible = value.GetString();
    if (asks == Asks::kString) return Outputs{visible};
    if (asks == Asks::kVariant) return Outputs{L"text " + visible};
    if (asks != Asks::kBlob) return std::nullopt;
    const auto bytes = support::PlatformDecode(visible.c_str());
    if (!bytes) return std::nullopt;
    const auto* data = reinterpret_cast<const uint8_t*>(bytes->data());
    return Outputs{support::ShowBytes(data, bytes->size()), std::to_wstring(bytes->size())};
}

}  // namespace

uint32_t ItemTypeOf(const Value& value) {
    if (value.IsString()) return 0;
    if (value.IsNumber()) return 1;
    if (value.IsBool()) return 2;
    if (value.IsNull()) return 3;
    return value.IsObject() ? 4 : 5;
}

uint32_t ValueTypeOf(const Value& value) {
    if (value.IsInt()) return 6;
    if (value.IsUint()) return 7;
    if (value.IsInt64()) return 8;
    if (value.IsUint64()) return 9;
    return value.IsDouble() ? 11 : ItemTypeOf(value);
}

std::optional<Outputs> Read(Asks asks, const Value& value) {
    switch (asks) {
        case Asks::kCount:
            if (value.IsObject()) return Outputs{Show(value.MemberCount())};
            return value.IsArray() ? When(true, Show(value.Size())) : std::nullopt;
        case Asks::kValueType:
            return Outputs{Show(ValueTypeOf(value))};
        case Asks::kItemType:
            return Outputs{Show(ItemTypeOf(value))};
        case Asks::kBoolean:
            return When(value.IsBool(), value.IsTrue() ? L"1" : L"0");
        case Asks::kObjectText:
            return When(value.IsObject(), building::TextOf(value));
        case Asks::kArrayText:
            return When(value.IsArray(), building::TextOf(value));
        default:
            if (value.IsNumber()) return ReadNumber(asks, value);
            return value.IsString() ? ReadString(asks, value) : std::nullopt;
    }
}

std::wstring_view CharactersOf(const Value& string) {
    return {string.GetString(), string.GetStringLength()};
}

bool AreSame(std::wstring_view a, std::wstring_view b, bool exactly) {
    if (exactly) return a == b;
    const auto lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? c + 32 : c + 0; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](wchar_t one, wchar_t other) { return lower(one) == lower(other); });
}

}  // namespace model
