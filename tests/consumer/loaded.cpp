// A host that loads the DLL at run time, as the runtime does.

#include <windows.h>

#include <cstdio>

#include "Use.h"

namespace {

template <class Function>
void Find(HMODULE library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

int main() {
    const HMODULE library = LoadLibraryW(L"Json_Dll.dll");
    if (!library) {
        std::printf("Json_Dll.dll was not found beside the program\n");
        return 1;
    }
    Factories factories = {};
    Find(library, "CreateJsonParser", factories.createParser);
    Find(library, "CreateJsonGenerator", factories.createGenerator);
    Find(library, "CreateJsonPackageInterface", factories.createPackage);
    if (!factories.createParser || !factories.createGenerator || !factories.createPackage) {
        std::printf("Json_Dll.dll lacks an export\n");
        return 1;
    }
    const bool well = UseLibrary(factories);
    FreeLibrary(library);
    return well ? 0 : 1;
}
