#pragma once

#include "GeneratorOperations.h"
#include "Layers.h"
#include "generator/CRapidJsonGenerator.h"

namespace QXJSON {

/// The generator's adapter. The four operations that create a root start from a brand-new
/// implementation, and a double or float without a fraction is added as a 64-bit integer by the
/// operations that name the parent by reference or handle.
class CJsonGeneratorAdapter final
    : public GeneratorOperations<AdapterLayer<IJsonGenerator, CRapidJsonGenerator>> {
public:
    int ResetRootObjectValue(uint64_t* value) override;
    int CreateRootObject(uint32_t* handle) override;
    int ResetRootArrayValue(uint64_t* value) override;
    int CreateRootArray(uint32_t* handle) override;

    int AddObjectValueDouble(uint64_t parent, const wchar_t* key, double number,
                             uint64_t* value) override;
    int AddArrayValueDouble(uint64_t parent, double number, uint64_t* value) override;
    int AddObjectValueFloat(uint64_t parent, const wchar_t* key, float number,
                            uint64_t* value) override;
    int AddArrayValueFloat(uint64_t parent, float number, uint64_t* value) override;
    int AddObjectItemDouble(int32_t parent, const wchar_t* key, double number,
                            uint32_t* handle) override;
    int AddArrayItemDouble(int32_t parent, double number, uint32_t* handle) override;
    int AddObjectItemFloat(int32_t parent, const wchar_t* key, float number,
                           uint32_t* handle) override;
    int AddArrayItemFloat(int32_t parent, float number, uint32_t* handle) override;

    int Release() override;
};

}  // namespace QXJSON
