#pragma once

#include "PackageReserved.h"
#include "common/messages/MessageBuffer.h"
#include "common/text/TextInput.h"
#include "common/text/TextOutput.h"
#include "common/values/ValueAccess.h"
#include "common/values/ValueBuild.h"

namespace QXJSON {

/// The package on RapidJSON. IJsonPackage.h says what each operation does.
class CRapidJsonPackage final : public PackageReserved {
public:
    /// Takes no memory that could be missing: a package can always be made.
    CRapidJsonPackage();

    /// Whether nothing but the flag can be told from a package that was just made.
    bool IsNew() const { return !wasLoaded && pool.IsEmpty(); }

    int Release() override {
        delete this;
        return kSuccess;
    }

    int HasError() override { return status.code; }
    int GetErrorOffset(size_t* offset) override;
    int GetErrorMessage(const wchar_t** text) override;

    int LoadString(const wchar_t* text) override;
    int LoadFile(const wchar_t* fileName) override;

    int GetKeyCount(uint32_t* count) override { return Get<ChildCount>({&document}, count); }
    int GetKeyName(uint32_t index, const wchar_t** name) override {
        return GetMemberName({&document}, index, name);
    }
    int ContainsKey(const wchar_t* key, bool* found) override;
    int RemoveAll() override;
    int RemoveKey(const wchar_t* key) override;

    int GetValue(const wchar_t* key, const wchar_t** text) override;
    int SetValue(const wchar_t* key, const wchar_t* value, bool valueIsJson) override;

    int GetText(const wchar_t** text) override;
    int GetBytes(const void** data, size_t* length, int32_t encoding) override;
    int SaveToFile(const wchar_t* fileName, int32_t encoding) override;

    int SetIgnoreCase(uint32_t flag) override;
    int GetIgnoreCase(uint32_t* flag) override;

    int GetValueString(const wchar_t* key, const wchar_t** text) override {
        return Read<String>(key, text);
    }
    int SetValueString(const wchar_t* key, const wchar_t* text) override;
    int GetValueNumber(const wchar_t* key, double* number) override {
        return Read<Double>(key, number);
    }
    int SetValueNumber(const wchar_t* key, double number) override;
    int GetValueBoolean(const wchar_t* key, bool* flag) override;
    int SetValueBoolean(const wchar_t* key, bool flag) override;
    int GetValueVariant(const wchar_t* key, JsonVariant* variant) override;
    int SetValueVariant(const wchar_t* key, const JsonVariant* variant) override;
    int GetValueVariantAlias(const wchar_t* key, JsonVariant* variant) override {
        return GetValueVariant(key, variant);
    }
    int SetValueVariantAlias(const wchar_t* key, const JsonVariant* variant) override {
        return SetValueVariant(key, variant);
    }
    int GetValueVariantEx(const wchar_t* key, JsonVariant* variant) override;
    int SetValueVariantEx(const wchar_t* key, const JsonVariant* variant) override;
    int GetValueBlob(const wchar_t* key, const void** data, uint32_t* length) override;
    int SetValueBlob(const wchar_t* key, const uint8_t* data, uint32_t length) override;
    int GetValueType(const wchar_t* key, uint32_t* itemType) override {
        return Read<ItemType>(key, itemType);
    }

private:
    KeyMatch Match() const { return ignoreCase != 0 ? KeyMatch::kIgnoreCase : KeyMatch::kExact; }
    JsonMember* Find(const wchar_t* key) { return members.Find(document, KeyOf(key), Match()); }
    template <class Kind>
    int Read(const wchar_t* key, typename Kind::Out* out) {
        return GetMember<Kind>(members, {&document}, key, out, Match());
    }
    template <class Item>
    int Set(const wchar_t* key, const Item& item);
    void SettleStrings();
    template <class Parse>
    int Load(const Parse& parse);

    uint32_t ignoreCase = 1;
    bool wasLoaded = false;  // or was to be
    DocumentPool pool;
    JsonAllocator& allocator = pool.Allocator();
    JsonValue document{rapidjson::kObjectType};  // always an object
    MemberLookup members{pool};
    LoadStatus status;
    MessageBuffer scratchBuffer;     // messages and blobs that were returned
    MessageBuffer conversionBuffer;  // returns nothing: a returned text may be an argument
    JsonTextBuffer textBuffer;
    EncodedText encodedText;
};

}  // namespace QXJSON
