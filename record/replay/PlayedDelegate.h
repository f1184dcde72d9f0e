#pragma once

#include "Faults.h"
#include "Operations.h"
#include "Player.h"
#include "calls/Passage.h"

namespace replay {

/// A delegate that does what the host's did.
class PlayedDelegate final : public record::DelegateCalls<PlayedDelegate> {
public:
    PlayedDelegate(Player& player, record::References& references, uint32_t numberOfThis)
        : player(player), references(references) {
        number = numberOfThis;
    }

    template <class Operation, class... Natives>
    int Pass(Natives... natives) {
        Response response = Answer<Operation>(natives...);
        if (response.throws) Throw(response.code);
        (Fill(natives, response.outputs), ...);
        return static_cast<int>(response.result);
    }

private:
    template <class Operation, class... Natives>
    Response Answer(Natives... natives) {
        auto kinds = Operation::Kinds(natives...);
        record::LookAt(kinds);
        std::vector<uint8_t> arguments(record::BoundOf(kinds) + record::kNumberSize);
        record::Sink sink(arguments.data(), references, player.HowMuch());
        sink.Put(Tag::kNumber, number);
        record::WriteArguments(sink, kinds);
        arguments.resize(static_cast<size_t>(sink.End() - arguments.data()));
        return player.DelegateCalled(Operation::kSlot, arguments);
    }

    /// The only outputs of delegates are texts.
    template <class Native>
    void Fill(Native native, Values& outputs) {
        static_assert(!std::is_pointer_v<Native> || std::is_void_v<std::remove_pointer_t<Native>> ||
                      std::is_same_v<Native, const wchar_t*>);
        (void)native, (void)outputs;
    }
    void Fill(const wchar_t** text, Values& outputs) {
        const Value value = outputs.Next();
        if (value.tag != Tag::kLeft) *text = static_cast<const wchar_t*>(memory.CopyOf(value));
    }

    Player& player;
    record::References& references;
    /// Texts live until the package's operation returns, and longer.
    CallMemory memory;
};

}  // namespace replay
