#pragma once

#include "OperationTable.h"
#include "Repeat.h"

namespace replay {

template <class... Kinds, size_t... at, size_t size>
std::vector<Parameter> ParametersOf(const std::tuple<Kinds...>*,
                                    const std::array<const char*, size>& names,
                                    std::index_sequence<at...>) {
    return {Parameter{names[at], Kinds::kBefore, Kinds::kAfter, Kinds::kForm}...};
}

template <class Described, class C, class R, class... A>
Operation Row(R (C::*)(A...)) {
    using Kinds = decltype(Described::Kinds(std::declval<A>()...));
    Operation row = {Described::kName,
                     ParametersOf(static_cast<Kinds*>(nullptr), Described::kParameters,
                                  std::index_sequence_for<A...>()),
                     Described::kEnds, Described::kRenews, nullptr};
    if constexpr (Described::kInterface != record::Interface::kDelegate) {
        row.play = [](Player& player, PlayedObject& object, uint32_t call) {
            const Repeated<Kinds, C, R, A...> operation = {Described::kFunction, &Described::Kinds,
                                                           Described::kRenews};
            return Repeat(operation, player, object, call);
        };
    }
    return row;
}

/// The rows of an interface.
template <class... Described>
std::vector<Operation> MakeTable(record::OperationList<Described...>) {
    return {Row<Described>(Described::kFunction)...};
}

}  // namespace replay
