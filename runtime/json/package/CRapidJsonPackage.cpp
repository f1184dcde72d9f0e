#include "CRapidJsonPackage.h"

#include "common/platform/FaultGuard.h"
#include "common/text/Base64.h"
#include "common/values/Outputs.h"
#include "common/values/WholeNumber.h"

namespace QXJSON {

constexpr TextRules kRules = {/*acceptNan=*/false, /*acceptNanInAnsi=*/false,
                              /*fileBufferSize=*/1024};
constexpr size_t kTextCapacity = 1024;

CRapidJsonPackage::CRapidJsonPackage() : textBuffer(&theHeap, kTextCapacity) {}

// ---- Loading -----------------------------------------------------------------------------------

int CRapidJsonPackage::LoadString(const wchar_t* text) {
    return Load([&](JsonDocument& parsed) { return LoadText(parsed, text, kRules); });
}

int CRapidJsonPackage::LoadFile(const wchar_t* fileName) {
    return Load([&](JsonDocument& parsed) { return QXJSON::LoadFile(parsed, fileName, kRules); });
}

/// A host may read names and texts for as long as their key stays, while members move when others
/// come and go.
void CRapidJsonPackage::SettleStrings() {
    for (auto& member : document.GetObject()) {
        SettleString(member.name, allocator);
        SettleString(member.value, allocator);
    }
}

/// Loads what `parse` parses, and records how that went. After an error the package is what it was
/// before; a root that is not an object leaves it empty, although an array counts as loaded.
template <class Parse>
int CRapidJsonPackage::Load(const Parse& parse) {
    wasLoaded = true;
    ReadDocument parsed(allocator);
    const LoadStatus loaded = parse(parsed);
    if (loaded.code == kNoError) document.Swap(parsed);
    members.Clear();
    status = loaded.code == kDocumentEmpty ? LoadStatus{kEmptyText} : loaded;
    const bool container = status.code == kNoError && IsContainer(document);
    if (!document.IsObject()) {
        document.SetObject();
        allocator.Clear();
        status = {kRootNotObject};
    }
    SettleStrings();
    return container ? kSuccess : kPlainFailure;
}

int CRapidJsonPackage::GetErrorOffset(size_t* offset) {
    if (!offset) return kPlainFailure;
    *offset = static_cast<size_t>(status.offset);
    return kSuccess;
}

int CRapidJsonPackage::GetErrorMessage(const wchar_t** text) {
    const wchar_t* const message = text ? scratchBuffer.CopyMessage(status.code) : nullptr;
    if (!message) return kPlainFailure;
    *text = message;
    return kSuccess;
}

// ---- Keys --------------------------------------------------------------------------------------

int CRapidJsonPackage::ContainsKey(const wchar_t* key, bool* found) {
    if (found) *found = false;
    if (!key) return kNoMember;
    if (!found || !Find(key)) return kPlainFailure;
    *found = true;
    return kSuccess;
}

int CRapidJsonPackage::RemoveAll() {
    document.RemoveAllMembers();
    members.Clear();
    return kSuccess;
}

int CRapidJsonPackage::RemoveKey(const wchar_t* key) {
    if (!key) return kNoMember;
    JsonMember* const member = Find(key);
    if (!member) return kPlainFailure;
    members.Remove(document, *member);
    return kSuccess;
}

int CRapidJsonPackage::SetIgnoreCase(uint32_t flag) {
    ignoreCase = flag;
    return kSuccess;
}

int CRapidJsonPackage::GetIgnoreCase(uint32_t* flag) {
    if (!flag) return kPlainFailure;
    *flag = ignoreCase;
    return kSuccess;
}

// ---- Setting values ----------------------------------------------------------------------------

/// Adds a key, or replaces its value; a key that is there keeps its place and its spelling.
template <class Item>
int CRapidJsonPackage::Set(const wchar_t* key, const Item& item) {
    if (!key) return kNoMember;
    if (!item.HasText()) return kNoText;
    // The caller's memory is read first: if it cannot be read, no memory of the pool is used up.
    JsonMember* const member = Find(key);
    JsonValue value = item.Make(allocator);
    SettleString(value, allocator);
    if (member) {
        member->value = value;
        return kSuccess;
    }
    const JsonMember* const before = document.MemberBegin().operator->();
    JsonValue name = MakeName(key, allocator);
    SettleString(name, allocator);
    PutMember(document, std::move(name), std::move(value), allocator);
    const JsonMember* const after = document.MemberBegin().operator->();
    if (after != before) members.Moved(before, after);
    return kSuccess;
}

int CRapidJsonPackage::SetValueString(const wchar_t* key, const wchar_t* text) {
    return Set(key, TextItem(text));
}

int CRapidJsonPackage::SetValueBoolean(const wchar_t* key, bool flag) {
    return Set(key, BooleanItem(flag));
}

int CRapidJsonPackage::SetValue(const wchar_t* key, const wchar_t* value, bool valueIsJson) {
    if (!valueIsJson) return Set(key, TextItem(value));
    if (!key) return kNoMember;
    if (!value) return kNoText;
    DocumentPool::Annex annex(pool);
    ReadDocument parsed(annex.Allocator());
    LoadText(parsed, value, kRules);
    int result = kPlainFailure;
    // The key is the caller's memory, read while the parsed document is alive.
    if (IsContainer(parsed)) RethrowFaults([&] { result = Set(key, DocumentItem(parsed, annex)); });
    return result;
}

int CRapidJsonPackage::SetValueNumber(const wchar_t* key, double number) {
    const auto whole = AsWholeNumber(number);
    return whole ? Set(key, NumberItem(*whole)) : Set(key, NumberItem(number));
}

int CRapidJsonPackage::SetValueVariant(const wchar_t* key, const JsonVariant* variant) {
    const bool isText = variant && variant->tag == kVariantText && variant->text;
    return isText ? SetValueString(key, variant->text) : static_cast<int>(kWrongKind);
}

int CRapidJsonPackage::SetValueVariantEx(const wchar_t* key, const JsonVariant* variant) {
    if (variant && variant->tag == kVariantInt64)
        return SetValueNumber(key, static_cast<double>(variant->number));
    return SetValueVariant(key, variant);
}

int CRapidJsonPackage::SetValueBlob(const wchar_t* key, const uint8_t* data, uint32_t length) {
    if (!key) return kNoMember;
    if (!data || length == 0) return kNoText;
    const wchar_t* text = nullptr;
    const int result = EncodeBase64(conversionBuffer, data, length, &text);
    return result == kSuccess ? Set(key, TextItem(text)) : result;
}

// ---- Getting values ----------------------------------------------------------------------------

int CRapidJsonPackage::GetValue(const wchar_t* key, const wchar_t** text) {
    // What every failure leaves, one in the middle of the writing included.
    if (text) *text = L"";
    const MemberRequest request{key, text != nullptr, kNoMember, kWrongKind, Match()};
    const Place place = FindMember(members, {&document}, request);
    if (!place.value) return place.absence;
    if (!IsContainer(*place.value)) {
        const wchar_t* characters = nullptr;
        const int result = Get<String>(place, &characters);
        if (result == kSuccess) *text = characters;
        return result;
    }
    WriteText(*place.value, Layout::kCompactFinite, textBuffer);
    *text = textBuffer.GetString();
    return kSuccess;
}

int CRapidJsonPackage::GetValueBoolean(const wchar_t* key, bool* flag) {
    uint32_t number = 0;
    const int result = Read<Boolean>(key, flag ? &number : nullptr);
    if (result == kSuccess) *flag = number != 0;
    return result;
}

int CRapidJsonPackage::GetValueVariant(const wchar_t* key, JsonVariant* variant) {
    const wchar_t* text = nullptr;
    const int result = Read<String>(key, variant ? &text : nullptr);
    if (result != kSuccess) return result;
    EnsureWritable(variant);
    variant->tag = kVariantText;
    variant->text = text;
    return kSuccess;
}

int CRapidJsonPackage::GetValueVariantEx(const wchar_t* key, JsonVariant* variant) {
    int64_t number = 0;
    if (Read<Int64>(key, variant ? &number : nullptr) != kSuccess)
        return GetValueVariant(key, variant);
    EnsureWritable(variant);
    variant->tag = kVariantInt64;
    variant->number = number;
    return kSuccess;
}

int CRapidJsonPackage::GetValueBlob(const wchar_t* key, const void** data, uint32_t* length) {
    const wchar_t* text = nullptr;
    const uint8_t* bytes = nullptr;
    uint32_t size = 0;
    int result = GetValueString(key, &text);
    if (result == kSuccess)
        result =
            DecodeBase64(scratchBuffer, text, data ? &bytes : nullptr, length ? &size : nullptr);
    if (result != kSuccess) return result;
    EnsureWritable(data);
    EnsureWritable(length);
    *data = bytes;
    *length = size;
    return kSuccess;
}

// ---- Output ------------------------------------------------------------------------------------

int CRapidJsonPackage::GetText(const wchar_t** text) {
    if (!text) return kPlainFailure;
    WriteText(document, Layout::kCompactFinite, textBuffer);
    *text = textBuffer.GetString();
    return kSuccess;
}

int CRapidJsonPackage::GetBytes(const void** data, size_t* length, int32_t encoding) {
    if (!data || !length) return kPlainFailure;
    *data = nullptr;
    const std::string_view bytes = encodedText.Write(document, Layout::kCompactFinite, encoding);
    if (bytes.data()) EnsureWritable(length);
    *data = bytes.data();
    if (*data) *length = bytes.size();
    return kSuccess;
}

int CRapidJsonPackage::SaveToFile(const wchar_t* fileName, int32_t encoding) {
    return SaveFile(document, Layout::kCompactFinite, fileName, encoding) ? kSuccess
                                                                          : kPlainFailure;
}

}  // namespace QXJSON
