#pragma once

// Makes an Operation of a member function. Only the lists include this.

#include <array>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

#include "IJsonPackage.h"
#include "Operation.h"

namespace support::describe {

using namespace parameters;

// ---- Kinds -------------------------------------------------------------------------------------

/// The kind of a parameter that names a value, which its type and position tell.
template <class Type>
constexpr Parameter NameKind(size_t position) {
    if (std::is_same_v<Type, uint64_t>) return kReference;
    if (std::is_same_v<Type, const wchar_t*>) return position == 0 ? kPath : kKey;
    return position == 0 ? kHandle : kIndex;
}

/// The kinds of all parameters: of those in front, which name a value, and the rest as given.
template <class... Types, Parameter... kRest>
constexpr auto KindsOf(std::integer_sequence<Parameter, kRest...>) {
    constexpr size_t kNames = sizeof...(Types) - sizeof...(kRest);
    std::array<Parameter, sizeof...(Types) + 1> kinds = {};
    size_t position = 0;
    ((kinds[position] = NameKind<Types>(position), ++position), ...);
    position = kNames;
    ((kinds[position++] = kRest), ...);
    return kinds;
}

/// How many outputs, or how many parameters that are passed on, stand before a parameter.
template <class Kinds>
constexpr size_t NthOf(const Kinds& kinds, size_t end) {
    size_t count = 0;
    for (size_t i = 0; i < end; ++i)
        if (IsOutput(kinds[end]) ? IsOutput(kinds[i]) : kinds[i] == kPassedOn) ++count;
    return count;
}

// ---- Inputs ------------------------------------------------------------------------------------

template <class Type>
Type NumberIn(const Payload& payload) {
    if constexpr (std::is_same_v<Type, bool>)
        return payload.word != 0;
    else if constexpr (std::is_same_v<Type, uint32_t>)
        return payload.word;
    else if constexpr (std::is_same_v<Type, int32_t>)
        return payload.int32;
    else if constexpr (std::is_same_v<Type, uint64_t>)
        return payload.uint64;
    else if constexpr (std::is_same_v<Type, int64_t>)
        return payload.int64;
    else if constexpr (std::is_same_v<Type, float>)
        return payload.single;
    else
        return payload.real;
}

template <class Record>
Record RecordIn(const Arguments& arguments) {
    if (arguments.record) return reinterpret_cast<Record>(*arguments.record);
    return &arguments.payload.variant;
}

/// A parameter of a call: what it is given, and what was written to it.
template <Parameter kKind, class Type, size_t kNth, bool isOutput = IsOutput(kKind)>
struct Slot {
    static constexpr bool kIsOutput = false;

    static Type Pass(const Arguments& arguments) {
        const Payload& payload = arguments.payload;
        if constexpr (kKind == kHandle)
            return static_cast<Type>(arguments.handle);
        else if constexpr (kKind == kReference)
            return arguments.reference;
        else if constexpr (kKind == kPath)
            return arguments.path;
        else if constexpr (kKind == kKey)
            return arguments.key;
        else if constexpr (kKind == kIndex)
            return arguments.index;
        else if constexpr (kKind == kText || kKind == kFileName)
            return payload.text;
        else if constexpr (kKind == kBytes)
            return reinterpret_cast<Type>(payload.bytes);
        else if constexpr (kKind == kLength)
            return payload.word;
        else if constexpr (kKind == kNumber)
            return NumberIn<Type>(payload);
        else if constexpr (kKind == kEncoding)
            return arguments.encoding;
        else if constexpr (kKind == kStyle)
            return arguments.style;
        else if constexpr (kKind == kVariant)
            return payload.variant;
        else if constexpr (kKind == kVariantRecord)
            return RecordIn<Type>(arguments);
        else if constexpr (kKind == kObject)
            return arguments.object;
        else if constexpr (kKind == kDelegate)
            return arguments.delegate;
        else
            return static_cast<Type>(arguments.passedOn[kNth]);
    }
};

// ---- Outputs -----------------------------------------------------------------------------------

/// An output with a variable of its own, whose bytes tell whether it was written.
template <Parameter kKind, class Type, size_t kNth>
struct Slot<kKind, Type, kNth, true> {
    using Value = std::remove_pointer_t<Type>;
    static constexpr bool kIsOutput = true;
    static constexpr unsigned char kUnwritten = 0xCD;

    alignas(Value) unsigned char bytes[sizeof(Value) * (kKind == kOutPath ? kPathUnits : 1)];

    Slot() { std::memset(bytes, kUnwritten, sizeof bytes); }

