#include "Library.h"

#include <vector>

#include "LogFile.h"
#include "Module.h"
#include "Recorded.h"
#include "calls/Memory.h"

namespace record {
namespace {

INIT_ONCE g_once = INIT_ONCE_STATIC_INIT;
RealLibrary g_library = {};
Extent g_extent;

/// The version in a module's resources, as two numbers.
void ReadVersion(HMODULE module, uint32_t version[2]) {
    HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
    HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const auto* const bytes = static_cast<const uint8_t*>(loaded ? LockResource(loaded) : nullptr);
    if (!bytes) return;
    // The fixed part begins with its signature, after a head and a name.
    for (size_t at = 0; at + sizeof(VS_FIXEDFILEINFO) <= SizeofResource(module, found); at += 4) {
        const auto info = Load<VS_FIXEDFILEINFO>(bytes + at);
        if (info.dwSignature != VS_FFI_SIGNATURE) continue;
        version[0] = info.dwFileVersionMS;
        version[1] = info.dwFileVersionLS;
        return;
    }
}

BOOL CALLBACK Begin(INIT_ONCE*, void*, void**) {
    const Settings settings = ReadSettings(TheModule());
    g_library.module = LoadLibraryW(settings.library.c_str());
    if (!g_library.module || g_library.module == TheModule()) {
        g_library.module = nullptr;
        Complain(L"Json_Dll_Record: " + settings.library + L" is not the library");
        return TRUE;
    }
    g_extent.hashed = settings.hashed;
    LimitFiles(settings.fileLimit);
    uint32_t version[2] = {};
    ReadVersion(g_library.module, version);
    if (!TheLog().Create(settings.log, settings.limit, settings.hashed ? kHashed : 0, version))
        Complain(L"Json_Dll_Record: cannot create " + settings.log);
    return TRUE;
}

}  // namespace

const RealLibrary& TheLibrary() {
    const KeptLastError kept;
    InitOnceExecuteOnce(&g_once, &Begin, nullptr, nullptr);
    return g_library;
}

const Extent& TheExtent() { return g_extent; }

void Complain(const std::wstring& message) { OutputDebugStringW((message + L"\n").c_str()); }

}  // namespace record
