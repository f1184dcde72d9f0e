#include "ImportPatch.h"

#include <cstdlib>
#include <cstring>

namespace support {
namespace {

/// The module that does the work of another one: where the DLL under test only passes calls on, as
/// a recorder does, the environment variable JSON_TEST_WORKER names the DLL that it passes them to.
/// The program itself does its own work.
HMODULE WorkerOf(HMODULE module) {
    const wchar_t* const named = _wgetenv(L"JSON_TEST_WORKER");
    return named && module != GetModuleHandleW(nullptr) ? LoadLibraryW(named) : module;
}

template <class Part>
Part* At(HMODULE module, size_t offset) {
    return reinterpret_cast<Part*>(reinterpret_cast<char*>(module) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* ImportsOf(HMODULE module) {
    const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<size_t>(dos->e_lfanew));
    const auto& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    return At<IMAGE_IMPORT_DESCRIPTOR>(module, table.VirtualAddress);
}

void Write(void** slot, void* value) {
    DWORD before = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before);
    *slot = value;
    VirtualProtect(slot, sizeof *slot, before, &before);
}

bool IsNamed(HMODULE module, const IMAGE_THUNK_DATA& thunk, const char* name) {
    if (IMAGE_SNAP_BY_ORDINAL(thunk.u1.Ordinal)) return false;
    const auto* import = At<IMAGE_IMPORT_BY_NAME>(module, thunk.u1.AddressOfData);
    return std::strcmp(reinterpret_cast<const char*>(import->Name), name) == 0;
}

}  // namespace

void ImportPatch::Apply(HMODULE patched, const char* name, void* replacement) {
    HMODULE const module = WorkerOf(patched);
    for (const auto* library = ImportsOf(module); library->Name != 0; ++library) {
        const auto* names = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        void** slot = At<void*>(module, library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++slot) {
            if (!IsNamed(module, *names, name)) continue;
            entries.push_back({slot, *slot});
            Write(slot, replacement);
        }
    }
}

ImportPatch::~ImportPatch() {
    for (const Entry& entry : entries) Write(entry.slot, entry.original);
}

}  // namespace support
