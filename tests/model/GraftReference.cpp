#include "GraftReference.h"

namespace model {
namespace {

Taken::Kind KindOf(const Document& document) {
    if (document.HasParseError()) return Taken::kBroken;
    return document.IsObject() || document.IsArray() ? Taken::kContainer : Taken::kScalar;
}

}  // namespace

Taken ReferenceTake(const support::Operation& route, const support::GraftSource& source) {
    Document document = ReadsFile(route) ? ReadFile(kGeneratorLoads, source.Argument())
                                         : ReadText(kGeneratorLoads, source.Argument());
    const Taken::Kind kind = KindOf(document);
    return {kind, std::move(document)};
}

}  // namespace model
