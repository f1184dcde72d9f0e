#pragma once

#include "Decoder.h"
#include "Faults.h"
#include "Stack.h"
#include "calls/Passage.h"

namespace replay {

template <class C, class R, class... A>
R ResultOf(R (C::*)(A...));

/// Repeats calls of one operation.
template <class Operation>
class Repetition {
public:
    /// Nothing where the call cannot be repeated.
    static std::optional<Outcome> Play(Player& player, PlayedObject& object, const Call& call) {
        return Repetition(player, object, call).Play(Operation::kFunction);
    }

private:
    Repetition(Player& player, PlayedObject& object, const Call& call)
        : player(player), object(object), call(call), decoder(player, object, memory, call) {}

    template <class C, class R, class... A>
    std::optional<Outcome> Play(R (C::*)(A...)) {
        using Kinds = decltype(Operation::Kinds(std::declval<A>()...));
        std::tuple<A...> natives = Arguments<Kinds, A...>(std::index_sequence_for<A...>());
        if (decoder.IsImpossible()) return std::nullopt;
        if (decoder.IsForeign()) {
            Outcome skipped;
            skipped.wasSkipped = true;
            return skipped;
        }
        auto outcome = std::apply([&](A... each) { return this->Call<C, R>(each...); }, natives);
        for (const std::wstring& file : decoder.files) player.files.Remove(file);
        return outcome;
    }

    /// In their order: that of the values.
    template <class Kinds, class... A, size_t... at>
    std::tuple<A...> Arguments(std::index_sequence<at...>) {
        return std::tuple<A...>{As<A>(Decode(decoder, Kind<std::tuple_element_t<at, Kinds>>()))...};
    }

    template <class C, class R, class... A>
    Outcome Call(A... natives) {
        if constexpr (Operation::kRenews) object.references.Renew();
        auto kinds = Operation::Kinds(natives...);
        record::LookAt(kinds);
        R result = {};
        auto* const target = static_cast<C*>(object.real);
        unsigned long code = 0;
        WithStackOf(call, [&] {
            code = CallUnlessThrown<Operation::kFunction>(&result, target, natives...);
        });
        Outcome outcome;
        if (code != 0) {
            outcome.threw = true;
            outcome.code = code;
            return outcome;
        }
        const uint64_t bits = record::BitsOf(result);
        record::LookAtOutputs(kinds, bits);
        outcome.values.resize(record::BoundOfReturn(kinds));
        record::Sink sink(outcome.values.data(), object.references, player.HowMuch());
        record::WriteReturn(sink, kinds, bits);
        outcome.values.resize(static_cast<size_t>(sink.End() - outcome.values.data()));
        record::ForEach(kinds, [&](const auto& kind) { Keep(kind, outcome); });
        return outcome;
    }

    template <class Any>
    static void Keep(const Any&, Outcome&) {}
    static void Keep(const record::ReferenceOut& kind, Outcome& outcome) {
        outcome.reference = kind.Returned();
    }

    Player& player;
    PlayedObject& object;
    const replay::Call& call;
    CallMemory memory;
    Decoder decoder;
};

}  // namespace replay
