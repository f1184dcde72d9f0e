#pragma once

#include "Layers.h"
#include "ParserOperations.h"
#include "parser/CRapidJsonParser.h"

namespace QXJSON {

/// The parser's adapter: every load starts from a brand-new implementation, so that nothing of an
/// earlier document, its handles, its error or its buffers is left.
class CJsonParserAdapter final
    : public ParserOperations<AdapterLayer<IJsonParser, CRapidJsonParser>> {
public:
    int LoadJsonBytes(const char* text, uint32_t length) override;
    int LoadJsonString(const wchar_t* text) override;
    int LoadJsonFile(const wchar_t* fileName) override;
    int Release() override;
};

}  // namespace QXJSON
