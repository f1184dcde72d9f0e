#include "PackageGetters.h"

#include <cstring>
#include <limits>
#include <optional>

#include "Base64.h"

namespace support {
namespace {

using QXJSON::IJsonPackage;
using QXJSON::JsonVariant;

constexpr Output kAllGiven[] = {Output::kGiven, Output::kGiven};

/// An output variable that tells whether it was written.
template <class Value>
class Variable {
public:
    explicit Variable(Output how) : output(how) { std::memset(bytes, kFill, sizeof bytes); }

    Value* Pass() {
        if (output == Output::kWild) return reinterpret_cast<Value*>(uintptr_t{16});
        return output == Output::kGiven ? reinterpret_cast<Value*>(bytes) : nullptr;
    }
    Value Get() const {
        Value value;
        std::memcpy(static_cast<void*>(&value), bytes, sizeof value);
        return value;
    }
    std::wstring Shown() const {
        if (output != Output::kGiven) return kNotGiven;
        if (!IsWritten()) return kUnwritten;
        if constexpr (std::is_same_v<Value, bool>)
            return Show(uint32_t{bytes[0]});
        else
            return Show(Get());
    }
    bool IsWritten() const {
        for (const unsigned char byte : bytes)
            if (byte != kFill) return true;
        return false;
    }

private:
    static constexpr unsigned char kFill = 0xCD;
    Output output;
    alignas(Value) unsigned char bytes[sizeof(Value)];
};

template <class Value>
PackageGetter Getter(const char* name, PackageAsks asks,
                     int (IJsonPackage::*get)(const wchar_t*, Value*)) {
    return {name, asks, 1, [get](IJsonPackage& package, const wchar_t* key, const Output* outputs) {
                Variable<Value> variable(outputs[0]);
                const int result = (package.*get)(key, variable.Pass());
                return Answer{result, {variable.Shown()}};
            }};
}

Answer AskBlob(IJsonPackage& package, const wchar_t* key, const Output* outputs) {
    Variable<const void*> data(outputs[0]);
    Variable<uint32_t> length(outputs[1]);
    const int result = package.GetValueBlob(key, data.Pass(), length.Pass());
    const std::wstring shown =
        outputs[0] != Output::kGiven ? kNotGiven
        : data.IsWritten() ? ShowBytes(static_cast<const uint8_t*>(data.Get()), length.Get())
                           : kUnwritten;
    return {result, {shown, length.Shown()}};
}

/// The integer as int64, if it is one and fits.
std::optional<int64_t> Signed(const Sample& sample) {
    constexpr auto kHighest = static_cast<uint64_t>(std::numeric_limits<int64_t>::max());
    if (!sample.isInteger || sample.magnitude > kHighest + (sample.isNegative ? 1 : 0)) return {};
    return static_cast<int64_t>(sample.isNegative ? 0 - sample.magnitude : sample.magnitude);
}

/// What a getter writes for a value, nothing where it refuses the value.
std::optional<std::vector<std::wstring>> Accepted(PackageAsks asks, const Sample& sample) {
    using Outputs = std::optional<std::vector<std::wstring>>;
    const auto when = [](bool accepts, std::wstring shown) {
        return accepts ? Outputs({std::move(shown)}) : Outputs();
    };
    const bool isString = sample.kind == Sample::kString;
    const bool isContainer = sample.kind == Sample::kObject || sample.kind == Sample::kArray;
    const std::wstring visible = sample.text.c_str();
    switch (asks) {
        case PackageAsks::kText:
            return when(isString || isContainer, isString ? visible : sample.json);
        case PackageAsks::kString:
            return when(isString, visible);
        case PackageAsks::kNumber:
            return when(sample.kind == Sample::kNumber, Show(sample.real));
        case PackageAsks::kBoolean:
            return when(sample.kind == Sample::kBoolean, sample.flag ? L"1" : L"0");
        case PackageAsks::kVariant:
            if (const auto number = Signed(sample)) return {{L"number " + Show(*number)}};
            [[fallthrough]];
        case PackageAsks::kStringVariant:
            return when(isString, L"text " + visible);
        case PackageAsks::kBlob: {
            const auto bytes = PlatformDecode(visible.c_str());
            if (!isString || !bytes) return {};
            return {{ShowBytes(reinterpret_cast<const uint8_t*>(bytes->data()), bytes->size()),
                     std::to_wstring(bytes->size())}};
        }
        case PackageAsks::kType:
            return when(true, Show(static_cast<uint32_t>(sample.kind)));
        default:
            return when(true, L"1");
    }
}

}  // namespace

Answer PackageGetter::Ask(IJsonPackage& package, const wchar_t* key) const {
    return call(package, key, kAllGiven);
}

const std::vector<PackageGetter>& PackageGetters() {
    using P = IJsonPackage;
    static const std::vector<PackageGetter> getters = {
        Getter("ContainsKey", PackageAsks::kExistence, &P::ContainsKey),
        Getter("GetValue", PackageAsks::kText, &P::GetValue),
        Getter("GetValueString", PackageAsks::kString, &P::GetValueString),
        Getter("GetValueNumber", PackageAsks::kNumber, &P::GetValueNumber),
        Getter("GetValueBoolean", PackageAsks::kBoolean, &P::GetValueBoolean),
        Getter("GetValueVariant", PackageAsks::kStringVariant, &P::GetValueVariant),
        Getter("GetValueVariantAlias", PackageAsks::kStringVariant, &P::GetValueVariantAlias),
        Getter("GetValueVariantEx", PackageAsks::kVariant, &P::GetValueVariantEx),
        {"GetValueBlob", PackageAsks::kBlob, 2, &AskBlob},
        Getter("GetValueType", PackageAsks::kType, &P::GetValueType),
    };
    return getters;
}

Answer PackageAnswerFor(const PackageGetter& getter, const Sample& sample) {
    if (const auto outputs = Accepted(getter.asks, sample)) return {1, *outputs};
    return PackageFailure(getter, -3, kAllGiven);
}

Answer PackageFailure(const PackageGetter& getter, int result, const Output* outputs) {
    Answer answer = {result, {}};
    for (size_t i = 0; i < getter.outputs; ++i) {
        const bool given = outputs[i] == Output::kGiven;
        const std::wstring left = getter.asks == PackageAsks::kText        ? L""
                                  : getter.asks == PackageAsks::kExistence ? L"0"
                                                                           : kUnwritten;
        answer.outputs.push_back(given ? left : kNotGiven);
    }
    return answer;
}

}  // namespace support
