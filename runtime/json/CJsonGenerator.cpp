#include "CJsonGenerator.h"

namespace QXJSON {

int CJsonGenerator::Release() {
    ReleasePart(adapter);
    delete this;
    return kSuccess;
}

}  // namespace QXJSON
