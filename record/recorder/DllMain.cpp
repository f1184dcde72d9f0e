#include <windows.h>

#include "LogFile.h"
#include "Module.h"

static HMODULE ownModule;

namespace record {

HMODULE TheModule() { return ownModule; }

}  // namespace record

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) ownModule = module;
    if (reason == DLL_THREAD_DETACH) record::LeaveTape();
    if (reason == DLL_PROCESS_DETACH) record::TheLog().Close();
    return TRUE;
}
