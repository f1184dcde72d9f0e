#include <windows.h>

/// The library's own module. Nothing in the library reads it: it is volatile so that it is there
/// all the same, for a debugger.
static volatile HINSTANCE libraryModule;

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH || reason == DLL_THREAD_ATTACH) libraryModule = module;
    return TRUE;
}
