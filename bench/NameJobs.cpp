// Objects of many names that are hard to keep apart. Everything is related to a hash map that is
// filled with the same names in the same run, for such names have their price there too.

#include <string>

#include "Jobs.h"
#include "Keepers.h"
#include "Names.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

/// The sum of what is found in all of the scene's searches.
template <class Finder>
int64_t SumOfSearches(Finder& finder, const NameScene& scene) {
    int64_t sum = 0;
    for (const std::wstring& name : scene.searched) sum += finder.Find(name);
    return sum;
}

/// Takes all names in.
template <class Keeper>
class AddContender : public PeerContender<Keeper> {
public:
    explicit AddContender(const NameScene& given) : scene(given) {}

    void Prepare() override { peer.emplace(); }
    void Work(size_t) override {
        for (size_t i = 0; i < scene.names.size(); ++i) peer->Add(scene.names[i], scene.values[i]);
    }
    uint64_t Result() override { return static_cast<uint64_t>(SumOfSearches(*peer, scene)); }
    void Finish() override { peer.reset(); }

private:
    using PeerContender<Keeper>::peer;
    const NameScene& scene;
};

/// The first searches in a document that was never searched: the scene's, so many times over.
template <class Peer>
class SearchContender : public PeerContender<Peer> {
public:
    SearchContender(const NameScene& given, const std::string& name, int repeated = 1)
        : PeerContender<Peer>(name), scene(given), text(given.Text()), times(repeated) {}

    void Prepare() override {
        peer.emplace();
        peer->LoadText(text);
    }
    void Work(size_t) override {
        for (int i = 0; i < times; ++i) sum = SumOfSearches(*peer, scene);
    }
    uint64_t Result() override { return static_cast<uint64_t>(sum); }
    void Finish() override { peer.reset(); }

private:
    using PeerContender<Peer>::peer;
    const NameScene& scene;
    const std::wstring text;
    const int times;
    int64_t sum = 0;
};

Job NewJob(const std::string& label, const NameScene& scene) {
    Job job;
    job.label = label;
    job.size = job.fewest = job.most = scene.names.size();
    job.expected = static_cast<uint64_t>(scene.expected);
    return job;
}

void RunFamily(Bench& bench, const NameFamily& family) {
    Table* table = bench.Begin({std::string("names/") + family.key,
                                std::string(family.title) + ", ns per name",
                                "names",
                                1e9,
                                true,
                                {},
                                {}});
    if (!table) return;
    for (const size_t count : {1000, 4000, 16000, 64000}) {
        const NameScene scene(family, count);
        Job job = NewJob(Grouped(count), scene);
        job.Add<AddContender<HashMap>>(scene);
        job.Add<SearchContender<RapidJson>>(scene, "RapidJSON");
        job.Add<SearchContender<ByHandle>>(scene, "Json_Dll parser");
        job.Add<AddContender<ExactPackage>>(scene);
        job.Add<AddContender<GrowingObject>>(scene);
        bench.Run(*table, std::move(job));
    }
}

constexpr char kScan[] = "RapidJSON, one scan", kSearches[] = "Json_Dll, ten searches";

/// Adds to the last row what the searches cost above the scan, which is what the index costs.
void PutDifference(Table& table) {
    const Row& row = table.rows.back();
    const Cell &scan = row.cells.at(kScan), &searches = row.cells.at(kSearches);
    if (scan.rounds > 0 && searches.rounds > 0)
        table.Put("above the scan", {searches.cost - scan.cost, 0, searches.rounds});
}

/// The first searches for a name that is absent have to look at each name, or index them.
void RunIndex(Bench& bench) {
    Table* table = bench.Begin(
        {"names/index", "an index of numbered names, ns per name", "names", 1e9, false, {}, {}});
    if (!table) return;
    for (const NameFamily& family : NumberedFamilies())
        for (const size_t count : {25000, 100000}) {
            NameScene scene(family, count);
            scene.searched = {family.name(count)};
            scene.expected = kAbsent;
            Job job = NewJob(std::string(family.key) + ", " + Grouped(count), scene);
            job.Add<SearchContender<RapidJson>>(scene, kScan);
            job.Add<SearchContender<ByHandle>>(scene, kSearches, 10);
            job.Add<AddContender<HashMap>>(scene);
            const size_t rows = table->rows.size();
            bench.Run(*table, std::move(job));
            if (table->rows.size() > rows) PutDifference(*table);
        }
}

}  // namespace

void RunNameJobs(Bench& bench) {
    for (const NameFamily& family : HostileFamilies()) RunFamily(bench, family);
    RunIndex(bench);
}

}  // namespace bench