    Type Pass(const Arguments& arguments) {
        const auto& elsewhere = arguments.outputs[kNth];
        return reinterpret_cast<Type>(elsewhere ? *elsewhere : reinterpret_cast<uintptr_t>(bytes));
    }
    bool IsWritten() const {
        for (const unsigned char byte : bytes)
            if (byte != kUnwritten) return true;
        return false;
    }
    Value Get() const {
        Value value;
        std::memcpy(static_cast<void*>(&value), bytes, sizeof value);
        return value;
    }
    /// `size` is that of bytes.
    std::wstring Shown(size_t size) const {
        if constexpr (kKind == kOutPath)
            return reinterpret_cast<const wchar_t*>(bytes);
        else if constexpr (kKind == kOutBytes)
            return Get() ? ShowBytes(Get(), size) : L"null";
        else
            return Show(Get());
    }
};

template <size_t kPosition, class Slots>
void Collect(const Slots& slots, Answer& answer) {
    using This = std::tuple_element_t<kPosition, Slots>;
    if constexpr (This::kIsOutput) {
        const This& slot = std::get<kPosition>(slots);
        if (!slot.IsWritten()) return;
        size_t size = 0;
        if constexpr (kPosition + 1 < std::tuple_size_v<Slots>) {
            const auto& next = std::get<kPosition + 1>(slots);
            if constexpr (std::tuple_element_t<kPosition + 1, Slots>::kIsOutput)
                if (next.IsWritten()) size = static_cast<size_t>(next.Get());
        }
        answer.outputs.push_back(slot.Shown(size));
    }
}

// ---- Operations --------------------------------------------------------------------------------

template <class Kinds, class Result, class Class, class... Types, size_t... I>
Answer Call(Class& object, Result (Class::*function)(Types...), const Arguments& arguments,
            std::index_sequence<I...>) {
    [[maybe_unused]] constexpr auto kKinds = KindsOf<Types...>(Kinds());
    std::tuple<Slot<kKinds[I], Types, NthOf(kKinds, I)>...> slots;
    Answer answer(static_cast<int>((object.*function)(std::get<I>(slots).Pass(arguments)...)));
    (Collect<I>(slots, answer), ...);
    return answer;
}

/// A pointer to a virtual member function holds the function's offset in the table, plus 1.
template <class Function>
size_t SlotOf(Function function) {
    uintptr_t offset = 0;
    std::memcpy(&offset, &function, sizeof offset);
    return (offset - 1) / sizeof(void*);
}

/// What the parameters tell.
inline void Complete(Operation& operation) {
    const auto count = [&](auto condition) {
        size_t all = 0;
        for (const Parameter parameter : operation.parameters) all += condition(parameter) ? 1 : 0;
        return all;
    };
    operation.naming = operation.Takes(kHandle)      ? NamedBy::kHandle
                       : operation.Takes(kReference) ? NamedBy::kReference
                       : operation.Takes(kPath)      ? NamedBy::kPath
                                                     : NamedBy::kNone;
    operation.hasKey = operation.Takes(kKey);
    operation.hasIndex = operation.Takes(kIndex);
    operation.outputs = count(IsOutput);
}

template <class Kinds, class Result, class Class, class... Types>
Operation Describe(const char* name, Asks asks, Kind kind, Result (Class::*function)(Types...)) {
    constexpr auto kKinds = KindsOf<Types...>(Kinds());
    Operation operation;
    operation.name = name;
    operation.slot = SlotOf(function);
    operation.asks = asks;
    operation.kind = kind;
    operation.parameters = {kKinds.begin(), kKinds.begin() + sizeof...(Types)};
    operation.returnsBool = std::is_same_v<Result, bool>;
    operation.call = [function](Subject subject, const Arguments& arguments) {
        return Call<Kinds>(subject.As<Class>(), function, arguments,
                           std::index_sequence_for<Types...>());
    };
    Complete(operation);
    return operation;
}

/// One operation of a list: what its parameters are, but for those in front that name a value; its
/// name, what it is asked for, and the function.
template <Parameter... kRest, class Function>
Operation Row(const char* name, Asks asks, Function function) {
    return Describe<std::integer_sequence<Parameter, kRest...>>(name, asks, Kind::kNone, function);
}

/// One that adds or sets something.
template <Parameter... kRest, class Function>
Operation Row(const char* name, Kind kind, Function function) {
    return Describe<std::integer_sequence<Parameter, kRest...>>(name, Asks::kStore, kind, function);
}

}  // namespace support::describe
