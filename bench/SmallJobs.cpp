// Small messages, over and over: the life of an object, loads of a few units, and messages that are
// read or built once.

#include <stdexcept>

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"

namespace bench {
namespace {

/// Does one thing again and again, from beginning to end.
template <class Message>
class RepeatContender final : public Contender {
public:
    template <class... Arguments>
    explicit RepeatContender(const Arguments&... arguments)
        : Contender(Message::kName), message(arguments...) {}

    void Work(size_t operations) override {
        for (size_t i = 0; i < operations; ++i) message.Once();
    }
    uint64_t Result() override { return message.Result(); }

private:
    Message message;
};

constexpr size_t kMost = 200'000;

Job NewJob(const std::string& label, uint64_t expected) {
    Job job;
    job.label = label;
    job.most = kMost;
    job.expected = expected;
    return job;
}

// ---- The life of an object ---------------------------------------------------------------------

/// The least that bare RapidJSON does: it parses an empty object.
struct BareParse {
    static constexpr const char* kName = "RapidJSON";
    void Once() { peer.LoadText(text); }
    uint64_t Result() const { return peer.Walk(); }
    const std::wstring text = L"{}";
    RapidJson peer;
};

/// An object is made and released.
template <auto create>
struct Life {
    void Once() { alive += (TheLibrary().*create)() ? 1 : 0; }
    uint64_t Result() const { return alive > 0 ? ContainerSum(0) : 0; }
    size_t alive = 0;
};
struct ParserLife : Life<&hosting::Library::NewParser> {
    static constexpr const char* kName = "Json_Dll parser";
};
struct GeneratorLife : Life<&hosting::Library::NewGenerator> {
    static constexpr const char* kName = "Json_Dll generator";
};
struct PackageLife : Life<&hosting::Library::NewPackage> {
    static constexpr const char* kName = "Json_Dll package";
};

// ---- Loads -------------------------------------------------------------------------------------

/// Texts are loaded one after the other.
template <class Peer>
struct SmallLoad {
    static constexpr const char* kName = Peer::kName;
    explicit SmallLoad(const std::wstring& given) : text(given) {}
    void Once() { peer.LoadText(text); }
    uint64_t Result() { return peer.Walk(); }
    const std::wstring& text;
    Peer peer;
};

struct LoadingParser : ByReference {
    static constexpr const char* kName = "Json_Dll parser";
};
/// A load adds to a generator's memory: each begins with a new one, as a host does.
struct LoadingGenerator {
    static constexpr const char* kName = "Json_Dll generator";
    void LoadText(const std::wstring& text) { builder.emplace().LoadText(text); }
    uint64_t Walk() { return builder->Walk(); }
    std::optional<DllBuilder> builder;
};

// ---- Messages ----------------------------------------------------------------------------------

constexpr size_t kFields = 4;

/// A message is loaded into a new object, and some of its fields are read by name.
template <class Peer>
struct MessageRead {
    static constexpr const char* kName = Peer::kName;
    explicit MessageRead(const std::wstring& given) : text(given) {}
    void Once() {
        Peer peer;
        peer.LoadText(text);
        sum = 0;
        for (size_t i = 0; i < kFields; ++i) sum += peer.Find(keys[i]);
    }
    uint64_t Result() const { return static_cast<uint64_t>(sum); }
    const std::wstring& text;
    const std::wstring keys[kFields] = {Key(1), Key(3), Key(4), Key(6)};
    int64_t sum = 0;
};

/// Four fields are put into a new object, whose text is then taken.
template <class Peer>
struct MessageBuilt {
    static constexpr const char* kName = Peer::kName;
    void Once() {
        peer.emplace();
        auto root = peer->RootObject();
        peer->AddInt(root, keys[0], 4711);
        peer->AddText(root, keys[1], value);
        peer->AddDouble(root, keys[2], 12.5);
        peer->AddInt(root, keys[3], -1);
        if (!peer->Write(Form::kText).data) throw std::runtime_error("no text was written");
    }
    uint64_t Result() { return peer->Walk(); }
    const std::wstring keys[kFields] = {Key(1), Key(3), Key(4), Key(6)};
    const std::wstring value = L"some short text";
    std::optional<Peer> peer;
};

uint64_t BuiltSum() {
    MessageBuilt<RapidJson> message;
    message.Once();
    return message.Result();
}

// ---- Rows --------------------------------------------------------------------------------------

/// An object of so many units, or a few less.
std::wstring TextOf(size_t units) {
    size_t members = 0;
    while (ObjectText(members + 1).size() <= units) ++members;
    std::wstring text = ObjectText(members);
    text.insert(text.size() - 1, units - text.size(), L' ');
    return text;
}

uint64_t SumOfText(const std::wstring& text) {
    RapidJson reader;
    reader.LoadText(text);
    return reader.Walk();
}

void RunLives(Bench& bench) {
    Table* table = bench.Begin({"small/life",
                                "an empty object parsed by RapidJSON; an object of the library "
                                "made and released, ns",
                                "",
                                1e9,
                                false,
                                {},
                                {}});
    if (!table) return;
    Job job = NewJob("once", ContainerSum(0));
    job.Add<RepeatContender<BareParse>>();
    job.Add<RepeatContender<ParserLife>>();
    job.Add<RepeatContender<GeneratorLife>>();
    job.Add<RepeatContender<PackageLife>>();
    bench.Run(*table, std::move(job));
}

void RunLoads(Bench& bench) {
    Table* table = bench.Begin(
        {"small/load", "a small document from UTF-16 text, ns", "units", 1e9, true, {}, {}});
    if (!table) return;
    for (const size_t units : {2, 30, 121, 500, 2000, 8000}) {
        const std::wstring text = TextOf(units);
        Job job = NewJob(Grouped(units), SumOfText(text));
        job.size = units;
        job.Add<RepeatContender<SmallLoad<RapidJson>>>(text);
        job.Add<RepeatContender<SmallLoad<LoadingParser>>>(text);
        job.Add<RepeatContender<SmallLoad<LoadingGenerator>>>(text);
        job.Add<RepeatContender<SmallLoad<Nlohmann>>>(text);
        job.Add<RepeatContender<SmallLoad<BoostJson>>>(text);
        bench.Run(*table, std::move(job));
    }
}

void RunMessages(Bench& bench) {
    Table* table = bench.Begin({"small/message",
                                "an object's life with one message of 121 units, ns",
                                "message",
                                1e9,
                                false,
                                {},
                                {}});
    if (!table) return;
    const std::wstring text = TextOf(121);
    Job read = NewJob("loaded, four fields read", 1 + 3 + 4 + 6);
    read.Add<RepeatContender<MessageRead<RapidJson>>>(text);
    read.Add<RepeatContender<MessageRead<ByHandle>>>(text);
    read.Add<RepeatContender<MessageRead<ByReference>>>(text);
    read.Add<RepeatContender<MessageRead<ByPath>>>(text);
    read.Add<RepeatContender<MessageRead<Nlohmann>>>(text);
    read.Add<RepeatContender<MessageRead<BoostJson>>>(text);
    bench.Run(*table, std::move(read));

    Job built = NewJob("four fields built, text taken", BuiltSum());
    built.Add<RepeatContender<MessageBuilt<RapidJson>>>();
    built.Add<RepeatContender<MessageBuilt<BuildByHandle>>>();
    built.Add<RepeatContender<MessageBuilt<BuildByReference>>>();
    built.Add<RepeatContender<MessageBuilt<BuildByPath>>>();
    built.Add<RepeatContender<MessageBuilt<Nlohmann>>>();
    built.Add<RepeatContender<MessageBuilt<BoostStore>>>();
    bench.Run(*table, std::move(built));
}

}  // namespace

void RunSmallJobs(Bench& bench) {
    RunLives(bench);
    RunLoads(bench);
    RunMessages(bench);
}

}  // namespace bench
