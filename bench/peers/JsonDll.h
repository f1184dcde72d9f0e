#pragma once

#include <stdexcept>
#include <string>

#include "Json_Dll.hpp"

namespace bench {

namespace hosting = QXJSON::hosting;

/// The library, loaded from the program's folder when it is first asked for.
inline const hosting::Library& TheLibrary() {
    static const hosting::Library library;
    if (!library) throw std::runtime_error("Json_Dll.dll was not found beside the program");
    return library;
}

/// All results of the library are looked at: a host would.
inline void Expect(int result, const char* step) {
    if (result != 1)
        throw std::runtime_error(std::string(step) + " returned " + std::to_string(result));
}

}  // namespace bench
