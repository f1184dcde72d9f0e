#include "Operations.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <cwchar>
#include <tuple>
#include <type_traits>
#include <utility>

namespace support {
namespace {

using QXJSON::IJsonParser;
using QXJSON::JsonVariant;

// ---- Parameters: the inputs come first, all that follow are pointers to outputs
// ------------------

template <class Parameter>
constexpr bool kIsInput =
    !std::is_pointer_v<Parameter> || std::is_same_v<Parameter, const wchar_t*> ||
    std::is_same_v<Parameter, const char*>;

template <class... Parameters>
constexpr size_t kInputs = (size_t{0} + ... + (kIsInput<Parameters> ? 1 : 0));

/// Position `I` of the parameters tells a handle from an index and a path from a key.
template <class Parameter, size_t I>
Parameter Input(const Arguments& arguments) {
    if constexpr (std::is_same_v<Parameter, uint64_t>) {
        return arguments.reference;
    } else if constexpr (std::is_same_v<Parameter, uint32_t>) {
        return I == 0 ? arguments.handle : arguments.index;
    } else if constexpr (std::is_same_v<Parameter, const char*>) {
        return arguments.bytes;
    } else {
        return I == 0 ? arguments.path : arguments.key;
    }
}

/// What each byte of an output variable holds before the call, those of its padding too.
constexpr int kUnwrittenByte = 0xCD;

template <class Value>
bool IsUnwritten(const Value& value) {
    char unwritten[sizeof value];
    std::memset(unwritten, kUnwrittenByte, sizeof unwritten);
    return std::memcmp(&value, unwritten, sizeof value) == 0;
}

/// The variable of an output; of an input nothing.
template <class Parameter, bool isInput = kIsInput<Parameter>>
struct Variable {
    using Value = std::remove_pointer_t<Parameter>;
    Value value;

    Variable() { std::memset(static_cast<void*>(&value), kUnwrittenByte, sizeof value); }

