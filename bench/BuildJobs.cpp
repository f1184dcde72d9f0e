// Building documents item by item.

#include <algorithm>

#include "Documents.h"
#include "Jobs.h"
#include "Shapes.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

template <class Shape, class Builder>
class BuildContender final : public PeerContender<Builder> {
public:
    explicit BuildContender(const Keys& given) : keys(given) {}

    void Prepare() override {
        peer.emplace();
        place = Shape::Begin(*peer);
    }
    void Work(size_t operations) override { Shape::Add(*peer, place, keys, operations); }
    uint64_t Result() override { return peer->Walk(); }
    void Finish() override { peer.reset(); }

private:
    using PeerContender<Builder>::peer;
    const Keys& keys;
    typename Builder::Place place{};
};

/// The sizes from `first` to `last`, each larger by the factor than the one before.
struct Sizes {
    size_t first, factor, last;
};
constexpr Sizes kItems = {1000, 10, 1000000};
constexpr Sizes kRows = {250, 4, 16000};

template <class Shape>
void RunShape(Bench& bench, const char* key, const char* title, const Sizes& sizes) {
    Table* table = bench.Begin({key, title, "items", 1e9, true, {}, {}});
    if (!table) return;
    for (size_t items = sizes.first; items <= sizes.last; items *= sizes.factor) {
        Keys keys;
        for (size_t i = 0; i < items; ++i) keys.push_back(Key(i));
        Job job;
        job.label = Grouped(items);
        job.size = job.fewest = job.most = items;
        job.expected = Shape::Expected(keys, items);
        job.Add<BuildContender<Shape, RapidJson>>(keys);
        job.Add<BuildContender<Shape, BuildByHandle>>(keys);
        job.Add<BuildContender<Shape, BuildByReference>>(keys);
        job.Add<BuildContender<Shape, BuildByPath>>(keys);
        job.Add<BuildContender<Shape, Nlohmann>>(keys);
        job.Add<BuildContender<Shape, BoostJson>>(keys);
        bench.Run(*table, std::move(job));
    }
}

}  // namespace

void RunBuildJobs(Bench& bench) {
    RunShape<Records>(bench, "build/array",
                      "an array of objects of a string, an integer and a double, ns per object",
                      kItems);
    RunShape<Members>(bench, "build/object", "one object of many integers, ns per member", kItems);
    RunShape<ObjectRows>(bench, "build/rows", "an array of objects of 20 members, ns per row",
                         kRows);
    RunShape<ArrayRows>(bench, "build/grid", "an array of arrays of 20 elements, ns per row",
                        kRows);
    RunShape<NestedRows>(bench, "build/nested",
                         "objects of 20 members, each in an object of an array of the root object, "
                         "ns per row",
                         kRows);
    RunShape<LateRows>(bench, "build/late",
                       "arrays of 10 elements added after one of 400,000, ns per row", kRows);
}

}  // namespace bench
