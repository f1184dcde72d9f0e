// Building documents item by item.

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

using Keys = std::vector<std::wstring>;

double Price(size_t i) { return static_cast<double>(i % 1000) + 0.25; }

/// An array of objects of three members.
struct Records {
    template <class Builder>
    static void Build(Builder& builder, const Keys& keys, size_t count) {
        builder.BeginArray();
        for (size_t i = 0; i < count; ++i)
            builder.AddRecord(keys[i], static_cast<int32_t>(i), Price(i));
    }
    static uint64_t Expected(const Keys& keys) {
        uint64_t sum = ContainerSum(keys.size());
        for (size_t i = 0; i < keys.size(); ++i)
            sum += ContainerSum(3) + NameSum(L"name") + StringSum(keys[i]) + NameSum(L"count") +
                   NumberSum(static_cast<double>(i)) + NameSum(L"price") + NumberSum(Price(i));
        return sum;
    }
};

/// One object of many members.
struct Members {
    template <class Builder>
    static void Build(Builder& builder, const Keys& keys, size_t count) {
        builder.BeginObject();
        for (size_t i = 0; i < count; ++i) builder.AddMember(keys[i], static_cast<int32_t>(i));
    }
    static uint64_t Expected(const Keys& keys) {
        uint64_t sum = ContainerSum(keys.size());
        for (size_t i = 0; i < keys.size(); ++i)
            sum += NameSum(keys[i]) + NumberSum(static_cast<double>(i));
        return sum;
    }
};

template <class Shape, class Builder>
class BuildContender final : public PeerContender<Builder> {
public:
    explicit BuildContender(const Keys& given) : keys(given) {}

    void Prepare() override { peer.emplace(); }
    void Work(size_t operations) override { Shape::Build(*peer, keys, operations); }
    uint64_t Result() override { return peer->Walk(); }
    void Finish() override { peer.reset(); }

private:
    using PeerContender<Builder>::peer;
    const Keys& keys;
};

template <class Shape>
void RunShape(Bench& bench, const char* key, const char* title) {
    Table* table = bench.Begin({key, title, "items", 1e9, true, {}, {}});
    if (!table) return;
    for (size_t items = 1000; items <= 1000000; items *= 10) {
        Keys keys;
        for (size_t i = 0; i < items; ++i) keys.push_back(Key(i));
        Job job;
        job.label = Grouped(items);
        job.size = job.fewest = job.most = items;
        job.expected = Shape::Expected(keys);
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
                      "an array of objects of a string, an integer and a double, ns per object");
    RunShape<Members>(bench, "build/object", "one object of many integers, ns per member");
}

}  // namespace bench