    Value* Pass(Output output) {
        if (output == Output::kWild) return reinterpret_cast<Value*>(uintptr_t{16});
        return output == Output::kGiven ? &value : nullptr;
    }
};

template <class Parameter>
struct Variable<Parameter, true> {};

/// What the call gets for parameter `I`.
template <class Parameter, size_t I, size_t kInputCount>
Parameter Pass(const Arguments& arguments, Variable<Parameter>& variable) {
    if constexpr (kIsInput<Parameter>) {
        return Input<Parameter, I>(arguments);
    } else {
        return variable.Pass(arguments.outputs[I - kInputCount]);
    }
}

/// Writes one output out.
template <class Parameter, size_t I, size_t kInputCount>
void Collect(const Arguments& arguments, const Variable<Parameter>& variable, Answer& answer) {
    if constexpr (!kIsInput<Parameter>) {
        if (arguments.outputs[I - kInputCount] != Output::kGiven)
            answer.outputs.push_back(kNotGiven);
        else if (IsUnwritten(variable.value))
            answer.outputs.push_back(kUnwritten);
        else
            answer.outputs.push_back(Show(variable.value));
    }
}

/// A blob that was handed out is shown by its bytes, not by where they are.
template <class... Parameters>
void CollectBlob(const std::tuple<Variable<Parameters>...>& variables, Answer& answer) {
    if constexpr ((std::is_same_v<Parameters, const uint8_t**> || ...)) {
        if (answer.result != 1) return;
        constexpr size_t kData = sizeof...(Parameters) - 2;
        answer.outputs[0] =
            ShowBytes(std::get<kData>(variables).value, std::get<kData + 1>(variables).value);
    }
}

template <class Result, class... Parameters, size_t... I>
Answer Call(IJsonParser& parser, Result (IJsonParser::*function)(Parameters...),
            const Arguments& arguments, std::index_sequence<I...>) {
    [[maybe_unused]] constexpr size_t kInputCount = kInputs<Parameters...>;
    std::tuple<Variable<Parameters>...> variables;
    Answer answer;
    answer.result = static_cast<int>(
        (parser.*function)(Pass<Parameters, I, kInputCount>(arguments, std::get<I>(variables))...));
    (Collect<Parameters, I, kInputCount>(arguments, std::get<I>(variables), answer), ...);
    CollectBlob<Parameters...>(variables, answer);
    return answer;
}

// ---- Descriptions
// ---------------------------------------------------------------------------------

/// The first parameter decides.
template <class... Parameters>
Place PlaceOf() {
    using First = std::tuple_element_t<0, std::tuple<Parameters..., void*>>;
    if (std::is_same_v<First, uint32_t>) return Place::kHandle;
    if (std::is_same_v<First, uint64_t>) return Place::kReference;
    return std::is_same_v<First, const wchar_t*> ? Place::kPath : Place::kNone;
}

/// A pointer to a virtual member function holds the function's offset in the table, plus 1.
template <class Function>
size_t SlotOf(Function function) {
    uintptr_t offset = 0;
    std::memcpy(&offset, &function, sizeof offset);
    return (offset - 1) / sizeof(void*);
}

template <class Second, class... Parameters>
constexpr bool SecondIs() {
    return std::is_same_v<std::tuple_element_t<1, std::tuple<Parameters..., void, void>>, Second>;
}

template <class Result, class... Parameters>
Operation Describe(const char* name, Asks asks, Result (IJsonParser::*function)(Parameters...)) {
    Operation operation;
    operation.name = name;
    operation.asks = asks;
    operation.place = PlaceOf<Parameters...>();
    operation.hasKey = SecondIs<const wchar_t*, Parameters...>();
    operation.hasIndex = SecondIs<uint32_t, Parameters...>();
    operation.outputs = sizeof...(Parameters) - kInputs<Parameters...>;
    operation.returnsBool = std::is_same_v<Result, bool>;
    operation.slot = SlotOf(function);
    operation.call = [function](IJsonParser& parser, const Arguments& arguments) {
        return Call(parser, function, arguments, std::index_sequence_for<Parameters...>());
    };
    return operation;
}

}  // namespace

const std::vector<Operation>& Operations() {
    using P = IJsonParser;
    static const std::vector<Operation> operations = {
        Describe("LoadJsonBytes", Asks::kLoad, &P::LoadJsonBytes),
        Describe("LoadJsonString", Asks::kLoad, &P::LoadJsonString),
        Describe("LoadJsonFile", Asks::kLoad, &P::LoadJsonFile),
        Describe("HasError", Asks::kState, &P::HasError),
        Describe("GetErrorOffset", Asks::kState, &P::GetErrorOffset),
        Describe("GetErrorMessage", Asks::kState, &P::GetErrorMessage),
        Describe("GetRootValue", Asks::kRoot, &P::GetRootValue),
        Describe("GetRootItem", Asks::kRoot, &P::GetRootItem),
        Describe("GetMemberValue", Asks::kMember, &P::GetMemberValue),
        Describe("GetChildValue", Asks::kChild, &P::GetChildValue),
        Describe("GetMemberItemByPath", Asks::kMember, &P::GetMemberItemByPath),
        Describe("GetChildItemByPath", Asks::kChild, &P::GetChildItemByPath),
        Describe("GetMemberItem", Asks::kMember, &P::GetMemberItem),
        Describe("GetChildItem", Asks::kChild, &P::GetChildItem),
        Describe("GetMemberNameOfValue", Asks::kName, &P::GetMemberNameOfValue),
        Describe("GetMemberNameByPath", Asks::kName, &P::GetMemberNameByPath),
        Describe("GetMemberName", Asks::kName, &P::GetMemberName),
        Describe("GetChildCountOfValue", Asks::kCount, &P::GetChildCountOfValue),
        Describe("GetChildCountByPath", Asks::kCount, &P::GetChildCountByPath),
        Describe("GetChildCount", Asks::kCount, &P::GetChildCount),
        Describe("GetValueType", Asks::kValueType, &P::GetValueType),
        Describe("GetItemTypeByPath", Asks::kItemType, &P::GetItemTypeByPath),
        Describe("GetMemberItemType", Asks::kItemType, &P::GetMemberItemType),
        Describe("GetItemType", Asks::kItemType, &P::GetItemType),
        Describe("GetMemberBooleanOfValue", Asks::kBoolean, &P::GetMemberBooleanOfValue),
        Describe("GetValueBoolean", Asks::kBoolean, &P::GetValueBoolean),
        Describe("GetItemBooleanByPath", Asks::kBoolean, &P::GetItemBooleanByPath),
        Describe("GetMemberBoolean", Asks::kBoolean, &P::GetMemberBoolean),
        Describe("GetItemBoolean", Asks::kBoolean, &P::GetItemBoolean),
        Describe("GetMemberDoubleOfValue", Asks::kDouble, &P::GetMemberDoubleOfValue),
        Describe("GetValueDouble", Asks::kDouble, &P::GetValueDouble),
        Describe("GetMemberFloatOfValue", Asks::kFloat, &P::GetMemberFloatOfValue),
        Describe("GetValueFloat", Asks::kFloat, &P::GetValueFloat),
        Describe("GetMemberUInt64OfValue", Asks::kUInt64, &P::GetMemberUInt64OfValue),
        Describe("GetValueUInt64", Asks::kUInt64, &P::GetValueUInt64),
        Describe("GetMemberInt64OfValue", Asks::kInt64, &P::GetMemberInt64OfValue),
        Describe("GetValueInt64", Asks::kInt64, &P::GetValueInt64),
        Describe("GetMemberUIntOfValue", Asks::kUInt, &P::GetMemberUIntOfValue),
        Describe("GetValueUInt", Asks::kUInt, &P::GetValueUInt),
        Describe("GetMemberIntOfValue", Asks::kInt, &P::GetMemberIntOfValue),
        Describe("GetValueInt", Asks::kInt, &P::GetValueInt),
        Describe("GetItemDoubleByPath", Asks::kDouble, &P::GetItemDoubleByPath),
        Describe("GetItemFloatByPath", Asks::kFloat, &P::GetItemFloatByPath),
        Describe("GetItemUInt64ByPath", Asks::kUInt64, &P::GetItemUInt64ByPath),
        Describe("GetItemInt64ByPath", Asks::kInt64, &P::GetItemInt64ByPath),
        Describe("GetItemUIntByPath", Asks::kUInt, &P::GetItemUIntByPath),
        Describe("GetItemIntByPath", Asks::kInt, &P::GetItemIntByPath),
        Describe("GetMemberDouble", Asks::kDouble, &P::GetMemberDouble),
        Describe("GetItemDouble", Asks::kDouble, &P::GetItemDouble),
        Describe("GetMemberFloat", Asks::kFloat, &P::GetMemberFloat),
        Describe("GetItemFloat", Asks::kFloat, &P::GetItemFloat),
        Describe("GetMemberUInt64", Asks::kUInt64, &P::GetMemberUInt64),
        Describe("GetItemUInt64", Asks::kUInt64, &P::GetItemUInt64),
        Describe("GetMemberInt64", Asks::kInt64, &P::GetMemberInt64),
        Describe("GetItemInt64", Asks::kInt64, &P::GetItemInt64),
        Describe("GetMemberUInt", Asks::kUInt, &P::GetMemberUInt),
        Describe("GetItemUInt", Asks::kUInt, &P::GetItemUInt),
        Describe("GetMemberInt", Asks::kInt, &P::GetMemberInt),
        Describe("GetItemInt", Asks::kInt, &P::GetItemInt),
        Describe("GetMemberBlobOfValue", Asks::kBlob, &P::GetMemberBlobOfValue),
        Describe("GetValueBlob", Asks::kBlob, &P::GetValueBlob),
        Describe("GetItemBlobByPath", Asks::kBlob, &P::GetItemBlobByPath),
        Describe("GetMemberBlob", Asks::kBlob, &P::GetMemberBlob),
        Describe("GetItemBlob", Asks::kBlob, &P::GetItemBlob),
        Describe("GetMemberStringOfValue", Asks::kString, &P::GetMemberStringOfValue),
        Describe("GetValueString", Asks::kString, &P::GetValueString),
        Describe("GetItemStringByPath", Asks::kString, &P::GetItemStringByPath),
        Describe("GetMemberString", Asks::kString, &P::GetMemberString),
        Describe("GetItemString", Asks::kString, &P::GetItemString),
        Describe("GetMemberObjectValue", Asks::kObject, &P::GetMemberObjectValue),
        Describe("GetObjectItemByPath", Asks::kObject, &P::GetObjectItemByPath),
        Describe("GetMemberObjectItem", Asks::kObject, &P::GetMemberObjectItem),
        Describe("GetMemberArrayValue", Asks::kArray, &P::GetMemberArrayValue),
        Describe("GetArrayItemByPath", Asks::kArray, &P::GetArrayItemByPath),
        Describe("GetMemberArrayItem", Asks::kArray, &P::GetMemberArrayItem),
        Describe("GetItemByPath", Asks::kItem, &P::GetItemByPath),
        Describe("GetObjectJsonByPath", Asks::kObjectText, &P::GetObjectJsonByPath),
        Describe("GetObjectJson", Asks::kObjectText, &P::GetObjectJson),
        Describe("GetMemberObjectJson", Asks::kObjectText, &P::GetMemberObjectJson),
        Describe("GetArrayJsonByPath", Asks::kArrayText, &P::GetArrayJsonByPath),
        Describe("GetArrayJson", Asks::kArrayText, &P::GetArrayJson),
        Describe("GetMemberArrayJson", Asks::kArrayText, &P::GetMemberArrayJson),
        Describe("GetNumberClassByPath", Asks::kNumberClass, &P::GetNumberClassByPath),
        Describe("GetMemberNumberClass", Asks::kNumberClass, &P::GetMemberNumberClass),
        Describe("GetNumberClass", Asks::kNumberClass, &P::GetNumberClass),
        Describe("ExistsItemByPath", Asks::kExistence, &P::ExistsItemByPath),
        Describe("ExistsMember", Asks::kExistence, &P::ExistsMember),
        Describe("ExistsMemberByPath", Asks::kExistence, &P::ExistsMemberByPath),
        Describe("GetVariantOfValue", Asks::kVariant, &P::GetVariantOfValue),
        Describe("GetItemVariant", Asks::kVariant, &P::GetItemVariant),
        Describe("Release", Asks::kRelease, &P::Release),
    };
    return operations;
}

const Operation& OperationNamed(const std::string& name) {
    const auto& all = Operations();
    return *std::find_if(all.begin(), all.end(), [&](const auto& o) { return o.name == name; });
}

std::vector<Operation> ReadingOperations() {
    std::vector<Operation> reading;
    for (const Operation& operation : Operations())
        if (operation.asks != Asks::kLoad && operation.place != Place::kNone)
            reading.push_back(operation);
    return reading;
}

// ---- Answers
// --------------------------------------------------------------------------------------

bool operator==(const Answer& a, const Answer& b) {
    return a.result == b.result && a.outputs == b.outputs;
}

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    out << answer.result;
    for (const std::wstring& output : answer.outputs) {
        out << " [";
        for (const wchar_t c : output.substr(0, 200)) {
            if (c >= 0x20 && c < 0x7F)
                out << static_cast<char>(c);
            else
                out << "\\x" << std::hex << static_cast<unsigned>(c) << std::dec << ' ';
        }
        out << ']';
    }
    return out;
}

