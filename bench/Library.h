#pragma once

#include <memory>

#include "Json_Dll.h"

namespace host {

/// Ends an object of the library through its interface.
struct Releaser {
    template <class Interface>
    void operator()(Interface* object) const {
        object->Release();
    }
};

using Parser = std::unique_ptr<QXJSON::IJsonParser, Releaser>;
using Generator = std::unique_ptr<QXJSON::IJsonGenerator, Releaser>;
using Package = std::unique_ptr<QXJSON::IJsonPackage, Releaser>;

// New objects from the DLL, which is loaded from the program's own folder on the first call. A
// program without the library, or without memory, has nothing to do: these throw
// std::runtime_error.

Parser NewParser();
Generator NewGenerator();
Package NewPackage();

/// Throws std::runtime_error, with the name of the step, when an operation did not answer 1.
void Expect(int result, const char* step);

}  // namespace host
