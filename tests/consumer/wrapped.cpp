// A host that leaves loading the DLL and looking up the factories to the layer in Json_Dll.hpp.

#include <Json_Dll.hpp>
#include <cstdio>

int main() {
    const QXJSON::hosting::Library library;
    if (!library) {
        std::printf("Json_Dll.dll was not found beside the program\n");
        return 1;
    }
    const auto parser = library.NewParser();
    const auto generator = library.NewGenerator();
    const auto package = library.NewPackage();
    if (parser && generator && package) return 0;
    std::printf("the factories make no objects\n");
    return 1;
}
