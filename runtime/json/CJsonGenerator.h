#pragma once

#include "CJsonGeneratorAdapter.h"

namespace QXJSON {

/// The generator that the runtime holds.
class CJsonGenerator final
    : public GeneratorOperations<FacadeLayer<IJsonGenerator, CJsonGeneratorAdapter>> {
public:
    int Release() override;
};

}  // namespace QXJSON
