#include "PackageOperationList.h"

#include "Describe.h"
#include "IJsonPackage.h"

// The operation, which has a slot, not the call that <windows.h> makes of its name.
#undef LoadString

namespace support {
namespace {

using namespace describe;
using P = QXJSON::IJsonPackage;

Operations TheDelegatesOwn() {
    return {
        Row<kObject, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kOutText>(
            "DelegateExport0", Asks::kExport, &P::DelegateExport0),
        Row<kObject, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kOutText>(
            "DelegateExport1", Asks::kExport, &P::DelegateExport1),
        Row<kObject, kPassedOn, kPassedOn, kPassedOn, kOutText>("DelegateExport2", Asks::kExport,
                                                                &P::DelegateExport2),
        Row<kObject, kPassedOn, kPassedOn, kOutText>("DelegateExport3", Asks::kExport,
                                                     &P::DelegateExport3),
        Row<kObject, kPassedOn, kOutText>("DelegateExport4", Asks::kExport, &P::DelegateExport4),
        Row<kObject, kPassedOn, kOutText>("DelegateExport5", Asks::kExport, &P::DelegateExport5),
        Row<kObject, kText, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kPassedOn>(
            "DelegateImport", Asks::kImport, &P::DelegateImport),
    };
}

Operations LifeAndLoads() {
    return {
        Row<>("Release", Asks::kRelease, &P::Release),
        Row<>("HasError", Asks::kState, &P::HasError),
        Row<kOutNumber>("GetErrorOffset", Asks::kState, &P::GetErrorOffset),
        Row<kOutText>("GetErrorMessage", Asks::kState, &P::GetErrorMessage),
        Row<kDelegate>("SetDelegate", Asks::kDelegate, &P::SetDelegate),
        Row<kText>("LoadString", Asks::kLoad, &P::LoadString),
        Row<kFileName>("LoadFile", Asks::kLoad, &P::LoadFile),
    };
}

Operations Keys() {
    return {
        Row<kOutNumber>("GetKeyCount", Asks::kCount, &P::GetKeyCount),
        Row<kIndex, kOutText>("GetKeyName", Asks::kName, &P::GetKeyName),
        Row<kKey, kOutNumber>("ContainsKey", Asks::kExistence, &P::ContainsKey),
        Row<>("RemoveAll", Asks::kRemove, &P::RemoveAll),
    };
}

Operations ValuesAsText() {
    return {
        Row<kKey, kOutText>("GetValue", Asks::kAnyText, &P::GetValue),
        Row<kKey, kObject, kPassedOn>("SetValueFromDelegate5", Asks::kSetExported,
                                      &P::SetValueFromDelegate5),
        Row<kKey, kText, kNumber>("SetValue", Kind::kString, &P::SetValue),
        Row<kKey, kObject, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kPassedOn>(
            "SetValueFromDelegate0", Asks::kSetExported, &P::SetValueFromDelegate0),
        Row<kKey, kObject, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kPassedOn>(
            "SetValueFromDelegate1", Asks::kSetExported, &P::SetValueFromDelegate1),
        Row<kKey, kObject, kPassedOn, kPassedOn, kPassedOn>(
            "SetValueFromDelegate2", Asks::kSetExported, &P::SetValueFromDelegate2),
        Row<kKey, kObject, kPassedOn, kPassedOn>("SetValueFromDelegate3", Asks::kSetExported,
                                                 &P::SetValueFromDelegate3),
        Row<kKey, kObject, kPassedOn>("SetValueFromDelegate4", Asks::kSetExported,
                                      &P::SetValueFromDelegate4),
        Row<kKey, kObject, kPassedOn, kPassedOn, kPassedOn, kPassedOn, kPassedOn>(
            "GetValueToDelegate", Asks::kGiveToImport, &P::GetValueToDelegate),
        Row<kKey>("RemoveKey", Asks::kRemove, &P::RemoveKey),
    };
}

Operations Output() {
    return {
        Row<kOutText>("GetText", Asks::kWhole, &P::GetText),
        Row<kOutBytes, kOutLength, kEncoding>("GetBytes", Asks::kWhole, &P::GetBytes),
        Row<kFileName, kEncoding>("SaveToFile", Asks::kSave, &P::SaveToFile),
        Row<kNumber>("SetIgnoreCase", Asks::kSetting, &P::SetIgnoreCase),
        Row<kOutNumber>("GetIgnoreCase", Asks::kSetting, &P::GetIgnoreCase),
    };
}

Operations TypedValues() {
    return {
        Row<kKey, kOutText>("GetValueString", Asks::kString, &P::GetValueString),
        Row<kKey, kText>("SetValueString", Kind::kString, &P::SetValueString),
        Row<kKey, kOutNumber>("GetValueNumber", Asks::kDouble, &P::GetValueNumber),
        Row<kKey, kNumber>("SetValueNumber", Kind::kDouble, &P::SetValueNumber),
        Row<kKey, kOutNumber>("GetValueBoolean", Asks::kBoolean, &P::GetValueBoolean),
        Row<kKey, kNumber>("SetValueBoolean", Kind::kBoolean, &P::SetValueBoolean),
        Row<kKey, kOutVariant>("GetValueVariant", Asks::kTextVariant, &P::GetValueVariant),
        Row<kKey, kVariantRecord>("SetValueVariant", Kind::kVariant, &P::SetValueVariant),
        Row<kKey, kOutVariant>("GetValueVariantAlias", Asks::kTextVariant,
                               &P::GetValueVariantAlias),
        Row<kKey, kVariantRecord>("SetValueVariantAlias", Kind::kVariant, &P::SetValueVariantAlias),
        Row<kKey, kOutVariant>("GetValueVariantEx", Asks::kVariant, &P::GetValueVariantEx),
        Row<kKey, kVariantRecord>("SetValueVariantEx", Kind::kVariant, &P::SetValueVariantEx),
        Row<kKey, kOutBytes, kOutLength>("GetValueBlob", Asks::kBlob, &P::GetValueBlob),
        Row<kKey, kBytes, kLength>("SetValueBlob", Kind::kBlob, &P::SetValueBlob),
        Row<kKey, kOutType>("GetValueType", Asks::kItemType, &P::GetValueType),
    };
}

}  // namespace

const Operations& PackageOperations() {
    static const Operations operations = Joined(
        {TheDelegatesOwn(), LifeAndLoads(), Keys(), ValuesAsText(), Output(), TypedValues()});
    return operations;
}

const Operation& PackageOperation(const std::string& name) {
    return OperationNamed(PackageOperations(), name);
}

const Operations& PackageGetters() {
    static const Operations getters = OperationsIf(
        PackageOperations(), [](const Operation& o) { return o.hasKey && o.outputs > 0; });
    return getters;
}

}  // namespace support
