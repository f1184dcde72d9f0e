#include "ParserReference.h"

#include "PlainReader.h"

namespace model {
namespace {

using support::Failure;
using support::LoadOutcome;
using support::Success;

constexpr int kDocumentEmpty = 1;
constexpr int kInvalidValue = 3;
constexpr int kEmptyText = 21;

LoadOutcome Judge(const Document& document) {
    if (document.HasParseError())
        return Failure(document.GetParseError(), document.GetErrorOffset());
    if (!document.IsObject() && !document.IsArray()) return Failure(kInvalidValue, 0);
    return Success(building::TextOf(document));
}

/// Empty text has a code of its own; an empty file keeps RapidJSON's.
LoadOutcome JudgeText(const Document& document) {
    const LoadOutcome outcome = Judge(document);
    return outcome.code == kDocumentEmpty ? Failure(kEmptyText, 0) : outcome;
}

}  // namespace

LoadOutcome ReferenceLoadBytes(const std::string& bytes) {
    return JudgeText(ReadBytes(kParserLoads, bytes));
}

LoadOutcome ReferenceLoadText(const std::wstring& text) {
    return JudgeText(ReadText(kParserLoads, text));
}

LoadOutcome ReferenceLoadFile(const wchar_t* fileName) {
    return Judge(ReadFile(kParserLoads, fileName));
}

}  // namespace model
