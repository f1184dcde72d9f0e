#pragma once

#include <string>

#include "Json_Dll.hpp"

namespace tool {

// The library is loaded from the program's own folder on the first call. Misuse is thrown where it
// is not there, hosting::Error where there is no memory for an object.

QXJSON::hosting::Parser NewParser();
QXJSON::hosting::Generator NewGenerator();
QXJSON::hosting::Package NewPackage();

/// The version in the library's resources.
std::wstring LibraryVersion();

}  // namespace tool
