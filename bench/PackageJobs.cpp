// A keyed store with more and more keys.

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

double ValueOf(const std::wstring& key) { return static_cast<double>(KeyNumber(key)) + 0.5; }
uint64_t Whole(double value) { return static_cast<uint64_t>(value); }

/// A store and the keys that are used, in turns that go on from round to round.
struct Scene {
    size_t count;                    ///< keys in the store
    std::wstring text;               ///< the store, as it is loaded
    std::vector<std::wstring> keys;  ///< the keys used
};

enum class Action { kGet, kSet, kContains, kRemove };

/// Does something to a store and returns what is added to the result.
template <Action action, class Store>
uint64_t Do(Store& store, const std::wstring& key) {
    if constexpr (action == Action::kGet) return Whole(store.Get(key));
    if constexpr (action == Action::kContains) return store.Contains(key) ? 1 : 0;
    if constexpr (action == Action::kSet) store.Set(key, -1.5);
    if constexpr (action == Action::kRemove) store.Remove(key);
    return 1;
}

/// Works on some keys of a store that is loaded once.
template <class Store, Action action>
class KeyContender final : public PeerContender<Store> {
public:
    explicit KeyContender(const Scene& given) : scene(given) {}

    void Prepare() override {
        if (!peer) {
            peer.emplace();
            peer->LoadText(scene.text);
        }
        // What the last round removed comes back, after the others.
        for (; removed > 0; --removed) peer->Set(Used(next - removed), 0.5);
    }
    void Work(size_t operations) override {
        first = next;
        sum = 0;
        for (size_t i = 0; i < operations; ++i) sum += Do<action>(*peer, Used(next++));
        if constexpr (action == Action::kRemove) removed = operations;
    }
    uint64_t Result() override {
        // What was set must be found, and what was removed must not; nothing else went.
        if (peer->Count() != scene.count - removed) return 0;
        for (size_t i = first; i < next; ++i) {
            if (peer->Contains(Used(i)) != (removed == 0)) return 0;
            if (action == Action::kSet && peer->Get(Used(i)) != -1.5) return 0;
        }
        return sum;
    }

private:
    const std::wstring& Used(size_t number) const { return scene.keys[number % scene.keys.size()]; }

    using PeerContender<Store>::peer;
    const Scene& scene;
    size_t first = 0, next = 0, removed = 0;
    uint64_t sum = 0;
};

/// Fills an empty store.
template <class Store>
class FillContender final : public PeerContender<Store> {
public:
    explicit FillContender(const Scene& given) : scene(given) {}

    void Prepare() override {
        peer.emplace();
        peer->Clear();
    }
    void Work(size_t operations) override {
        for (size_t i = 0; i < operations; ++i)
            peer->Set(scene.keys[i], static_cast<double>(i) + 0.5);
    }
    uint64_t Result() override {
        uint64_t sum = peer->Count();
        for (size_t i = 0; i < scene.keys.size(); i += 1 + scene.keys.size() / 100)
            sum += Whole(peer->Get(scene.keys[i])) - i;
        return sum;
    }
    void Finish() override { peer.reset(); }

private:
    using PeerContender<Store>::peer;
    const Scene& scene;
};

constexpr size_t kSizes[] = {10, 1000, 10000, 100000, 1000000};

Job NewJob(size_t count) {
    Job job;
    job.label = Grouped(count);
    job.size = count;
    return job;
}

/// Adds all who keep a store.
template <template <class, Action...> class Type, Action... action>
void AddAll(Job& job, const Scene& scene) {
    job.Add<Type<RapidJson, action...>>(scene);
    job.Add<Type<DllPackage, action...>>(scene);
    job.Add<Type<Nlohmann, action...>>(scene);
    job.Add<Type<BoostStore, action...>>(scene);
}

void RunFill(Bench& bench) {
    Table* table = bench.Begin(
        {"package/add", "a store filled from empty, ns per key", "keys", 1e9, true, {}, {}});
    if (!table) return;
    for (const size_t count : kSizes) {
        const Scene scene = {count, L"", ShuffledKeys(0, count, count)};
        Job job = NewJob(count);
        job.fewest = job.most = job.expected = count;
        AddAll<FillContender>(job, scene);
        bench.Run(*table, std::move(job));
    }
}

template <Action action>
void RunAction(Bench& bench, const char* key, const char* title, size_t most) {
    Table* table = bench.Begin({key, title, "keys", 1e9, true, {}, {}});
    if (!table) return;
    for (const size_t count : kSizes) {
        const Scene scene = {count, ObjectText(count, L".5"), ShuffledKeys(0, count, 20000)};
        Job job = NewJob(count);
        job.fewest = std::min<size_t>(32, count / 2);
        job.most = action == Action::kRemove ? std::min(most, count / 2) : most;
        for (size_t i = 0; i < job.fewest; ++i)
            job.expected += action == Action::kGet ? Whole(ValueOf(scene.keys[i])) : 1;
        AddAll<KeyContender, action>(job, scene);
        bench.Run(*table, std::move(job));
    }
}

}  // namespace

void RunPackageJobs(Bench& bench) {
    RunFill(bench);
    RunAction<Action::kSet>(bench, "package/set", "a new value for a key, ns", 20000);
    RunAction<Action::kGet>(bench, "package/get", "the value of a key, ns", 20000);
    RunAction<Action::kContains>(bench, "package/contains", "whether there is a key, ns", 20000);
    RunAction<Action::kRemove>(bench, "package/remove", "a key removed, ns", 500);
}

}  // namespace bench
