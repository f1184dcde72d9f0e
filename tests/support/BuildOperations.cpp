#include "BuildOperations.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <utility>

namespace building {
namespace {

using Generator = QXJSON::IJsonGenerator;
using QXJSON::JsonVariant;

/// A kind has either no payload, one parameter or, as the blobs, two. A key comes second.
template <class Parameter, size_t I>
Parameter Input(const Arguments& arguments, bool takesKey) {
    const Payload& payload = arguments.payload;
    if constexpr (std::is_same_v<Parameter, const wchar_t*>) {
        if (I == 0) return arguments.path;
        return I == 1 && takesKey ? arguments.key : payload.text;
    } else if constexpr (std::is_same_v<Parameter, uint64_t>) {
        return I == 0 ? arguments.reference : payload.uint64;
    } else if constexpr (std::is_same_v<Parameter, int32_t>) {
        return I == 0 ? arguments.handle : payload.int32;
    } else if constexpr (std::is_same_v<Parameter, uint32_t>) {
        return payload.word;
    } else if constexpr (std::is_same_v<Parameter, int64_t>) {
        return payload.int64;
    } else if constexpr (std::is_same_v<Parameter, double>) {
        return payload.real;
    } else if constexpr (std::is_same_v<Parameter, float>) {
        return payload.single;
    } else if constexpr (std::is_same_v<Parameter, const uint8_t*>) {
        return payload.bytes;
    } else {
        return payload.variant;
    }
}

template <class Handed>
Handed* Pass(Output output, Handed& variable) {
    if (output == Output::kWild) return reinterpret_cast<Handed*>(uintptr_t{16});
    return output == Output::kGiven ? &variable : nullptr;
}

template <class... Parameters, size_t... I>
Answer Call(Generator& generator, int (Generator::*function)(Parameters...),
            const Arguments& arguments, bool takesKey, std::index_sequence<I...>) {
    using All = std::tuple<Parameters...>;
    using Handed = std::remove_pointer_t<std::tuple_element_t<sizeof...(I), All>>;
    constexpr Handed kUnwritten = static_cast<Handed>(0xCDCDCDCDCDCDCDCDu);
    Handed handed = kUnwritten;
    Answer answer;
    answer.result =
        (generator.*function)(Input<std::tuple_element_t<I, All>, I>(arguments, takesKey)...,
                              Pass(arguments.output, handed));
    if (handed != kUnwritten) answer.output = handed;
    return answer;
}

template <class Parent>
constexpr Family kFamilyOf = std::is_same_v<Parent, uint64_t>  ? Family::kReference
                             : std::is_same_v<Parent, int32_t> ? Family::kHandle
                                                               : Family::kPath;

/// A pointer to a virtual member function holds the function's offset in the table, plus 1.
template <class Function>
size_t SlotOf(Function function) {
    uintptr_t offset = 0;
    std::memcpy(&offset, &function, sizeof offset);
    return (offset - 1) / sizeof(void*);
}

bool StartsWith(const std::string& text, const char* start) { return text.rfind(start, 0) == 0; }

template <class Parent, class... Rest>
Operation Describe(const std::string& name, Kind kind, int (Generator::*function)(Parent, Rest...),
                   bool keyed) {
    const bool takesKey = keyed || kind == Kind::kVariant;
    Operation operation;
    operation.name = name;
    operation.kind = kind;
    operation.family = kFamilyOf<Parent>;
    operation.keyed = keyed;
    operation.slot = SlotOf(function);
    operation.call = [=](Generator& generator, const Arguments& given) {
        Arguments arguments = given;
        if (!keyed) arguments.key = nullptr;
        return Call(generator, function, arguments, takesKey,
                    std::make_index_sequence<sizeof...(Rest)>());
    };
    return operation;
}

class Table {
public:
    template <class Function>
    Table& Add(const std::string& name, Kind kind, Function function) {
        if (kind == Kind::kVariant) {
            operations.push_back(Describe(name + " with a key", kind, function, true));
            operations.push_back(Describe(name + " without a key", kind, function, false));
        } else {
            operations.push_back(Describe(name, kind, function, StartsWith(name, "AddObject")));
        }
        return *this;
    }

