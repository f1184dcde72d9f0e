#include <new>

#include "CJsonGenerator.h"
#include "CJsonPackage.h"
#include "CJsonParser.h"
#include "Json_Dll.h"

namespace {

/// Has the compiler's runtime set up what it needs for exceptions on this thread, while there is
/// memory for it. GCC's takes some for the first exception of a process and of a thread, and ends
/// the process when it gets none: the first failure of an object may well be a lack of memory.
void PrepareExceptions() {
    try {
        throw 0;
    } catch (int) {
    }
}

template <class Facade>
Facade* Create() {
    auto* const facade = new (std::nothrow) Facade;
    if (facade) PrepareExceptions();
    return facade;
}

}  // namespace

QXJSON::IJsonParser* CreateJsonParser() { return Create<QXJSON::CJsonParser>(); }

QXJSON::IJsonGenerator* CreateJsonGenerator() { return Create<QXJSON::CJsonGenerator>(); }

QXJSON::IJsonPackage* CreateJsonPackageInterface() { return Create<QXJSON::CJsonPackage>(); }
