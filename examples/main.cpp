// json_host FILE [ITEM_PATH]: shows what the library makes of a JSON file, and what else it can do.

#include <exception>

#include "Console.h"
#include "Modes.h"

int wmain(int count, wchar_t* arguments[]) {
    if (count < 2 || count > 3) {
        host::Print(L"usage: json_host FILE [ITEM_PATH]\n");
        return 2;
    }
    try {
        host::Print(L"== Reading a file\n");
        bool well = host::ShowFile(arguments[1], count > 2 ? arguments[2] : nullptr);
        if (!well) return 1;
        host::Print(L"\n== Encodings and failures\n");
        well = host::ShowEncodings() && well;
        host::Print(L"\n== Building an order, with the file grafted in\n");
        well = host::ShowBuilding(arguments[1]) && well;
        host::Print(L"\n== A package\n");
        well = host::ShowPackage() && well;
        return well ? 0 : 1;
    } catch (const std::exception& failure) {
        host::Print(L"%hs\n", failure.what());
        return 1;
    }
}
