#include "CRapidJsonParser.h"

#include "common/platform/FaultGuard.h"
#include "common/search/ItemPath.h"
#include "common/text/TextOutput.h"

namespace QXJSON {

constexpr TextRules kRules = {/*acceptNan=*/true, /*acceptNanInAnsi=*/false,
                              /*fileBufferSize=*/1024};
constexpr size_t kTextCapacity = 1024;

CRapidJsonParser::CRapidJsonParser() : textBuffer(&theHeap, kTextCapacity) {}

// ---- Loading -----------------------------------------------------------------------------------

/// Has `load` read the document. There was none before: a parser has a new one of these for each
/// load.
template <class Load>
LoadStatus CRapidJsonParser::Read(const Load& load) {
    wasLoaded = true;
    ReadDocument parsed(pool.Allocator());
    const LoadStatus loaded = load(parsed);
    if (loaded.code == kNoError) document.Swap(parsed);
    return loaded;
}

int CRapidJsonParser::LoadJsonBytes(const char* text, uint32_t length) {
    return FinishTextLoad(
        Read([&](JsonDocument& parsed) { return LoadBytes(parsed, text, length, kRules); }));
}

int CRapidJsonParser::LoadJsonString(const wchar_t* text) {
    return FinishTextLoad(
        Read([&](JsonDocument& parsed) { return LoadText(parsed, text, kRules); }));
}

int CRapidJsonParser::LoadJsonFile(const wchar_t* fileName) {
    return FinishLoad(
        Read([&](JsonDocument& parsed) { return LoadFile(parsed, fileName, kRules); }));
}

/// Records how a load went, and refuses a root that is neither object nor array.
int CRapidJsonParser::FinishLoad(const LoadStatus& loaded) {
    status = loaded;
    if (status.code == kNoError && !IsContainer(document)) status = {kInvalidValue};
    return status.code == kNoError ? kSuccess : kPlainFailure;
}

/// The same for text in memory, where an empty document is reported as an empty string.
int CRapidJsonParser::FinishTextLoad(const LoadStatus& loaded) {
    return FinishLoad(loaded.code == kDocumentEmpty ? LoadStatus{kEmptyText} : loaded);
}

int CRapidJsonParser::GetErrorOffset(uint64_t* offset) {
    if (!offset) return kPlainFailure;
    *offset = status.offset;
    return kSuccess;
}

int CRapidJsonParser::GetErrorMessage(const wchar_t** text) {
    return text && messageBuffer.FetchMessage(status.code, text) ? kSuccess : kPlainFailure;
}

// ---- Places ------------------------------------------------------------------------------------

Place CRapidJsonParser::Root() {
    return {IsContainer(document) ? &document : nullptr, kPlainFailure};
}

Place CRapidJsonParser::UntestedItem(uint32_t handle) const {
    const Place item = Item(handle);
    if (!item.value) RaiseAccessViolation();
    return item;
}

Place CRapidJsonParser::AtPath(const wchar_t* path) {
    return {ResolveItemPath(members, document, path), kBadPath};
}

// ---- Texts, blobs, variants --------------------------------------------------------------------

int CRapidJsonParser::Write(const Place& place, KindTest kind, const wchar_t** text) {
    if (!place.value) return place.absence;
    if (!text || !kind(*place.value)) return kPlainFailure;
    WriteText(*place.value, Layout::kCompact, textBuffer);
    *text = textBuffer.GetString();
    return kSuccess;
}

int CRapidJsonParser::WriteMember(uint32_t handle, const wchar_t* key, KindTest kind,
                                  const wchar_t** text) {
    const Place object = UntestedItem(handle);
    if (!key) return kPlainFailure;
    const MemberRequest request{key, text != nullptr, kPlainFailure, kPlainFailure};
    return Write(FindMember(members, object, request), kind, text);
}

int CRapidJsonParser::ReadVariant(const Place& place, const wchar_t* key, JsonVariant* variant) {
    Place source = place;
    if (key) source = FindMember(members, place, {key, variant != nullptr, kNoMember});
    if (!source.value) return source.absence;
    if (!variant) return kPlainFailure;
    const wchar_t* text = nullptr;
    if (Get<String>(source, &text) == kSuccess) {
        EnsureWritable(variant);
        variant->tag = kVariantText;
        variant->text = text;
        return kSuccess;
    }
    int64_t number = 0;
    const int result = Get<Int64>(source, &number);
    if (result == kSuccess) {
        EnsureWritable(variant);
        variant->tag = kVariantInt64;
        variant->number = number;
    }
    return result;
}

}  // namespace QXJSON
