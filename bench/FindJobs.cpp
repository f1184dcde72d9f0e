// Finding one member of an object among more and more of them.

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

/// What is searched, and for what.
struct Scene {
    std::wstring text;
    std::vector<std::wstring> keys;
    bool reload;  ///< each round begins with a document that was never searched
};

template <class Peer>
class FindContender final : public PeerContender<Peer> {
public:
    explicit FindContender(const Scene& shown) : scene(shown) {}

    void Prepare() override {
        if (peer && !scene.reload) return;
        peer.emplace();
        peer->LoadText(scene.text);
    }
    void Work(size_t operations) override {
        sum = 0;
        for (size_t i = 0; i < operations; ++i) {
            sum += peer->Find(scene.keys[next]);
            if (++next == scene.keys.size()) next = 0;
        }
    }
    uint64_t Result() override { return static_cast<uint64_t>(sum); }

private:
    using PeerContender<Peer>::peer;
    const Scene& scene;
    size_t next = 0;
    int64_t sum = 0;
};

int64_t ExpectedSum(const Scene& scene, size_t operations, bool present) {
    int64_t sum = 0;
    for (size_t i = 0; i < operations; ++i)
        sum +=
            present ? static_cast<int64_t>(KeyNumber(scene.keys[i % scene.keys.size()])) : kAbsent;
    return sum;
}

struct Series {
    const char* key;
    const char* title;
    bool present;
    /// In a document that was never searched; none: any number, in the same document.
    size_t searches;
    size_t searchesForEach;  ///< for each of its members, in place of a fixed number
    size_t largest;
};

void RunSize(Bench& bench, Table& table, const Series& series, size_t members) {
    const size_t absent = series.present ? 0 : members;
    const size_t most = series.searchesForEach ? members : 20000;
    const size_t searches = series.searchesForEach * members + series.searches;
    const Scene scene = {ObjectText(members), ShuffledKeys(absent, absent + members, most),
                         searches > 0};
    Job job;
    job.label = Grouped(members);
    job.size = members;
    job.fewest = searches ? searches : 32;
    job.most = searches ? searches : 20000;
    job.expected = static_cast<uint64_t>(ExpectedSum(scene, job.fewest, series.present));
    job.Add<FindContender<RapidJson>>(scene);
    job.Add<FindContender<ByHandle>>(scene);
    job.Add<FindContender<ByLayer>>(scene);
    job.Add<FindContender<ByItem>>(scene);
    job.Add<FindContender<ByReference>>(scene);
    job.Add<FindContender<ByPath>>(scene);
    job.Add<FindContender<Nlohmann>>(scene);
    job.Add<FindContender<BoostJson>>(scene);
    bench.Run(table, std::move(job));
}

}  // namespace

void RunFindJobs(Bench& bench) {
    const Series all[] = {
        {"find/present", "a member that is there, ns per search", true, 0, 0, 1000000},
        {"find/absent", "a member that is not there, ns per search", false, 0, 0, 1000000},
        {"find/first", "the first search after a load, ns", true, 1, 0, 100000},
        {"find/early", "the first hundred searches after a load, ns per search", true, 100, 0,
         100000},
        {"find/each", "the first searches after a load, three for each member, ns per search", true,
         0, 3, 100000},
    };
    for (const Series& series : all) {
        Table* table = bench.Begin({series.key, series.title, "members", 1e9, true, {}, {}});
        if (!table) continue;
        for (size_t members = 10; members <= series.largest; members *= 10)
            RunSize(bench, *table, series, members);
    }
}

}  // namespace bench
