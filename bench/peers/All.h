#pragma once

// All contenders, and what each contender of a job has.

#include <optional>

#include "Harness.h"
#include "peers/BoostJson.h"
#include "peers/JsonDllBuild.h"
#include "peers/JsonDllRead.h"
#include "peers/JsonDllStore.h"
#include "peers/Nlohmann.h"
#include "peers/RapidJson.h"

namespace bench {

/// A contender that works on a peer's document, which Prepare makes.
template <class Peer>
class PeerContender : public Contender {
public:
    explicit PeerContender(std::string name = Peer::kName) : Contender(std::move(name)) {}

protected:
    std::optional<Peer> peer;
};

/// The checksum of a document, according to the floor.
inline uint64_t SumOf(const std::string& bytes) {
    RapidJson reader;
    reader.LoadAnyBytes(bytes.data(), bytes.size());
    return reader.Walk();
}

}  // namespace bench
