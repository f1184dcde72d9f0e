// Replaces the imports of a loaded module in its global offset table, which is writable because the
// module is linked so.
#include <elf.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstring>

#include "ImportPatch.h"

namespace support {
namespace {

/// The parts of a module's dynamic section that name its imports.
struct Dynamic {
    explicit Dynamic(const link_map& module) {
        for (const ElfW(Dyn)* entry = module.l_ld; entry->d_tag != DT_NULL; ++entry) {
            if (entry->d_tag == DT_SYMTAB) symbols = At<ElfW(Sym)>(*entry);
            if (entry->d_tag == DT_STRTAB) names = At<char>(*entry);
            if (entry->d_tag == DT_RELA) data = At<ElfW(Rela)>(*entry);
            if (entry->d_tag == DT_RELASZ) dataSize = entry->d_un.d_val;
            if (entry->d_tag == DT_JMPREL) calls = At<ElfW(Rela)>(*entry);
            if (entry->d_tag == DT_PLTRELSZ) callsSize = entry->d_un.d_val;
        }
    }

    template <class Part>
    static const Part* At(const ElfW(Dyn) & entry) {
        return reinterpret_cast<const Part*>(entry.d_un.d_ptr);
    }

    /// Whether a relocation fills a slot with the address of the function of that name.
    bool IsNamed(const ElfW(Rela) & relocation, const char* name) const {
        const auto type = ELF64_R_TYPE(relocation.r_info);
        if (type != R_X86_64_JUMP_SLOT && type != R_X86_64_GLOB_DAT) return false;
        return std::strcmp(names + symbols[ELF64_R_SYM(relocation.r_info)].st_name, name) == 0;
    }

    template <class Act>
    void ForEachRelocation(const Act& act) const {
        for (size_t i = 0; i < dataSize / sizeof *data; ++i) act(data[i]);
        for (size_t i = 0; i < callsSize / sizeof *calls; ++i) act(calls[i]);
    }

    const ElfW(Sym) * symbols = nullptr;
    const char* names = nullptr;
    const ElfW(Rela) * data = nullptr;
    const ElfW(Rela) * calls = nullptr;
    size_t dataSize = 0;
    size_t callsSize = 0;
};

}  // namespace

void ImportPatch::Apply(HMODULE module, const char* name, void* replacement) {
    ASSERT_NE(GetModuleHandleW(nullptr), module)
        << "a test that replaces imports needs the library as a module: see tests/CMakeLists.txt";
    const auto& loaded = *static_cast<const link_map*>(module);
    const Dynamic dynamic(loaded);
    dynamic.ForEachRelocation([&](const ElfW(Rela) & relocation) {
        if (!dynamic.IsNamed(relocation, name)) return;
        auto** const slot = reinterpret_cast<void**>(loaded.l_addr + relocation.r_offset);
        entries.push_back({slot, *slot});
        *slot = replacement;
    });
}

ImportPatch::~ImportPatch() {
    for (const Entry& entry : entries) *entry.slot = entry.original;
}

}  // namespace support
