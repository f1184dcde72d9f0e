#include "RoundTrip.h"

namespace fuzz {
namespace {

template <unsigned kFlags>
building::Document Parse(const std::wstring& text) {
    building::Document document;
    document.Parse<kFlags | rapidjson::kParseNanAndInfFlag>(text.c_str());
    return document;
}

}  // namespace

building::Document ParseExactly(const std::wstring& text) {
    return Parse<rapidjson::kParseFullPrecisionFlag>(text);
}

std::wstring ReadExactly(const std::wstring& text) { return building::TextOf(ParseExactly(text)); }

std::wstring ReadByDefault(const std::wstring& text) {
    return building::TextOf(Parse<rapidjson::kParseDefaultFlags>(text));
}

}  // namespace fuzz
