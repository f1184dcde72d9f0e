// Loading the large documents, from each of the three forms.

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

/// The library as a whole; the check of a load reads by handle.
class Loader : public ByHandle {
public:
    static constexpr const char* kName = DllReader::kName;
};

enum class Source { kText, kBytes, kFile };

template <class Peer>
class LoadContender final : public PeerContender<Peer> {
public:
    LoadContender(const Document& given, Source form) : document(given), source(form) {}

    void Prepare() override { peer.emplace(); }
    void Work(size_t) override {
        switch (source) {
            case Source::kText:
                return peer->LoadText(document.text);
            case Source::kBytes:
                return peer->LoadBytes(document.utf8);
            default:
                return peer->LoadFile(document.file);
        }
    }
    uint64_t Result() override { return peer->Walk(); }
    void Finish() override { peer.reset(); }

private:
    using PeerContender<Peer>::peer;
    const Document& document;
    Source source;
};

struct Series {
    const char* key;
    const char* title;
    Source source;
};

}  // namespace

void RunLoadJobs(Bench& bench) {
    const Series all[] = {
        {"load/text", "a document from UTF-16 text, ms", Source::kText},
        {"load/bytes", "a document from UTF-8 bytes, ms", Source::kBytes},
        {"load/file", "a document from a UTF-8 file, ms", Source::kFile},
    };
    for (const Series& series : all) {
        Table* table = bench.Begin({series.key, series.title, "document", 1e3, false, {}, {}});
        if (!table) continue;
        for (const Document& document : LargeDocuments()) {
            Job job;
            job.label = document.name;
            job.expected = SumOf(document.utf8);
            job.Add<LoadContender<RapidJson>>(document, series.source);
            job.Add<LoadContender<Loader>>(document, series.source);
            job.Add<LoadContender<Nlohmann>>(document, series.source);
            job.Add<LoadContender<BoostJson>>(document, series.source);
            bench.Run(*table, std::move(job));
        }
    }
}

}  // namespace bench
