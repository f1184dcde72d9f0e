#include <windows.h>

/// The library's own module. Nothing reads it; a debugger finds it here.
static HINSTANCE libraryModule;

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH || reason == DLL_THREAD_ATTACH) libraryModule = module;
    return TRUE;
}
