#include "Json_Dll.hpp"

#include <cstdio>

int main() {
    const QXJSON::hosting::Library library;  // Json_Dll.dll, beside the program
    const auto parser = library.NewParser().Get();
    parser.Load(L"{\"list\":[10,20]}").Get();
    std::printf("%d\n", parser.As<int>(L"/list/2").Get());  // 20: item paths count from 1
}
