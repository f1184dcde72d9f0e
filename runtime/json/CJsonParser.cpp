#include "CJsonParser.h"

namespace QXJSON {

int CJsonParser::Release() {
    ReleasePart(adapter);
    delete this;
    return kSuccess;
}

}  // namespace QXJSON