    std::vector<Operation> operations;
};

void AddContainers(Table& table) {
    using G = Generator;
    table.Add("AddObjectValueObject", Kind::kObject, &G::AddObjectValueObject)
        .Add("AddArrayValueObject", Kind::kObject, &G::AddArrayValueObject)
        .Add("AddObjectItemObjectByPath", Kind::kObject, &G::AddObjectItemObjectByPath)
        .Add("AddArrayItemObjectByPath", Kind::kObject, &G::AddArrayItemObjectByPath)
        .Add("AddObjectItemObject", Kind::kObject, &G::AddObjectItemObject)
        .Add("AddArrayItemObject", Kind::kObject, &G::AddArrayItemObject)
        .Add("AddObjectValueArray", Kind::kArray, &G::AddObjectValueArray)
        .Add("AddArrayValueArray", Kind::kArray, &G::AddArrayValueArray)
        .Add("AddObjectItemArrayByPath", Kind::kArray, &G::AddObjectItemArrayByPath)
        .Add("AddArrayItemArrayByPath", Kind::kArray, &G::AddArrayItemArrayByPath)
        .Add("AddObjectItemArray", Kind::kArray, &G::AddObjectItemArray)
        .Add("AddArrayItemArray", Kind::kArray, &G::AddArrayItemArray);
}

void AddBooleans(Table& table) {
    using G = Generator;
    table.Add("AddObjectValueBoolean", Kind::kBoolean, &G::AddObjectValueBoolean)
        .Add("AddArrayValueBoolean", Kind::kBoolean, &G::AddArrayValueBoolean)
        .Add("AddObjectItemBooleanByPath", Kind::kBoolean, &G::AddObjectItemBooleanByPath)
        .Add("AddArrayItemBooleanByPath", Kind::kBoolean, &G::AddArrayItemBooleanByPath)
        .Add("AddObjectItemBoolean", Kind::kBoolean, &G::AddObjectItemBoolean)
        .Add("AddArrayItemBoolean", Kind::kBoolean, &G::AddArrayItemBoolean);
}

void AddNumbersByReference(Table& table) {
    using G = Generator;
    table.Add("AddObjectValueDouble", Kind::kDouble, &G::AddObjectValueDouble)
        .Add("AddArrayValueDouble", Kind::kDouble, &G::AddArrayValueDouble)
        .Add("AddObjectValueFloat", Kind::kFloat, &G::AddObjectValueFloat)
        .Add("AddArrayValueFloat", Kind::kFloat, &G::AddArrayValueFloat)
        .Add("AddObjectValueUInt64", Kind::kUInt64, &G::AddObjectValueUInt64)
        .Add("AddArrayValueUInt64", Kind::kUInt64, &G::AddArrayValueUInt64)
        .Add("AddObjectValueInt64", Kind::kInt64, &G::AddObjectValueInt64)
        .Add("AddArrayValueInt64", Kind::kInt64, &G::AddArrayValueInt64)
        .Add("AddObjectValueUInt", Kind::kUInt, &G::AddObjectValueUInt)
        .Add("AddArrayValueUInt", Kind::kUInt, &G::AddArrayValueUInt)
        .Add("AddObjectValueInt", Kind::kInt, &G::AddObjectValueInt)
        .Add("AddArrayValueInt", Kind::kInt, &G::AddArrayValueInt);
}

void AddSpecialNumbers(Table& table) {
    constexpr Kind kKind = Kind::kSpecialNumber;
    using G = Generator;
    table.Add("AddObjectItemSpecialNumberByPath", kKind, &G::AddObjectItemSpecialNumberByPath)
        .Add("AddArrayItemSpecialNumberByPath", kKind, &G::AddArrayItemSpecialNumberByPath)
        .Add("AddObjectItemSpecialNumber", kKind, &G::AddObjectItemSpecialNumber)
        .Add("AddArrayItemSpecialNumber", kKind, &G::AddArrayItemSpecialNumber);
}

void AddNumbersByPath(Table& table) {
    using G = Generator;
    table.Add("AddObjectItemDoubleByPath", Kind::kDouble, &G::AddObjectItemDoubleByPath)
        .Add("AddArrayItemDoubleByPath", Kind::kDouble, &G::AddArrayItemDoubleByPath)
        .Add("AddObjectItemFloatByPath", Kind::kFloat, &G::AddObjectItemFloatByPath)
        .Add("AddArrayItemFloatByPath", Kind::kFloat, &G::AddArrayItemFloatByPath)
        .Add("AddObjectItemUInt64ByPath", Kind::kUInt64, &G::AddObjectItemUInt64ByPath)
        .Add("AddArrayItemUInt64ByPath", Kind::kUInt64, &G::AddArrayItemUInt64ByPath)
        .Add("AddObjectItemInt64ByPath", Kind::kInt64, &G::AddObjectItemInt64ByPath)
        .Add("AddArrayItemInt64ByPath", Kind::kInt64, &G::AddArrayItemInt64ByPath)
        .Add("AddObjectItemUIntByPath", Kind::kUInt, &G::AddObjectItemUIntByPath)
        .Add("AddArrayItemUIntByPath", Kind::kUInt, &G::AddArrayItemUIntByPath)
        .Add("AddObjectItemIntByPath", Kind::kInt, &G::AddObjectItemIntByPath)
        .Add("AddArrayItemIntByPath", Kind::kInt, &G::AddArrayItemIntByPath);
}

void AddNumbersByHandle(Table& table) {
    using G = Generator;
    table.Add("AddObjectItemDouble", Kind::kDouble, &G::AddObjectItemDouble)
        .Add("AddArrayItemDouble", Kind::kDouble, &G::AddArrayItemDouble)
        .Add("AddObjectItemFloat", Kind::kFloat, &G::AddObjectItemFloat)
        .Add("AddArrayItemFloat", Kind::kFloat, &G::AddArrayItemFloat)
        .Add("AddObjectItemUInt64", Kind::kUInt64, &G::AddObjectItemUInt64)
        .Add("AddArrayItemUInt64", Kind::kUInt64, &G::AddArrayItemUInt64)
        .Add("AddObjectItemInt64", Kind::kInt64, &G::AddObjectItemInt64)
        .Add("AddArrayItemInt64", Kind::kInt64, &G::AddArrayItemInt64)
        .Add("AddObjectItemUInt", Kind::kUInt, &G::AddObjectItemUInt)
        .Add("AddArrayItemUInt", Kind::kUInt, &G::AddArrayItemUInt)
        .Add("AddObjectItemInt", Kind::kInt, &G::AddObjectItemInt)
        .Add("AddArrayItemInt", Kind::kInt, &G::AddArrayItemInt);
}

void AddTexts(Table& table) {
    using G = Generator;
    table.Add("AddObjectValueBlob", Kind::kBlob, &G::AddObjectValueBlob)
        .Add("AddArrayValueBlob", Kind::kBlob, &G::AddArrayValueBlob)
        .Add("AddObjectItemBlobByPath", Kind::kBlob, &G::AddObjectItemBlobByPath)
        .Add("AddArrayItemBlobByPath", Kind::kBlob, &G::AddArrayItemBlobByPath)
        .Add("AddObjectItemBlob", Kind::kBlob, &G::AddObjectItemBlob)
        .Add("AddArrayItemBlob", Kind::kBlob, &G::AddArrayItemBlob)
        .Add("AddObjectValueString", Kind::kString, &G::AddObjectValueString)
        .Add("AddArrayValueString", Kind::kString, &G::AddArrayValueString)
        .Add("AddObjectItemStringByPath", Kind::kString, &G::AddObjectItemStringByPath)
        .Add("AddArrayItemStringByPath", Kind::kString, &G::AddArrayItemStringByPath)
        .Add("AddObjectItemString", Kind::kString, &G::AddObjectItemString)
        .Add("AddArrayItemString", Kind::kString, &G::AddArrayItemString);
}

void AddNullsAndVariants(Table& table) {
    using G = Generator;
    table.Add("AddObjectValueNull", Kind::kNull, &G::AddObjectValueNull)
        .Add("AddArrayValueNull", Kind::kNull, &G::AddArrayValueNull)
        .Add("AddObjectItemNullByPath", Kind::kNull, &G::AddObjectItemNullByPath)
        .Add("AddArrayItemNullByPath", Kind::kNull, &G::AddArrayItemNullByPath)
        .Add("AddObjectItemNull", Kind::kNull, &G::AddObjectItemNull)
        .Add("AddArrayItemNull", Kind::kNull, &G::AddArrayItemNull)
        .Add("AddValueVariant", Kind::kVariant, &G::AddValueVariant)
        .Add("AddItemVariantByPath", Kind::kVariant, &G::AddItemVariantByPath)
        .Add("AddItemVariant", Kind::kVariant, &G::AddItemVariant);
}

std::vector<Operation> AllOperations() {
    Table table;
    AddContainers(table);
    AddBooleans(table);
    AddNumbersByReference(table);
    AddSpecialNumbers(table);
    AddNumbersByPath(table);
    AddNumbersByHandle(table);
    AddTexts(table);
    AddNullsAndVariants(table);
    return table.operations;
}

}  // namespace

bool operator==(const Answer& a, const Answer& b) {
    return a.result == b.result && a.output == b.output;
}

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    out << "result " << answer.result << ", output ";
    if (!answer.output) return out << "not written";
    return out << *answer.output;
}

const std::vector<Operation>& Operations() {
    static const std::vector<Operation> operations = AllOperations();
    return operations;
}

const Operation& OperationFor(Kind kind, Family family, bool keyed) {
    const auto found =
        std::find_if(Operations().begin(), Operations().end(), [&](const Operation& operation) {
            return operation.kind == kind && operation.family == family && operation.keyed == keyed;
        });
    if (found == Operations().end()) throw std::invalid_argument("no such operation");
    return *found;
}

}  // namespace building
