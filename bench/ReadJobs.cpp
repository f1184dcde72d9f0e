// Reading every value of the large documents.

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

template <class Peer>
class ReadContender final : public PeerContender<Peer> {
public:
    explicit ReadContender(const Document& given) : document(given) {}

    /// A new document each round, none of whose values has a handle.
    void Prepare() override {
        peer.emplace();
        peer->LoadBytes(document.utf8);
    }
    void Work(size_t) override { sum = peer->Walk(); }
    uint64_t Result() override { return sum; }
    void Finish() override { peer.reset(); }

private:
    using PeerContender<Peer>::peer;
    const Document& document;
    uint64_t sum = 0;
};

}  // namespace

void RunReadJobs(Bench& bench) {
    Table* table = bench.Begin({"read",
                                "every name and value of a document, as UTF-16, ms",
                                "document",
                                1e3,
                                false,
                                {},
                                {}});
    if (!table) return;
    for (const Document& document : LargeDocuments()) {
        Job job;
        job.label = document.name;
        job.expected = SumOf(document.utf8);
        job.Add<ReadContender<RapidJson>>(document);
        job.Add<ReadContender<ByHandle>>(document);
        job.Add<ReadContender<ByLayer>>(document);
        job.Add<ReadContender<ByReference>>(document);
        job.Add<ReadContender<Nlohmann>>(document);
        job.Add<ReadContender<BoostJson>>(document);
        bench.Run(*table, std::move(job));
    }
}

}  // namespace bench