std::wstring Show(uint32_t number) { return std::to_wstring(number); }
std::wstring Show(int32_t number) { return std::to_wstring(number); }
std::wstring Show(uint64_t number) { return std::to_wstring(number); }
std::wstring Show(int64_t number) { return std::to_wstring(number); }
std::wstring Show(float number) { return Show(static_cast<double>(number)); }
std::wstring Show(const wchar_t* text) { return text ? text : L"null"; }

std::wstring Show(double number) {
    if (std::isnan(number)) return L"NaN";
    if (std::isinf(number)) return number > 0 ? L"Infinity" : L"-Infinity";
    wchar_t text[64] = {};
    std::swprintf(text, sizeof text / sizeof *text, L"%.17g", number);
    return text;
}

std::wstring Show(const uint8_t* address) {
    return Show(static_cast<uint64_t>(reinterpret_cast<uintptr_t>(address)));
}

std::wstring Show(const JsonVariant& variant) {
    switch (variant.tag) {
        case QXJSON::kVariantText:
            return std::wstring(L"text ") + variant.text;
        case QXJSON::kVariantInt64:
            return L"number " + Show(variant.number);
        default:
            return L"tag " + std::to_wstring(variant.tag);
    }
}

std::wstring ShowBytes(const uint8_t* data, size_t size) { return std::wstring(data, data + size); }

}  // namespace support
