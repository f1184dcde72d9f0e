#include "Samples.h"

#include <cmath>
#include <limits>
#include <optional>

#include "Base64.h"

namespace support {
namespace {

using Outputs = std::optional<std::vector<std::wstring>>;  // nothing: the getter refuses the value

Sample Integer(bool isNegative, uint64_t magnitude) {
    Sample sample;
    sample.json = (isNegative ? L"-" : L"") + std::to_wstring(magnitude);
    sample.kind = Sample::kNumber;
    sample.isInteger = true;
    sample.isNegative = isNegative;
    sample.magnitude = magnitude;
    const auto distance = static_cast<double>(magnitude);
    sample.real = isNegative ? -distance : distance;
    return sample;
}

Sample Real(const wchar_t* json, double value) {
    Sample sample;
    sample.json = json;
    sample.kind = Sample::kNumber;
    sample.real = value;
    return sample;
}

Sample Text(const wchar_t* json, std::wstring text) {
    Sample sample;
    sample.json = json;
    sample.kind = Sample::kString;
    sample.text = std::move(text);
    return sample;
}

Sample Plain(const wchar_t* json, Sample::Kind kind, bool flag = false) {
    Sample sample;
    sample.json = json;
    sample.kind = kind;
    sample.flag = flag;
    return sample;
}

Sample Object(const wchar_t* json, std::vector<std::wstring> names) {
    Sample sample = Plain(json, Sample::kObject);
    sample.count = static_cast<uint32_t>(names.size());
    sample.names = std::move(names);
    return sample;
}

Sample Array(const wchar_t* json, uint32_t count) {
    Sample sample = Plain(json, Sample::kArray);
    sample.count = count;
    return sample;
}

/// The integer as an Int, if it is one and fits.
template <class Int>
std::optional<Int> As(const Sample& sample) {
    constexpr auto kLowest = static_cast<uint64_t>(std::numeric_limits<Int>::min());
    constexpr auto kHighest = static_cast<uint64_t>(std::numeric_limits<Int>::max());
    const uint64_t limit = sample.isNegative ? 0 - kLowest : kHighest;
    if (!sample.isInteger || sample.magnitude > limit) return {};
    return static_cast<Int>(sample.isNegative ? 0 - sample.magnitude : sample.magnitude);
}

template <class Value>
Outputs Shown(const std::optional<Value>& value) {
    if (!value) return {};
    return std::vector<std::wstring>{Show(*value)};
}

Outputs When(bool accepts, std::wstring shown) {
    if (!accepts) return {};
    return std::vector<std::wstring>{std::move(shown)};
}

uint32_t ValueTypeOf(const Sample& sample) {
    if (sample.kind != Sample::kNumber) return sample.kind;
    if (As<int32_t>(sample)) return 6;
    if (As<uint32_t>(sample)) return 7;
    if (As<int64_t>(sample)) return 8;
    return As<uint64_t>(sample) ? 9 : 11;
}

uint32_t NumberClassOf(const Sample& sample) {
    if (std::isnan(sample.real)) return 1;
    if (!std::isinf(sample.real)) return 0;
    return sample.real > 0 ? 2 : 3;
}

/// The characters that a reader of zero-terminated text sees.
std::wstring Visible(const Sample& sample) { return sample.text.c_str(); }

Outputs BlobOf(const Sample& sample) {
    if (sample.kind != Sample::kString) return {};
    const std::optional<std::string> bytes = PlatformDecode(sample.text.c_str());
    if (!bytes) return {};
    return {{ShowBytes(bytes->data(), bytes->size()), std::to_wstring(bytes->size())}};
}

Outputs VariantOf(const Sample& sample) {
    if (sample.kind == Sample::kString) return {{L"text " + Visible(sample)}};
    const std::optional<int64_t> number = As<int64_t>(sample);
    return When(number.has_value(), L"number " + Show(number.value_or(0)));
}

/// Where the value is, as `operation` returns it, with its type.
Outputs PlaceAndType(const Operation& operation, const Sample& sample, const Site& site) {
    if (operation.naming == NamedBy::kReference)
        return {{Show(site.reference), Show(ValueTypeOf(sample))}};
    return {{Show(site.handle), Show(static_cast<uint32_t>(sample.kind))}};
}

bool IsContainer(const Sample& sample) {
    return sample.kind == Sample::kObject || sample.kind == Sample::kArray;
}

/// The rule table: what each getter makes of a value.
Outputs Accepted(const Operation& operation, const Sample& sample, const Site& site) {
    const bool isNumber = sample.kind == Sample::kNumber;
    switch (operation.asks) {
        case Asks::kBoolean:
            return When(sample.kind == Sample::kBoolean, sample.flag ? L"1" : L"0");
        case Asks::kInt:
            return Shown(As<int32_t>(sample));
        case Asks::kUInt:
            return Shown(As<uint32_t>(sample));
        case Asks::kInt64:
            return Shown(As<int64_t>(sample));
        case Asks::kUInt64:
            return Shown(As<uint64_t>(sample));
        case Asks::kDouble:
            return When(isNumber, Show(sample.real));
        case Asks::kFloat:
            return When(isNumber, Show(static_cast<float>(sample.real)));
        case Asks::kNumberClass:
            return When(isNumber, Show(NumberClassOf(sample)));
        case Asks::kString:
            return When(sample.kind == Sample::kString, Visible(sample));
        case Asks::kBlob:
            return BlobOf(sample);
        case Asks::kVariant:
            return VariantOf(sample);
        case Asks::kTextVariant:
            return When(sample.kind == Sample::kString, L"text " + Visible(sample));
        case Asks::kAnyText:
            return IsContainer(sample) ? Outputs({sample.json})
                                       : When(sample.kind == Sample::kString, Visible(sample));
        case Asks::kValueType:
            return {{Show(ValueTypeOf(sample))}};
        case Asks::kItemType:
            return {{Show(static_cast<uint32_t>(sample.kind))}};
        case Asks::kItem:
            return {{Show(site.handle)}};
        case Asks::kMember:
            return PlaceAndType(operation, sample, site);
        case Asks::kCount:
            return When(IsContainer(sample), Show(sample.count));
        case Asks::kObjectText:
            return When(sample.kind == Sample::kObject, sample.json);
        case Asks::kArrayText:
            return When(sample.kind == Sample::kArray, sample.json);
        case Asks::kObject:
            return sample.kind == Sample::kObject ? PlaceAndType(operation, sample, site)
                                                  : Outputs();
        case Asks::kArray:
            return sample.kind == Sample::kArray ? PlaceAndType(operation, sample, site)
                                                 : Outputs();
        default:
            return std::vector<std::wstring>();
    }
}

/// What a getter returns that does not take the value.
int RefusalOf(Asks asks) {
    const bool answersZero = asks == Asks::kObject || asks == Asks::kArray ||
                             asks == Asks::kObjectText || asks == Asks::kArrayText;
    return answersZero ? 0 : -3;
}

}  // namespace

const std::vector<Sample>& Samples() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    static const std::vector<Sample> samples = {
        Plain(L"null", Sample::kNull),
        Plain(L"true", Sample::kBoolean, true),
        Plain(L"false", Sample::kBoolean, false),
        Integer(false, 0),
        Integer(false, 1),
        Integer(true, 1),
        Integer(false, 0x7FFFFFFF),
        Integer(false, 0x80000000),
        Integer(true, 0x80000000),
        Integer(true, 0x80000001),
        Integer(false, 0xFFFFFFFF),
        Integer(false, 0x100000000),
        Integer(true, 0xFFFFFFFF),
        Integer(false, 3000000000),
        Integer(true, 3000000000),
        // Converted to float directly it would round to another value than by way of double.
        Integer(false, 9007199791611905),
        Integer(false, 0x7FFFFFFFFFFFFFFF),
        Integer(false, 0x8000000000000000),
        Integer(true, 0x8000000000000000),
        Integer(false, 0xFFFFFFFFFFFFFFFF),
        Real(L"18446744073709551616.0", 18446744073709551616.0),
        Real(L"-9223372036854777856.0", -9223372036854777856.0),
        Real(L"0.0", 0.0),
        Real(L"-0.0", -0.0),
        Real(L"5.0", 5.0),
        Real(L"1.5", 1.5),
        Real(L"-1.5", -1.5),
        Real(L"0.1", 0.1),
        Real(L"1e300", 1e300),
        Real(L"-1e300", -1e300),
        Real(L"1e-300", 1e-300),
        Real(L"NaN", std::numeric_limits<double>::quiet_NaN()),
        Real(L"Infinity", kInfinity),
        Real(L"-Infinity", -kInfinity),
        Text(L"\"\"", L""),
        Text(L"\"QUJD\"", L"QUJD"),
        Text(L"\"QUI=\"", L"QUI="),
        Text(L"\"true\"", L"true"),
        Text(L"\"12\"", L"12"),
        Text(L"\"?*!\"", L"?*!"),
        Text(L"\"a\\u0000b\"", std::wstring(L"a\0b", 3)),
        Text(L"\"\\u0000\"", std::wstring(1, L'\0')),
        Text(L"\"\\\"\\\\/\\b\\f\\n\\r\\t\\u001F\"", L"\"\\/\b\f\n\r\t\x1F"),
        Text(L"\"\x00E9\x4E2D\x212A\"", L"\x00E9\x4E2D\x212A"),
        Text(L"\"\xD83D\xDE00\"", L"\xD83D\xDE00"),
        Object(L"{}", {}),
        Object(L"{\"b\":1,\"a\":{}}", {L"b", L"a"}),
        Object(L"{\"\":null}", {L""}),
        Array(L"[]", 0),
        Array(L"[null]", 1),
        Array(L"[1,[2,3],\"x\"]", 3),
    };
    return samples;
}

Answer ExpectedAnswer(const Operation& operation, const Sample& sample, const Site& site,
                      const Answer& child) {
    if (operation.hasIndex) {
        const bool names = operation.asks == Asks::kName;
        const bool takes = names ? sample.kind == Sample::kObject : IsContainer(sample);
        if (!takes) return -3;
        if (sample.count == 0) return 0;
        return names ? Answer{1, {sample.names[0]}} : child;
    }
    if (const Outputs outputs = Accepted(operation, sample, site)) return {1, *outputs};
    return RefusalOf(operation.asks);
}

}  // namespace support
