// A keyed store whose keys come and go while their number stays the same. The size is how often
// that happens: what it costs must not depend on what happened before.

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

enum class Churn {
    kOneKey,   ///< the same key is set and removed
    kNewKeys,  ///< each time another key is set and removed
    kQueue,    ///< each time another key is set, and the oldest one removed
};

struct Scene {
    Churn churn;
    size_t live;                     ///< keys that stay
    std::vector<std::wstring> keys;  ///< first those, then those that come

    const std::wstring& Added(size_t turn) const {
        return keys[live + (churn == Churn::kOneKey ? 0 : turn)];
    }
    const std::wstring& Removed(size_t turn) const {
        return churn == Churn::kQueue ? keys[turn] : Added(turn);
    }
    /// The number of the first key that is there after so many turns.
    size_t FirstAfter(size_t turns) const { return churn == Churn::kQueue ? turns : 0; }
};

double ValueAt(size_t place) { return static_cast<double>(place) + 0.5; }

template <class Store>
class ChurnContender final : public PeerContender<Store> {
public:
    explicit ChurnContender(const Scene& given) : scene(given) {}

    void Prepare() override {
        peer.emplace();
        peer->Clear();
        for (size_t i = 0; i < scene.live; ++i) peer->Set(scene.keys[i], ValueAt(i));
    }
    void Work(size_t operations) override {
        for (turns = 0; turns < operations; ++turns) {
            peer->Set(scene.Added(turns), ValueAt(scene.live + turns));
            peer->Remove(scene.Removed(turns));
        }
    }
    /// What is there, which the last turns must have left and none of the others.
    uint64_t Result() override {
        uint64_t sum = peer->Count();
        const size_t first = scene.FirstAfter(turns);
        for (size_t i = first; i < first + scene.live; ++i)
            sum += static_cast<uint64_t>(peer->Get(scene.keys[i])) - i;
        return sum;
    }
    void Finish() override { peer.reset(); }

private:
    using PeerContender<Store>::peer;
    const Scene& scene;
    size_t turns = 0;
};

void RunChurn(Bench& bench, const char* key, const char* title, Churn churn, size_t live) {
    Table* table = bench.Begin({key, title, "turns", 1e9, true, {}, {}});
    if (!table) return;
    for (const size_t turns : {1000, 4000, 16000, 64000}) {
        Scene scene = {churn, live, {}};
        for (size_t i = 0; i < live + turns; ++i) scene.keys.push_back(Key(i));
        Job job;
        job.label = Grouped(turns);
        job.size = job.fewest = job.most = turns;
        job.expected = live;
        job.Add<ChurnContender<RapidJson>>(scene);
        job.Add<ChurnContender<DllPackage>>(scene);
        job.Add<ChurnContender<Nlohmann>>(scene);
        job.Add<ChurnContender<BoostStore>>(scene);
        bench.Run(*table, std::move(job));
    }
}

}  // namespace

void RunChurnJobs(Bench& bench) {
    RunChurn(bench, "package/one-key", "one key set and removed, beside 20 others, ns",
             Churn::kOneKey, 20);
    RunChurn(bench, "package/new-keys", "a new key set and removed, beside 20 others, ns",
             Churn::kNewKeys, 20);
    RunChurn(bench, "package/queue-20", "a new key set and the oldest removed, among 20, ns",
             Churn::kQueue, 20);
    RunChurn(bench, "package/queue-1000", "a new key set and the oldest removed, among 1,000, ns",
             Churn::kQueue, 1000);
}

}  // namespace bench
