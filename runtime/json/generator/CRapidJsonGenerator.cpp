#include "CRapidJsonGenerator.h"

#include "common/text/TextInput.h"
#include "common/values/Outputs.h"

namespace QXJSON {

constexpr TextRules kRules = {/*acceptNan=*/true, /*acceptNanInAnsi=*/true,
                              /*fileBufferSize=*/2048};
constexpr size_t kTextCapacity = 1024;

CRapidJsonGenerator::CRapidJsonGenerator() : textBuffer(&theHeap, kTextCapacity) {}

// ---- Roots -------------------------------------------------------------------------------------

int CRapidJsonGenerator::ResetRoot(rapidjson::Type type, uint64_t* value) {
    if (!value) return kPlainFailure;
    EnsureWritable(value);
    *value = reinterpret_cast<uintptr_t>(&builder.ReplaceRoot(JsonValue(type)));
    return kSuccess;
}

int CRapidJsonGenerator::CreateRoot(rapidjson::Type type, uint32_t* handle) {
    if (!handle) return kPlainFailure;
    EnsureWritable(handle);
    *handle = builder.StartAnew(JsonValue(type));
    return kSuccess;
}

// ---- Output ------------------------------------------------------------------------------------

int CRapidJsonGenerator::SaveToFile(const wchar_t* fileName, int32_t encoding) {
    return SaveFile(builder.Root(), Layout::kCompact, fileName, encoding) ? kSuccess
                                                                          : kPlainFailure;
}

int CRapidJsonGenerator::SaveToFileEx(const wchar_t* fileName, int32_t encoding, int32_t style) {
    const bool known = style == 0 || style == 1;
    return SaveFile(builder.Root(), Layout::kIndented, fileName, known ? encoding : kNoOutput)
               ? kSuccess
               : kPlainFailure;
}

int CRapidJsonGenerator::GetJsonString(const wchar_t** text) {
    if (!text) return kPlainFailure;
    *text = nullptr;
    textBuffer.Clear();
    if (!IsContainer(builder.Root()) || WriteText(builder.Root(), Layout::kCompact, textBuffer))
        *text = textBuffer.GetString();
    return kSuccess;
}

int CRapidJsonGenerator::GetJsonBytes(const uint8_t** data, uint64_t* length, int32_t encoding) {
    if (!data || !length) return kPlainFailure;
    *data = nullptr;
    if (!IsContainer(builder.Root())) return kPlainFailure;
    const std::string_view bytes = encodedText.Write(builder.Root(), Layout::kCompact, encoding);
    if (bytes.data()) EnsureWritable(length);
    *data = reinterpret_cast<const uint8_t*>(bytes.data());
    if (*data) *length = bytes.size();
    return kSuccess;
}

// ---- Parsed JSON -------------------------------------------------------------------------------

/// Parses JSON whose root must be an object or array. Another root is kWrongKind. Text that does
/// not parse is kPlainFailure; a file that does not parse is kWrongKind.
int CRapidJsonGenerator::Parse(Source source, const wchar_t* nameOrText, JsonDocument& parsed) {
    const LoadStatus status = source == Source::File ? LoadFile(parsed, nameOrText, kRules)
                                                     : LoadText(parsed, nameOrText, kRules);
    if (source == Source::Text && status.code != kNoError) return kPlainFailure;
    return IsContainer(parsed) ? kSuccess : static_cast<int>(kWrongKind);
}

int CRapidJsonGenerator::Load(Source source, const wchar_t* nameOrText, uint32_t* handle) {
    if (!handle) return kPlainFailure;
    DocumentPool::Annex annex(builder.Pool());
    ReadDocument parsed(annex.Allocator());
    const int result = Parse(source, nameOrText, parsed);
    if (result != kSuccess) return result;
    // The output is the caller's memory, looked at while the parsed document is alive.
    RethrowFaults([&] { EnsureWritable(handle); });
    *handle = builder.StartAnew(DocumentItem(parsed, annex).Make(builder.Allocator()));
    return kSuccess;
}

int CRapidJsonGenerator::Graft(const Parent& parent, const Spot& spot, Source source,
                               const wchar_t* nameOrText, uint32_t* handle) {
    if (!parent.known) return parent.Absence();
    if (!handle) return kPlainFailure;
    const bool fits = parent.value && parent.value->GetType() == spot.parentType;
    // Text for a parent by handle is parsed before the parent's kind counts; everything else after.
    const bool textByHandle = source == Source::Text && parent.naming == Parent::Naming::kHandle;
    if (!fits && !textByHandle) return kPlainFailure;
    DocumentPool::Annex annex(builder.Pool());
    ReadDocument parsed(annex.Allocator());
    int result = Parse(source, nameOrText, parsed);
    if (result != kSuccess) return result;
    if (!fits) return kPlainFailure;
    const DocumentItem item(parsed, annex);
    // The key and the output are the caller's memory, used while the parsed document is alive.
    RethrowFaults([&] {
        result = spot.parentType == rapidjson::kObjectType
                     ? builder.AddMember(parent, spot.key, item, handle)
                     : builder.Append(parent, item, handle);
    });
    return result;
}

}  // namespace QXJSON
