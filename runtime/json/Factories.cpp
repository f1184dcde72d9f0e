#include <new>

#include "CJsonGenerator.h"
#include "CJsonPackage.h"
#include "CJsonParser.h"
#include "Json_Dll.h"
#include "common/platform/Exceptions.h"

namespace {

template <class Facade>
Facade* Create() {
    auto* const facade = new (std::nothrow) Facade;
    if (facade) QXJSON::PrepareExceptions();
    return facade;
}

}  // namespace

QXJSON::IJsonParser* CreateJsonParser() { return Create<QXJSON::CJsonParser>(); }

QXJSON::IJsonGenerator* CreateJsonGenerator() { return Create<QXJSON::CJsonGenerator>(); }

QXJSON::IJsonPackage* CreateJsonPackageInterface() { return Create<QXJSON::CJsonPackage>(); }
