#pragma once

#include "CJsonParserAdapter.h"

namespace QXJSON {

/// The parser that the runtime holds.
class CJsonParser final : public ParserOperations<FacadeLayer<IJsonParser, CJsonParserAdapter>> {
public:
    int Release() override;
};

}  // namespace QXJSON
