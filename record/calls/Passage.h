#pragma once

#include <tuple>

#include "Kinds.h"
#include "common/platform/FaultGuard.h"

/// \file
/// A call on its way through: its arguments and outputs as values of a record. `Kinds` is a tuple
/// of the classes of Kinds.h.

namespace record {

/// Does `work` with each kind.
template <class Kinds, class Work>
void ForEach(Kinds& kinds, Work work) {
    std::apply([&](auto&... each) { (work(each), ...); }, kinds);
}

/// Whether any kind has memory to look at, which may fault: before the call, after it.
template <class... Kinds>
constexpr bool AnyLooks(const std::tuple<Kinds...>*) {
    return (Kinds::kLooks || ...);
}
template <class... Kinds>
constexpr bool AnyLooksAfter(const std::tuple<Kinds...>*) {
    return (Kinds::kLooksAfter || ...);
}

/// Sees what the arguments lead to.
template <class Kinds>
void LookAt(Kinds& kinds) {
    if constexpr (AnyLooks(static_cast<Kinds*>(nullptr))) {
        const bool good =
            QXJSON::RunsWithoutFault([&] { ForEach(kinds, [](auto& k) { k.Look(); }); });
        if (!good) ForEach(kinds, [](auto& k) { k.LookCarefully(); });
    }
}

/// Sees what the call left in its outputs.
template <class Kinds>
void LookAtOutputs(Kinds& kinds, uint64_t result) {
    const auto look = [&] { ForEach(kinds, [=](auto& k) { k.LookAfter(result); }); };
    if constexpr (AnyLooksAfter(static_cast<Kinds*>(nullptr))) {
        if (!QXJSON::RunsWithoutFault(look))
            ForEach(kinds, [=](auto& k) { k.LookAfterCarefully(result); });
    } else {
        look();
    }
}

template <class Kinds>
size_t BoundOf(Kinds& kinds) {
    size_t bound = 0;
    ForEach(kinds, [&](const auto& k) { bound += k.Bound(); });
    return bound;
}

/// The values of a call.
template <class Kinds>
void WriteArguments(Sink& sink, Kinds& kinds) {
    ForEach(kinds, [&](const auto& k) { k.Write(sink); });
}

template <class Kinds>
size_t BoundOfReturn(Kinds& kinds) {
    size_t bound = 2 * kNumberSize;
    ForEach(kinds, [&](const auto& k) { bound += k.BoundAfter(); });
    return bound;
}

/// Forgets the references to a document that ended with a call of an operation that begins a new
/// one; whether it did. A generator keeps its document where that fails.
inline bool EndReferences(References& references, Interface interface, uint64_t result) {
    const bool ended = interface == Interface::kParser || result == kDone;
    if (ended) references.Renew();
    return ended;
}

/// The stack that the caller has left.
uint64_t StackLeft();

/// The values of a return. Where the operation met a fault, how much stack there was may be why.
template <class Kinds>
void WriteReturn(Sink& sink, Kinds& kinds, uint64_t result) {
    sink.Put(Tag::kNumber, result);
    ForEach(kinds, [&](const auto& k) { k.WriteAfter(sink); });
    if (result == kFaulted) sink.Put(Tag::kStack, StackLeft());
}

}  // namespace record
