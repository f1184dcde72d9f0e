#pragma once

#include "Decoder.h"
#include "Faults.h"
#include "Stack.h"
#include "calls/Passage.h"

namespace replay {

/// An operation by its type: those of the same type and kinds share what follows.
template <class Kinds, class C, class R, class... A>
struct Repeated {
    R (C::*function)(A...);
    Kinds (*kinds)(A...);
    bool renews;
};

/// Arguments in their order, which is that of the values.
template <class Kinds, class... A, size_t... at>
std::tuple<A...> DecodeAll(Decoder& decoder, std::index_sequence<at...>) {
    return std::tuple<A...>{As<A>(Decode(decoder, Kind<std::tuple_element_t<at, Kinds>>()))...};
}

template <class Any>
void KeepReference(const Any&, Outcome&) {}
inline void KeepReference(const record::ReferenceOut& kind, Outcome& outcome) {
    outcome.reference = kind.Returned();
}

/// Repeats a call of an operation with these arguments.
template <class Kinds, class C, class R, class... A>
Outcome RepeatWith(const Repeated<Kinds, C, R, A...>& operation, Player& player,
                   PlayedObject& object, uint32_t call, A... natives) {
    Kinds kinds = operation.kinds(natives...);
    record::LookAt(kinds);
    R result = {};
    auto* const target = static_cast<C*>(object.real);
    Outcome outcome;
    WithStackOf(player.TheCalls(), call, [&] {
        outcome.code = CallUnlessThrown(operation.function, &result, target, natives...);
    });
    outcome.threw = outcome.code != 0;
    if (outcome.threw) return outcome;
    const uint64_t bits = record::BitsOf(result);
    if (operation.renews && record::EndReferences(object.references, object.interface, bits))
        object.addresses.clear();
    record::LookAtOutputs(kinds, bits);
    outcome.values.resize(record::BoundOfReturn(kinds));
    record::Sink sink(outcome.values.data(), object.references, player.HowMuch());
    record::WriteReturn(sink, kinds, bits);
    outcome.values.resize(static_cast<size_t>(sink.End() - outcome.values.data()));
    record::ForEach(kinds, [&](const auto& kind) { KeepReference(kind, outcome); });
    return outcome;
}

/// Repeats a recorded call; nothing where that cannot be done.
template <class Kinds, class C, class R, class... A>
std::optional<Outcome> Repeat(const Repeated<Kinds, C, R, A...>& operation, Player& player,
                              PlayedObject& object, uint32_t call) {
    CallMemory memory;
    Decoder decoder(player, object, memory, player.TheCalls().all[call]);
    const auto natives = DecodeAll<Kinds, A...>(decoder, std::index_sequence_for<A...>());
    if (decoder.IsImpossible()) return std::nullopt;
    if (decoder.IsForeign()) {
        Outcome skipped;
        skipped.wasSkipped = true;
        return skipped;
    }
    return std::apply(
        [&](A... each) { return RepeatWith(operation, player, object, call, each...); }, natives);
}

}  // namespace replay
