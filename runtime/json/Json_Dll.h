#pragma once

#include "IJsonGenerator.h"
#include "IJsonPackage.h"
#include "IJsonParser.h"

/// \file
/// The exports of Json_Dll.dll. A host either links with the import library or looks the names up
/// with GetProcAddress; they are undecorated C names.
///
/// Each call returns a new object that shares nothing with any other; its Release ends it. The
/// result is null when there is no memory for the object. When only a part of it could not be
/// allocated, the object is returned all the same and its operations return -5.
extern "C" {

/// Makes a parser with no document.
/// \return the parser; null without memory
QXJSON::IJsonParser* CreateJsonParser();

/// Makes a generator with no document: its root is null until one is created or loaded.
/// \return the generator; null without memory
QXJSON::IJsonGenerator* CreateJsonGenerator();

/// Makes a package without keys and without a delegate.
/// \return the package; null without memory
QXJSON::IJsonPackage* CreateJsonPackageInterface();
}
