#include "ParserOperationList.h"

#include "Describe.h"
#include "IJsonParser.h"

namespace support {
namespace {

using namespace describe;
using P = QXJSON::IJsonParser;

Operations LoadsAndRoot() {
    return {
        Row<kBytes, kLength>("LoadJsonBytes", Asks::kLoad, &P::LoadJsonBytes),
        Row<kText>("LoadJsonString", Asks::kLoad, &P::LoadJsonString),
        Row<kFileName>("LoadJsonFile", Asks::kLoad, &P::LoadJsonFile),
        Row<>("HasError", Asks::kState, &P::HasError),
        Row<kOutNumber>("GetErrorOffset", Asks::kState, &P::GetErrorOffset),
        Row<kOutText>("GetErrorMessage", Asks::kState, &P::GetErrorMessage),
        Row<kOutReference, kOutType>("GetRootValue", Asks::kRoot, &P::GetRootValue),
        Row<kOutHandle, kOutType>("GetRootItem", Asks::kRoot, &P::GetRootItem),
    };
}

Operations MembersAndChildren() {
    return {
        Row<kOutReference, kOutType>("GetMemberValue", Asks::kMember, &P::GetMemberValue),
        Row<kOutReference, kOutType>("GetChildValue", Asks::kChild, &P::GetChildValue),
        Row<kOutHandle, kOutType>("GetMemberItemByPath", Asks::kMember, &P::GetMemberItemByPath),
        Row<kOutHandle, kOutType>("GetChildItemByPath", Asks::kChild, &P::GetChildItemByPath),
        Row<kOutHandle, kOutType>("GetMemberItem", Asks::kMember, &P::GetMemberItem),
        Row<kOutHandle, kOutType>("GetChildItem", Asks::kChild, &P::GetChildItem),
        Row<kOutText>("GetMemberNameOfValue", Asks::kName, &P::GetMemberNameOfValue),
        Row<kOutText>("GetMemberNameByPath", Asks::kName, &P::GetMemberNameByPath),
        Row<kOutText>("GetMemberName", Asks::kName, &P::GetMemberName),
    };
}

Operations CountsAndTypes() {
    return {
        Row<kOutNumber>("GetChildCountOfValue", Asks::kCount, &P::GetChildCountOfValue),
        Row<kOutNumber>("GetChildCountByPath", Asks::kCount, &P::GetChildCountByPath),
        Row<kOutNumber>("GetChildCount", Asks::kCount, &P::GetChildCount),
        Row<kOutType>("GetValueType", Asks::kValueType, &P::GetValueType),
        Row<kOutType>("GetItemTypeByPath", Asks::kItemType, &P::GetItemTypeByPath),
        Row<kOutType>("GetMemberItemType", Asks::kItemType, &P::GetMemberItemType),
        Row<kOutType>("GetItemType", Asks::kItemType, &P::GetItemType),
    };
}

Operations BooleansAndNumbersByReference() {
    return {
        Row<kOutNumber>("GetMemberBooleanOfValue", Asks::kBoolean, &P::GetMemberBooleanOfValue),
        Row<kOutNumber>("GetValueBoolean", Asks::kBoolean, &P::GetValueBoolean),
        Row<kOutNumber>("GetItemBooleanByPath", Asks::kBoolean, &P::GetItemBooleanByPath),
        Row<kOutNumber>("GetMemberBoolean", Asks::kBoolean, &P::GetMemberBoolean),
        Row<kOutNumber>("GetItemBoolean", Asks::kBoolean, &P::GetItemBoolean),
        Row<kOutNumber>("GetMemberDoubleOfValue", Asks::kDouble, &P::GetMemberDoubleOfValue),
        Row<kOutNumber>("GetValueDouble", Asks::kDouble, &P::GetValueDouble),
        Row<kOutNumber>("GetMemberFloatOfValue", Asks::kFloat, &P::GetMemberFloatOfValue),
        Row<kOutNumber>("GetValueFloat", Asks::kFloat, &P::GetValueFloat),
        Row<kOutNumber>("GetMemberUInt64OfValue", Asks::kUInt64, &P::GetMemberUInt64OfValue),
        Row<kOutNumber>("GetValueUInt64", Asks::kUInt64, &P::GetValueUInt64),
        Row<kOutNumber>("GetMemberInt64OfValue", Asks::kInt64, &P::GetMemberInt64OfValue),
        Row<kOutNumber>("GetValueInt64", Asks::kInt64, &P::GetValueInt64),
        Row<kOutNumber>("GetMemberUIntOfValue", Asks::kUInt, &P::GetMemberUIntOfValue),
        Row<kOutNumber>("GetValueUInt", Asks::kUInt, &P::GetValueUInt),
        Row<kOutNumber>("GetMemberIntOfValue", Asks::kInt, &P::GetMemberIntOfValue),
        Row<kOutNumber>("GetValueInt", Asks::kInt, &P::GetValueInt),
    };
}

Operations NumbersByPath() {
    return {
        Row<kOutNumber>("GetItemDoubleByPath", Asks::kDouble, &P::GetItemDoubleByPath),
        Row<kOutNumber>("GetItemFloatByPath", Asks::kFloat, &P::GetItemFloatByPath),
        Row<kOutNumber>("GetItemUInt64ByPath", Asks::kUInt64, &P::GetItemUInt64ByPath),
        Row<kOutNumber>("GetItemInt64ByPath", Asks::kInt64, &P::GetItemInt64ByPath),
        Row<kOutNumber>("GetItemUIntByPath", Asks::kUInt, &P::GetItemUIntByPath),
        Row<kOutNumber>("GetItemIntByPath", Asks::kInt, &P::GetItemIntByPath),
    };
}

Operations NumbersByHandle() {
    return {
        Row<kOutNumber>("GetMemberDouble", Asks::kDouble, &P::GetMemberDouble),
        Row<kOutNumber>("GetItemDouble", Asks::kDouble, &P::GetItemDouble),
        Row<kOutNumber>("GetMemberFloat", Asks::kFloat, &P::GetMemberFloat),
        Row<kOutNumber>("GetItemFloat", Asks::kFloat, &P::GetItemFloat),
        Row<kOutNumber>("GetMemberUInt64", Asks::kUInt64, &P::GetMemberUInt64),
        Row<kOutNumber>("GetItemUInt64", Asks::kUInt64, &P::GetItemUInt64),
        Row<kOutNumber>("GetMemberInt64", Asks::kInt64, &P::GetMemberInt64),
        Row<kOutNumber>("GetItemInt64", Asks::kInt64, &P::GetItemInt64),
        Row<kOutNumber>("GetMemberUInt", Asks::kUInt, &P::GetMemberUInt),
        Row<kOutNumber>("GetItemUInt", Asks::kUInt, &P::GetItemUInt),
        Row<kOutNumber>("GetMemberInt", Asks::kInt, &P::GetMemberInt),
        Row<kOutNumber>("GetItemInt", Asks::kInt, &P::GetItemInt),
    };
}

Operations BlobsAndStrings() {
    return {
        Row<kOutBytes, kOutLength>("GetMemberBlobOfValue", Asks::kBlob, &P::GetMemberBlobOfValue),
        Row<kOutBytes, kOutLength>("GetValueBlob", Asks::kBlob, &P::GetValueBlob),
        Row<kOutBytes, kOutLength>("GetItemBlobByPath", Asks::kBlob, &P::GetItemBlobByPath),
        Row<kOutBytes, kOutLength>("GetMemberBlob", Asks::kBlob, &P::GetMemberBlob),
        Row<kOutBytes, kOutLength>("GetItemBlob", Asks::kBlob, &P::GetItemBlob),
        Row<kOutText>("GetMemberStringOfValue", Asks::kString, &P::GetMemberStringOfValue),
        Row<kOutText>("GetValueString", Asks::kString, &P::GetValueString),
        Row<kOutText>("GetItemStringByPath", Asks::kString, &P::GetItemStringByPath),
        Row<kOutText>("GetMemberString", Asks::kString, &P::GetMemberString),
        Row<kOutText>("GetItemString", Asks::kString, &P::GetItemString),
    };
}

Operations ContainersAndTheirTexts() {
    return {
        Row<kOutReference, kOutType>("GetMemberObjectValue", Asks::kObject,
                                     &P::GetMemberObjectValue),
        Row<kOutHandle, kOutType>("GetObjectItemByPath", Asks::kObject, &P::GetObjectItemByPath),
        Row<kOutHandle, kOutType>("GetMemberObjectItem", Asks::kObject, &P::GetMemberObjectItem),
        Row<kOutReference, kOutType>("GetMemberArrayValue", Asks::kArray, &P::GetMemberArrayValue),
        Row<kOutHandle, kOutType>("GetArrayItemByPath", Asks::kArray, &P::GetArrayItemByPath),
        Row<kOutHandle, kOutType>("GetMemberArrayItem", Asks::kArray, &P::GetMemberArrayItem),
        Row<kOutHandle>("GetItemByPath", Asks::kItem, &P::GetItemByPath),
        Row<kOutText>("GetObjectJsonByPath", Asks::kObjectText, &P::GetObjectJsonByPath),
        Row<kOutText>("GetObjectJson", Asks::kObjectText, &P::GetObjectJson),
        Row<kOutText>("GetMemberObjectJson", Asks::kObjectText, &P::GetMemberObjectJson),
        Row<kOutText>("GetArrayJsonByPath", Asks::kArrayText, &P::GetArrayJsonByPath),
        Row<kOutText>("GetArrayJson", Asks::kArrayText, &P::GetArrayJson),
        Row<kOutText>("GetMemberArrayJson", Asks::kArrayText, &P::GetMemberArrayJson),
    };
}

Operations ClassesExistenceAndVariants() {
    return {
        Row<kOutNumber>("GetNumberClassByPath", Asks::kNumberClass, &P::GetNumberClassByPath),
        Row<kOutNumber>("GetMemberNumberClass", Asks::kNumberClass, &P::GetMemberNumberClass),
        Row<kOutNumber>("GetNumberClass", Asks::kNumberClass, &P::GetNumberClass),
        Row<>("ExistsItemByPath", Asks::kExistence, &P::ExistsItemByPath),
        Row<>("ExistsMember", Asks::kExistence, &P::ExistsMember),
        Row<>("ExistsMemberByPath", Asks::kExistence, &P::ExistsMemberByPath),
        Row<kOutVariant>("GetVariantOfValue", Asks::kVariant, &P::GetVariantOfValue),
        Row<kOutVariant>("GetItemVariant", Asks::kVariant, &P::GetItemVariant),
        Row<>("Release", Asks::kRelease, &P::Release),
    };
}

}  // namespace

const Operations& ParserOperations() {
    static const Operations operations =
        Joined({LoadsAndRoot(), MembersAndChildren(), CountsAndTypes(),
                BooleansAndNumbersByReference(), NumbersByPath(), NumbersByHandle(),
                BlobsAndStrings(), ContainersAndTheirTexts(), ClassesExistenceAndVariants()});
    return operations;
}

const Operation& ParserOperation(const std::string& name) {
    return OperationNamed(ParserOperations(), name);
}

const Operations& ReadingOperations() {
    static const Operations reading = OperationsIf(
        ParserOperations(), [](const Operation& o) { return o.naming != NamedBy::kNone; });
    return reading;
}

}  // namespace support
