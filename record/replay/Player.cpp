#include "Player.h"

#include <algorithm>

#include "Compare.h"
#include "Describe.h"
#include "Failure.h"
#include "Faults.h"
#include "OperationTable.h"
#include "PlayedDelegate.h"

namespace replay {

Player::Player(const Session& session) : calls(session.calls), library(session.library) {
    extent.hashed = session.log.IsHashed();
    // As far as the recorder may have gone.
    constexpr uint64_t kMost = uint64_t{2} << 30;
    record::LimitFiles(kMost);
}

PlayedObject::PlayedObject(uint32_t number) : references(number) {}

PlayedObject::~PlayedObject() = default;

Player::~Player() {
    for (const auto& [number, object] : objects)
        if (object->real) Release(object->interface, object->real);
}

PlayedObject& Player::Object(uint32_t number) {
    std::unique_ptr<PlayedObject>& object = objects[number];
    if (!object) {
        object = std::make_unique<PlayedObject>(number);
        object->isUnknown = true;
    }
    return *object;
}

PlayedDelegate* Player::Delegate(PlayedObject& object, uint32_t number) {
    std::unique_ptr<PlayedDelegate>& delegate = object.delegates[number];
    if (!delegate) delegate = std::make_unique<PlayedDelegate>(*this, object.references, number);
    return delegate.get();
}

void Player::Play(uint32_t call) {
    if (calls.all[call].IsFactory()) return PlayFactory(call);
    PlayOperation(call);
}

void Player::Report(uint32_t call, std::string what) {
    differences.push_back({call, std::move(what)});
}

void Player::PlayFactory(uint32_t call) {
    const uint32_t number = calls.all[call].Object();
    if (number == 0) return;
    PlayedObject& object = Object(number);
    if (object.real) {
        // A damaged log: the number is that of an object that lives.
        ++skipped;
        return;
    }
    object.interface = calls.all[call].begin->interface;
    object.real = library.Create(object.interface);
    object.isUnknown = object.real == nullptr;
    ++played;
    if (!object.real) Report(call, "no object was made");
}

/// Whether an operation of the object is being repeated now, from which a delegate was called.
bool Player::IsInUse(uint32_t object) const {
    return std::any_of(frames.begin(), frames.end(), [&](const Frame& frame) {
        return calls.all[frame.call].begin->object == object;
    });
}

void Player::PlayOperation(uint32_t index) {
    const Call& call = calls.all[index];
    const Operation* const operation = OperationOf(*call.begin);
    PlayedObject& object = Object(call.begin->object);
    if (!operation || !operation->play || object.interface != call.begin->interface ||
        !object.real || (object.isUnknown && !operation->ends) ||
        (operation->ends && IsInUse(call.begin->object))) {
        ++skipped;
        return;
    }
    frames.push_back({index, call.firstInside});
    const std::optional<Outcome> outcome = operation->play(*this, object, index);
    const uint32_t notCalled = frames.back().nextInside;
    frames.pop_back();
    if (!outcome || outcome->wasSkipped) {
        object.isUnknown = object.isUnknown || !outcome;
        ++skipped;
        return;
    }
    if (operation->ends && !outcome->threw) object.real = nullptr;
    ++played;
    if (!call.end) {
        ++unfinished;
        return;
    }
    if (notCalled != kNone) Report(notCalled, "the delegate was not called");
    Compare(index, *outcome);
}

void Player::PlayInside(uint32_t delegateCall) {
    for (uint32_t inside = calls.all[delegateCall].firstInside; inside != kNone;
         inside = calls.all[inside].next)
        Play(inside);
}

Response Player::DelegateCalled(uint32_t slot, const std::vector<uint8_t>& arguments) {
    Frame& frame = frames.back();
    const uint32_t index = frame.nextInside;
    if (index == kNone || !calls.all[index].IsOfDelegate()) {
        Report(frame.call, "a delegate was called, which it was not");
        return {};
    }
    const Call& call = calls.all[index];
    frame.nextInside = call.next;
    const Values given(arguments.data(), arguments.data() + arguments.size());
    if (call.begin->slot != slot)
        Report(index, "another operation of the delegate was called");
    else if (const auto different = FirstDifference(Values(call.begin), given, false))
        Report(index, "the delegate was called with " + *different);
    PlayInside(index);
    if (!call.end) return {};
    Response response;
    response.outputs = Values(call.end);
    response.throws = call.Threw();
    const Value first = response.outputs.Next();
    response.result = first.number;
    response.code = static_cast<unsigned long>(first.number);
    return response;
}

void Player::Compare(uint32_t index, const Outcome& outcome) {
    const Call& call = calls.all[index];
    Values recorded(call.end);
    if (call.Threw() || outcome.threw) {
        const auto code = static_cast<unsigned long>(recorded.Next().number);
        const bool same = call.Threw() && outcome.threw &&
                          (code == outcome.code || (IsCpp(code) && IsCpp(outcome.code)));
        if (!same) Report(index, outcome.threw ? "threw " + Hexadecimal(outcome.code) : "returned");
        return;
    }
    PlayedObject& object = Object(call.begin->object);
    if (outcome.reference) {
        Values after(call.end);
        for (Value value = after.Next(); value.tag != Tag::kEnd; value = after.Next())
            if (value.tag == Tag::kReference)
                object.addresses[static_cast<uint32_t>(value.number)] = *outcome.reference;
    }
    // A document that was parsed stays where it is, so that the references to it are the same where
    // they were. Those of a generator may move.
    const bool exactly = object.interface == record::Interface::kParser;
    const uint8_t* const values = outcome.values.data();
    const Values actual(values, values + outcome.values.size());
    if (const auto different = FirstDifference(recorded, actual, exactly))
        Report(index, "returned " + Answer(call, actual));
}

}  // namespace replay
