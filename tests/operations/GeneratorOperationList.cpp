#include "GeneratorOperationList.h"

#include <stdexcept>

#include "Describe.h"
#include "IJsonGenerator.h"

namespace support {
namespace {

using namespace describe;
using G = QXJSON::IJsonGenerator;

Operations Roots() {
    return {
        Row<kOutReference>("ResetRootObjectValue", Asks::kNewRoot, &G::ResetRootObjectValue),
        Row<kOutHandle>("CreateRootObject", Asks::kNewRoot, &G::CreateRootObject),
        Row<kOutReference>("ResetRootArrayValue", Asks::kNewRoot, &G::ResetRootArrayValue),
        Row<kOutHandle>("CreateRootArray", Asks::kNewRoot, &G::CreateRootArray),
    };
}

Operations Containers() {
    return {
        Row<kOutReference>("AddObjectValueObject", Kind::kObject, &G::AddObjectValueObject),
        Row<kOutReference>("AddArrayValueObject", Kind::kObject, &G::AddArrayValueObject),
        Row<kOutHandle>("AddObjectItemObjectByPath", Kind::kObject, &G::AddObjectItemObjectByPath),
        Row<kOutHandle>("AddArrayItemObjectByPath", Kind::kObject, &G::AddArrayItemObjectByPath),
        Row<kOutHandle>("AddObjectItemObject", Kind::kObject, &G::AddObjectItemObject),
        Row<kOutHandle>("AddArrayItemObject", Kind::kObject, &G::AddArrayItemObject),
        Row<kOutReference>("AddObjectValueArray", Kind::kArray, &G::AddObjectValueArray),
        Row<kOutReference>("AddArrayValueArray", Kind::kArray, &G::AddArrayValueArray),
        Row<kOutHandle>("AddObjectItemArrayByPath", Kind::kArray, &G::AddObjectItemArrayByPath),
        Row<kOutHandle>("AddArrayItemArrayByPath", Kind::kArray, &G::AddArrayItemArrayByPath),
        Row<kOutHandle>("AddObjectItemArray", Kind::kArray, &G::AddObjectItemArray),
        Row<kOutHandle>("AddArrayItemArray", Kind::kArray, &G::AddArrayItemArray),
    };
}

Operations Booleans() {
    return {
        Row<kNumber, kOutReference>("AddObjectValueBoolean", Kind::kBoolean,
                                    &G::AddObjectValueBoolean),
        Row<kNumber, kOutReference>("AddArrayValueBoolean", Kind::kBoolean,
                                    &G::AddArrayValueBoolean),
        Row<kNumber, kOutHandle>("AddObjectItemBooleanByPath", Kind::kBoolean,
                                 &G::AddObjectItemBooleanByPath),
        Row<kNumber, kOutHandle>("AddArrayItemBooleanByPath", Kind::kBoolean,
                                 &G::AddArrayItemBooleanByPath),
        Row<kNumber, kOutHandle>("AddObjectItemBoolean", Kind::kBoolean, &G::AddObjectItemBoolean),
        Row<kNumber, kOutHandle>("AddArrayItemBoolean", Kind::kBoolean, &G::AddArrayItemBoolean),
    };
}

Operations NumbersByReference() {
    return {
        Row<kNumber, kOutReference>("AddObjectValueDouble", Kind::kDouble,
                                    &G::AddObjectValueDouble),
        Row<kNumber, kOutReference>("AddArrayValueDouble", Kind::kDouble, &G::AddArrayValueDouble),
        Row<kNumber, kOutReference>("AddObjectValueFloat", Kind::kFloat, &G::AddObjectValueFloat),
        Row<kNumber, kOutReference>("AddArrayValueFloat", Kind::kFloat, &G::AddArrayValueFloat),
        Row<kNumber, kOutReference>("AddObjectValueUInt64", Kind::kUInt64,
                                    &G::AddObjectValueUInt64),
        Row<kNumber, kOutReference>("AddArrayValueUInt64", Kind::kUInt64, &G::AddArrayValueUInt64),
        Row<kNumber, kOutReference>("AddObjectValueInt64", Kind::kInt64, &G::AddObjectValueInt64),
        Row<kNumber, kOutReference>("AddArrayValueInt64", Kind::kInt64, &G::AddArrayValueInt64),
        Row<kNumber, kOutReference>("AddObjectValueUInt", Kind::kUInt, &G::AddObjectValueUInt),
        Row<kNumber, kOutReference>("AddArrayValueUInt", Kind::kUInt, &G::AddArrayValueUInt),
        Row<kNumber, kOutReference>("AddObjectValueInt", Kind::kInt, &G::AddObjectValueInt),
        Row<kNumber, kOutReference>("AddArrayValueInt", Kind::kInt, &G::AddArrayValueInt),
    };
}

Operations SpecialNumbers() {
    return {
        Row<kNumber, kOutHandle>("AddObjectItemSpecialNumberByPath", Kind::kSpecialNumber,
                                 &G::AddObjectItemSpecialNumberByPath),
        Row<kNumber, kOutHandle>("AddArrayItemSpecialNumberByPath", Kind::kSpecialNumber,
                                 &G::AddArrayItemSpecialNumberByPath),
        Row<kNumber, kOutHandle>("AddObjectItemSpecialNumber", Kind::kSpecialNumber,
                                 &G::AddObjectItemSpecialNumber),
        Row<kNumber, kOutHandle>("AddArrayItemSpecialNumber", Kind::kSpecialNumber,
                                 &G::AddArrayItemSpecialNumber),
    };
}

Operations NumbersByPath() {
    return {
        Row<kNumber, kOutHandle>("AddObjectItemDoubleByPath", Kind::kDouble,
                                 &G::AddObjectItemDoubleByPath),
        Row<kNumber, kOutHandle>("AddArrayItemDoubleByPath", Kind::kDouble,
                                 &G::AddArrayItemDoubleByPath),
        Row<kNumber, kOutHandle>("AddObjectItemFloatByPath", Kind::kFloat,
                                 &G::AddObjectItemFloatByPath),
        Row<kNumber, kOutHandle>("AddArrayItemFloatByPath", Kind::kFloat,
                                 &G::AddArrayItemFloatByPath),
        Row<kNumber, kOutHandle>("AddObjectItemUInt64ByPath", Kind::kUInt64,
                                 &G::AddObjectItemUInt64ByPath),
        Row<kNumber, kOutHandle>("AddArrayItemUInt64ByPath", Kind::kUInt64,
                                 &G::AddArrayItemUInt64ByPath),
        Row<kNumber, kOutHandle>("AddObjectItemInt64ByPath", Kind::kInt64,
                                 &G::AddObjectItemInt64ByPath),
        Row<kNumber, kOutHandle>("AddArrayItemInt64ByPath", Kind::kInt64,
                                 &G::AddArrayItemInt64ByPath),
        Row<kNumber, kOutHandle>("AddObjectItemUIntByPath", Kind::kUInt,
                                 &G::AddObjectItemUIntByPath),
        Row<kNumber, kOutHandle>("AddArrayItemUIntByPath", Kind::kUInt, &G::AddArrayItemUIntByPath),
        Row<kNumber, kOutHandle>("AddObjectItemIntByPath", Kind::kInt, &G::AddObjectItemIntByPath),
        Row<kNumber, kOutHandle>("AddArrayItemIntByPath", Kind::kInt, &G::AddArrayItemIntByPath),
    };
}

Operations NumbersByHandle() {
    return {
        Row<kNumber, kOutHandle>("AddObjectItemDouble", Kind::kDouble, &G::AddObjectItemDouble),
        Row<kNumber, kOutHandle>("AddArrayItemDouble", Kind::kDouble, &G::AddArrayItemDouble),
        Row<kNumber, kOutHandle>("AddObjectItemFloat", Kind::kFloat, &G::AddObjectItemFloat),
        Row<kNumber, kOutHandle>("AddArrayItemFloat", Kind::kFloat, &G::AddArrayItemFloat),
        Row<kNumber, kOutHandle>("AddObjectItemUInt64", Kind::kUInt64, &G::AddObjectItemUInt64),
        Row<kNumber, kOutHandle>("AddArrayItemUInt64", Kind::kUInt64, &G::AddArrayItemUInt64),
        Row<kNumber, kOutHandle>("AddObjectItemInt64", Kind::kInt64, &G::AddObjectItemInt64),
        Row<kNumber, kOutHandle>("AddArrayItemInt64", Kind::kInt64, &G::AddArrayItemInt64),
        Row<kNumber, kOutHandle>("AddObjectItemUInt", Kind::kUInt, &G::AddObjectItemUInt),
        Row<kNumber, kOutHandle>("AddArrayItemUInt", Kind::kUInt, &G::AddArrayItemUInt),
        Row<kNumber, kOutHandle>("AddObjectItemInt", Kind::kInt, &G::AddObjectItemInt),
        Row<kNumber, kOutHandle>("AddArrayItemInt", Kind::kInt, &G::AddArrayItemInt),
    };
}

Operations Texts() {
    return {
        Row<kBytes, kLength, kOutReference>("AddObjectValueBlob", Kind::kBlob,
                                            &G::AddObjectValueBlob),
        Row<kBytes, kLength, kOutReference>("AddArrayValueBlob", Kind::kBlob,
                                            &G::AddArrayValueBlob),
        Row<kBytes, kLength, kOutHandle>("AddObjectItemBlobByPath", Kind::kBlob,
                                         &G::AddObjectItemBlobByPath),
        Row<kBytes, kLength, kOutHandle>("AddArrayItemBlobByPath", Kind::kBlob,
                                         &G::AddArrayItemBlobByPath),
        Row<kBytes, kLength, kOutHandle>("AddObjectItemBlob", Kind::kBlob, &G::AddObjectItemBlob),
        Row<kBytes, kLength, kOutHandle>("AddArrayItemBlob", Kind::kBlob, &G::AddArrayItemBlob),
        Row<kText, kOutReference>("AddObjectValueString", Kind::kString, &G::AddObjectValueString),
        Row<kText, kOutReference>("AddArrayValueString", Kind::kString, &G::AddArrayValueString),
        Row<kText, kOutHandle>("AddObjectItemStringByPath", Kind::kString,
                               &G::AddObjectItemStringByPath),
        Row<kText, kOutHandle>("AddArrayItemStringByPath", Kind::kString,
                               &G::AddArrayItemStringByPath),
        Row<kText, kOutHandle>("AddObjectItemString", Kind::kString, &G::AddObjectItemString),
        Row<kText, kOutHandle>("AddArrayItemString", Kind::kString, &G::AddArrayItemString),
    };
}

Operations NullsAndVariants() {
    return {
        Row<kOutReference>("AddObjectValueNull", Kind::kNull, &G::AddObjectValueNull),
        Row<kOutReference>("AddArrayValueNull", Kind::kNull, &G::AddArrayValueNull),
        Row<kOutHandle>("AddObjectItemNullByPath", Kind::kNull, &G::AddObjectItemNullByPath),
        Row<kOutHandle>("AddArrayItemNullByPath", Kind::kNull, &G::AddArrayItemNullByPath),
        Row<kOutHandle>("AddObjectItemNull", Kind::kNull, &G::AddObjectItemNull),
        Row<kOutHandle>("AddArrayItemNull", Kind::kNull, &G::AddArrayItemNull),
        Row<kVariant, kOutReference>("AddValueVariant", Kind::kVariant, &G::AddValueVariant),
        Row<kVariant, kOutHandle>("AddItemVariantByPath", Kind::kVariant, &G::AddItemVariantByPath),
        Row<kVariant, kOutHandle>("AddItemVariant", Kind::kVariant, &G::AddItemVariant),
    };
}

Operations OutputAndRelease() {
    return {
        Row<kFileName, kEncoding>("SaveToFile", Asks::kSave, &G::SaveToFile),
        Row<kFileName, kEncoding, kStyle>("SaveToFileEx", Asks::kSave, &G::SaveToFileEx),
        Row<kOutText>("GetJsonString", Asks::kWhole, &G::GetJsonString),
        Row<kOutBytes, kOutLength, kEncoding>("GetJsonBytes", Asks::kWhole, &G::GetJsonBytes),
        Row<>("Release", Asks::kRelease, &G::Release),
    };
}

Operations ParsedJson() {
    return {
        Row<kFileName, kOutHandle>("LoadJsonFile", Asks::kLoad, &G::LoadJsonFile),
        Row<kFileName, kOutHandle>("AddObjectItemJsonFileByPath", Asks::kGraft,
                                   &G::AddObjectItemJsonFileByPath),
        Row<kFileName, kOutHandle>("AddArrayItemJsonFileByPath", Asks::kGraft,
                                   &G::AddArrayItemJsonFileByPath),
        Row<kFileName, kOutHandle>("AddObjectItemJsonFile", Asks::kGraft,
                                   &G::AddObjectItemJsonFile),
        Row<kFileName, kOutHandle>("AddArrayItemJsonFile", Asks::kGraft, &G::AddArrayItemJsonFile),
        Row<kText, kOutHandle>("LoadJsonString", Asks::kLoad, &G::LoadJsonString),
        Row<kText, kOutHandle>("AddObjectItemJsonStringByPath", Asks::kGraft,
                               &G::AddObjectItemJsonStringByPath),
        Row<kText, kOutHandle>("AddArrayItemJsonStringByPath", Asks::kGraft,
                               &G::AddArrayItemJsonStringByPath),
        Row<kText, kOutHandle>("AddObjectItemJsonString", Asks::kGraft,
                               &G::AddObjectItemJsonString),
        Row<kText, kOutHandle>("AddArrayItemJsonString", Asks::kGraft, &G::AddArrayItemJsonString),
    };
}

Operations Paths() {
    return {
        Row<kOutPath>("GetItemPath", Asks::kPath, &G::GetItemPath),
        Row<kOutHandle>("GetItemHandleByPath", Asks::kItem, &G::GetItemHandleByPath),
    };
}

Operation Named(Operation operation, const char* what) {
    operation.name += what;
    return operation;
}

Operation WithoutKey(Operation operation) {
    operation.hasKey = false;
    operation.call = [call = operation.call](Subject subject, const Arguments& given) {
        Arguments arguments = given;
        arguments.key = nullptr;
        return call(subject, arguments);
    };
    return operation;
}

}  // namespace

const Operations& GeneratorOperations() {
    static const Operations operations =
        Joined({Roots(), Containers(), Booleans(), NumbersByReference(), SpecialNumbers(),
                NumbersByPath(), NumbersByHandle(), Texts(), NullsAndVariants(), OutputAndRelease(),
                ParsedJson(), Paths()});
    return operations;
}

const Operations& AddingOperations() {
    static const Operations operations = [] {
        Operations adding;
        for (const Operation& operation : GeneratorOperations())
            if (operation.kind == Kind::kVariant) {
                adding.push_back(Named(operation, " with a key"));
                adding.push_back(WithoutKey(Named(operation, " without a key")));
            } else if (operation.asks == Asks::kStore) {
                adding.push_back(operation);
            }
        return adding;
    }();
    return operations;
}

const Operation& AddingOperation(Kind kind, NamedBy naming, bool hasKey) {
    for (const Operation& operation : AddingOperations())
        if (operation.kind == kind && operation.naming == naming && operation.hasKey == hasKey)
            return operation;
    throw std::invalid_argument("no such operation");
}

}  // namespace support
