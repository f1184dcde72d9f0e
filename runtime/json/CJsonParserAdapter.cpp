#include "CJsonParserAdapter.h"

namespace QXJSON {

using Base = ParserOperations<AdapterLayer<IJsonParser, CRapidJsonParser>>;

int CJsonParserAdapter::LoadJsonBytes(const char* text, uint32_t length) {
    Renew();
    return Base::LoadJsonBytes(text, length);
}

int CJsonParserAdapter::LoadJsonString(const wchar_t* text) {
    Renew();
    return Base::LoadJsonString(text);
}

int CJsonParserAdapter::LoadJsonFile(const wchar_t* fileName) {
    Renew();
    return Base::LoadJsonFile(fileName);
}

int CJsonParserAdapter::Release() {
    ReleasePart(implementation);
    delete this;
    return kSuccess;
}

}  // namespace QXJSON
