#include "GeneratorModel.h"

#include "ItemPathModel.h"

namespace model {
namespace {

using building::Arguments;
using building::IsText;
using building::Item;
using building::Kind;
using building::NamedBy;
using building::Operation;
using support::Asks;

bool IsNullText(const Item& item) {
    if (item.kind == Kind::kString) return !item.payload.text;
    return item.kind == Kind::kVariant && IsText(item) && !item.payload.variant.text;
}

/// What is refused before anything else is looked at.
bool IsEmptyHanded(const Item& item) {
    if (item.kind == Kind::kBlob) return !item.payload.bytes;
    const auto tag = item.payload.variant.tag;
    return item.kind == Kind::kVariant && tag != QXJSON::kVariantInt64 &&
           tag != QXJSON::kVariantText;
}

bool IsBadSelector(const Item& item) {
    return item.kind == Kind::kSpecialNumber && item.payload.word > 3;
}

bool Fits(const Value* parent, bool keyed) {
    return parent && (keyed ? parent->IsObject() : parent->IsArray());
}

}  // namespace

void GeneratorModel::Reset(rapidjson::Type root) {
    Forget();
    static_cast<Value&>(document) = Value(root);
}

void GeneratorModel::Forget() {
    handleToPath.clear();
    pathToHandle.clear();
    lastHandle = 0;
}

// ---- Items -------------------------------------------------------------------------------------

Answer GeneratorModel::Add(const Operation& operation, const Item& item, const Arguments& arguments,
                           const std::wstring& target) {
    if (IsEmptyHanded(item)) return {0};
    switch (operation.naming) {
        case NamedBy::kReference:
            return AddByReference(operation, item, arguments, target);
        case NamedBy::kHandle:
            return AddBelow(ByHandle(arguments.handle), operation, item, arguments);
        default:
            return AddBelow(ByPath(arguments.path), operation, item, arguments);
    }
}

Answer GeneratorModel::AddByReference(const Operation& operation, const Item& item,
                                      const Arguments& arguments, const std::wstring& target) {
    if (arguments.reference == 0) return {-2};
    if (operation.hasKey && !arguments.key) return {-1};
    if (IsNullText(item)) return {-4};
    Value* parent = building::Resolve(document, target);
    if (!Fits(parent, operation.hasKey)) return {-3};
    auto& allocator = document.GetAllocator();
    Value made = building::Stored(item, operation.naming, allocator);
    if (operation.hasKey)
        parent->AddMember(building::NewString(arguments.key, allocator), made, allocator);
    else
        parent->PushBack(made, allocator);
    return {1};
}

Answer GeneratorModel::AddBelow(const Parent& parent, const Operation& operation, const Item& item,
                                const Arguments& arguments) {
    if (parent.result != 1) return {parent.result};
    if (operation.hasKey && !arguments.key) return {-5};
    if (operation.hasKey) {
        const std::wstring path = parent.path + L"/" + arguments.key;
        if (pathToHandle.count(path) != 0) {
            if (IsBadSelector(item)) return {0};
            if (IsNullText(item)) return {-5};
            Value made = building::Stored(item, operation.naming, document.GetAllocator());
            return Overwrite(path, made, IsText(item));
        }
    }
    if (!parent.value) return {-2};
    if (IsBadSelector(item)) return {0};
    if (IsNullText(item)) return {-4};
    if (!Fits(parent.value, operation.hasKey)) return {-3};
    Value made = building::Stored(item, operation.naming, document.GetAllocator());
    return Append(parent, operation.hasKey ? arguments.key : nullptr, made);
}

Answer GeneratorModel::Overwrite(const std::wstring& path, Value& made, bool needsTarget) {
    Value* value = building::Resolve(document, path);
    if (!value && needsTarget) return {-5};
    if (value) *value = made;
    return {1, pathToHandle[path]};
}

Answer GeneratorModel::Append(const Parent& parent, const wchar_t* key, Value& made) {
    auto& allocator = document.GetAllocator();
    if (key)
        parent.value->AddMember(building::NewString(key, allocator), made, allocator);
    else
        parent.value->PushBack(made, allocator);
    const std::wstring segment = key ? key : std::to_wstring(parent.value->Size() - 1);
    return {1, HandleOf(parent.path + L"/" + segment)};
}

// ---- Parsed JSON -------------------------------------------------------------------------------

/// By handle, text is parsed before the parent's kind counts; everything else after.
Answer GeneratorModel::Graft(const Operation& route, const support::Arguments& arguments,
                             const Taken& taken) {
    const int unusable = taken.kind == Taken::kBroken ? BadSourceResult(route) : -3;
    const bool isUsable = taken.kind == Taken::kContainer;
    auto& allocator = document.GetAllocator();
    Value made;
    if (isUsable) made.CopyFrom(taken.tree, allocator);
    if (route.asks == Asks::kLoad) {
        if (!isUsable) return {unusable};
        Forget();
        static_cast<Value&>(document) = made;
        return {1, HandleOf(L"")};
    }
    const bool isByHandle = route.naming == NamedBy::kHandle;
    const Parent parent = isByHandle ? ByHandle(arguments.handle) : ByPath(arguments.path);
    if (parent.result != 1) return {parent.result};
    const bool fits = Fits(parent.value, route.hasKey);
    const bool isParsedFirst = isByHandle && !ReadsFile(route);
    if (!fits && !(isParsedFirst && !isUsable)) return {0};
    if (!isUsable) return {unusable};
    const std::wstring path = parent.path + L"/" + arguments.key;
    const bool isKnown = route.hasKey && pathToHandle.count(path) != 0;
    if (isKnown) return Overwrite(path, made, /*needsTarget=*/true);
    return Append(parent, route.hasKey ? arguments.key : nullptr, made);
}

// ---- Paths and handles -------------------------------------------------------------------------

GeneratorModel::Parent GeneratorModel::ByHandle(int32_t handle) {
    const auto found = handleToPath.find(handle);
    if (found == handleToPath.end()) return {-2, L"", nullptr};
    return {1, found->second, building::Resolve(document, found->second)};
}

GeneratorModel::Parent GeneratorModel::ByPath(const std::wstring& path) {
    Parent parent = {1, L"", nullptr};
    parent.result = TranslatePath(document, path, parent.path);
    if (parent.result == 1) parent.value = building::Resolve(document, parent.path);
    if (parent.result == 1 && !parent.value) parent.result = -10;
    return parent;
}

Answer GeneratorModel::ItemHandleByPath(const std::wstring& path) {
    const Parent item = ByPath(path);
    if (item.result != 1) return {item.result};
    return {1, HandleOf(item.path)};
}

int GeneratorModel::ItemPath(int32_t handle, std::wstring& path) {
    const auto found = handleToPath.find(handle);
    if (found == handleToPath.end()) return -2;
    path = TranslatePointer(document, found->second);
    return 1;
}

uint32_t GeneratorModel::HandleOf(const std::wstring& path) {
    const auto issued = pathToHandle.emplace(path, lastHandle + 1);
    if (issued.second) handleToPath[static_cast<int32_t>(++lastHandle)] = path;
    return issued.first->second;
}

}  // namespace model
