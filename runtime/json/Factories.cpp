#include <new>

#include "CJsonGenerator.h"
#include "CJsonPackage.h"
#include "CJsonParser.h"
#include "Json_Dll.h"

QXJSON::IJsonParser* CreateJsonParser() { return new (std::nothrow) QXJSON::CJsonParser; }

QXJSON::IJsonGenerator* CreateJsonGenerator() { return new (std::nothrow) QXJSON::CJsonGenerator; }

QXJSON::IJsonPackage* CreateJsonPackageInterface() {
    return new (std::nothrow) QXJSON::CJsonPackage;
}
