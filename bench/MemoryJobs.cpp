// What a document costs in memory: the bytes that its owner has allocated and not given back.

#include <windows.h>

#include <malloc.h>

#include <cstdlib>
#include <optional>
#include <stdexcept>

#include "Documents.h"
#include "Jobs.h"
#include "Text.h"
#include "peers/All.h"
#include "support/ImportPatch.h"

namespace bench {
namespace {

// The library and this program, which contains the others, import the same functions of the C
// runtime, so that all are counted alike. The counters go to the runtime past the imports, for
// those of this program lead to the counters.
template <class Function>
Function* Original(const char* name, Function*) {
    static const HMODULE runtime = GetModuleHandleW(L"msvcrt.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(runtime, name)));
}

const auto g_malloc = Original("malloc", &std::malloc);
const auto g_calloc = Original("calloc", &std::calloc);
const auto g_realloc = Original("realloc", &std::realloc);
const auto g_free = Original("free", &std::free);

ptrdiff_t g_live = 0;

ptrdiff_t SizeOf(void* block) { return block ? static_cast<ptrdiff_t>(_msize(block)) : 0; }

void* Counted(void* block) {
    g_live += SizeOf(block);
    return block;
}

void* Malloc(size_t size) { return Counted(g_malloc(size)); }
void* Calloc(size_t count, size_t size) { return Counted(g_calloc(count, size)); }
void* Realloc(void* block, size_t size) {
    g_live -= SizeOf(block);
    return Counted(g_realloc(block, size));
}
void Free(void* block) {
    g_live -= SizeOf(block);
    g_free(block);
}

/// Counts the bytes that a module holds, from now on.
class HeapMeter {
public:
    explicit HeapMeter(HMODULE module)
        : malloc(module, "malloc", &Malloc),
          calloc(module, "calloc", &Calloc),
          realloc(module, "realloc", &Realloc),
          free(module, "free", &Free) {
        if (!malloc.Found() || !free.Found())
            throw std::runtime_error("a module's allocations cannot be counted");
        g_live = 0;
    }
    size_t Live() const { return static_cast<size_t>(g_live); }

private:
    support::ImportPatch malloc, calloc, realloc, free;
};

HMODULE ModuleOf(const RapidJson*) { return GetModuleHandleW(nullptr); }
HMODULE ModuleOf(const Nlohmann*) { return GetModuleHandleW(nullptr); }
HMODULE ModuleOf(const BoostJson*) { return GetModuleHandleW(nullptr); }
HMODULE ModuleOf(const DllReader*) { return GetModuleHandleW(L"Json_Dll.dll"); }

struct Use {
    size_t loaded = 0, read = 0;
};

template <class Peer>
Use Measured(const Document& document) {
    const HeapMeter meter(ModuleOf(static_cast<Peer*>(nullptr)));
    Use use;
    Peer peer;
    peer.LoadBytes(document.utf8);
    use.loaded = meter.Live();
    peer.Walk();
    use.read = meter.Live();
    return use;
}

/// Puts a use into the last row of the table.
void Put(Table& table, const std::string& contender, size_t bytes, size_t floor) {
    // The check: each of them holds at least a few bytes for each value, and none holds a gigabyte.
    if (bytes < 100000 || bytes > 1u << 30)
        throw std::runtime_error(table.key + ": " + contender + " holds " + std::to_string(bytes));
    table.Put(contender, {static_cast<double>(bytes) / 1e6,
                          static_cast<double>(bytes) / static_cast<double>(floor), 1});
}

}  // namespace

void RunMemoryJobs(Bench& bench) {
    Table* table =
        bench.Begin({"memory", "a document in memory, MB", "document", 1, false, {}, {}});
    if (!table) return;
    TheLibrary();
    for (const Document& document : LargeDocuments()) {
        const size_t floor = Measured<RapidJson>(document).loaded;
        const Use handle = Measured<ByHandle>(document);
        const Use reference = Measured<ByReference>(document);
        table->rows.push_back({document.name, 0, {}});
        Put(*table, "RapidJSON", floor, floor);
        Put(*table, "Json_Dll", handle.loaded, floor);
        Put(*table, "Json_Dll, read by handle", handle.read, floor);
        Put(*table, "Json_Dll, read by reference", reference.read, floor);
        Put(*table, "nlohmann", Measured<Nlohmann>(document).loaded, floor);
        Put(*table, "Boost.JSON", Measured<BoostJson>(document).loaded, floor);
    }
}

}  // namespace bench
