#pragma once

#include <Json_Dll.h>

/// The three exports of the DLL, however a host came by them.
struct Factories {
    QXJSON::IJsonParser* (*createParser)();
    QXJSON::IJsonGenerator* (*createGenerator)();
    QXJSON::IJsonPackage* (*createPackage)();
};

/// Builds a document, reads it and keeps it in a package. Prints what is not as it should be, and
/// returns whether everything was.
bool UseLibrary(const Factories& factories);
