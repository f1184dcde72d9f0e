#include <new>

#include "CJsonParser.h"
#include "Json_Dll.h"

QXJSON::IJsonParser* CreateJsonParser() { return new (std::nothrow) QXJSON::CJsonParser; }
