#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <unordered_map>

#include "Memory.h"
#include "Session.h"
#include "calls/OperationList.h"
#include "calls/Sink.h"

namespace replay {

class Player;
class PlayedDelegate;

/// Where the answer of the library was another one than in the log.
struct Difference {
    uint32_t call;
    std::string what;
};

/// An object of the log and what stands for it.
struct PlayedObject {
    explicit PlayedObject(uint32_t number);
    ~PlayedObject();

    record::Interface interface = {};
    void* real = nullptr;  ///< null after its Release()
    record::References references;
    /// The references that the library has returned now, by their numbers in the log.
    std::unordered_map<uint32_t, uint64_t> addresses;
    std::map<uint32_t, std::unique_ptr<PlayedDelegate>> delegates;
    /// A call could not be repeated, so that nothing is known of what follows.
    bool isUnknown = false;
};

/// What came of a call that was repeated.
struct Outcome {
    bool wasSkipped = false;  ///< it cannot be repeated, and nothing depends on it
    bool threw = false;
    unsigned long code = 0;             ///< of what it threw
    std::vector<uint8_t> values;        ///< as in the record of a return
    std::optional<uint64_t> reference;  ///< that the call returned
};

/// What a delegate is to do.
struct Response {
    bool throws = false;
    unsigned long code = 0;
    uint64_t result = 0;
    Values outputs;
};

/// Repeats the calls of a log on a library. The session lives longer.
class Player {
public:
    explicit Player(const Session& session);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    /// Repeats one of the outer calls, with what is in it.
    void Play(uint32_t call);

    /// What was found so far, in the order of the calls.
    std::vector<Difference> differences;
    uint64_t played = 0;
    uint64_t skipped = 0;     ///< what could not be repeated, or depends on that
    uint64_t unfinished = 0;  ///< what never returned when it was recorded

    // ---- For the repetition of single operations
    PlayedObject& Object(uint32_t number);
    PlayedDelegate* Delegate(PlayedObject& object, uint32_t number);
    /// The library calls a delegate.
    Response DelegateCalled(uint32_t slot, const std::vector<uint8_t>& arguments);
    const record::Extent& HowMuch() const { return extent; }
    const Calls& TheCalls() const { return calls; }
    FileFolder files;

private:
    struct Frame {
        uint32_t call;
        uint32_t nextInside;
    };

    void PlayFactory(uint32_t call);
    void PlayOperation(uint32_t call);
    bool IsInUse(uint32_t object) const;
    void PlayInside(uint32_t delegateCall);
    void Compare(uint32_t call, const Outcome& outcome);
    void Report(uint32_t call, std::string what);

    const Calls& calls;
    const Library& library;
    record::Extent extent;
    std::unordered_map<uint32_t, std::unique_ptr<PlayedObject>> objects;
    std::vector<Frame> frames;
};

}  // namespace replay
