#include "BuildModel.h"

#include <cwchar>

namespace building {
namespace {

constexpr wchar_t kDigits[] = L"0123456789";

bool HasDigit(const std::wstring& text) { return text.find_first_of(kDigits) != text.npos; }

bool IsNullText(const Item& item) {
    if (item.kind == Kind::kString) return item.payload.text == nullptr;
    return item.kind == Kind::kVariant && IsText(item) && item.payload.variant.text == nullptr;
}

bool IsEmptyHanded(const Item& item) {
    if (item.kind == Kind::kBlob) return item.payload.bytes == nullptr;
    return item.kind == Kind::kVariant && item.payload.variant.tag != QXJSON::kVariantInt64 &&
           item.payload.variant.tag != QXJSON::kVariantText;
}

bool IsBadSelector(const Item& item) {
    return item.kind == Kind::kSpecialNumber && item.payload.word > 3;
}

bool Fits(const Value& parent, const Operation& operation) {
    return operation.hasKey ? parent.IsObject() : parent.IsArray();
}

/// In an item path: the segment from `start` on, up to the slash that ends it.
std::wstring SegmentAt(const std::wstring& path, size_t start) {
    size_t end = start;
    while (end < path.size() && path[end] != L'/') end += path.compare(end, 2, L"~/") == 0 ? 2 : 1;
    return path.substr(start, end - start);
}

std::wstring Replaced(std::wstring text, const wchar_t* from, const wchar_t* to) {
    for (size_t at = 0; (at = text.find(from, at)) != text.npos; at += 2) text.replace(at, 2, to);
    return text;
}

}  // namespace

Model::Model(rapidjson::Type root) : document(root) {}

Answer Model::Add(const Operation& operation, const Item& item, const Arguments& arguments,
                  const std::wstring& target) {
    if (IsEmptyHanded(item)) return {0};
    if (operation.place == Place::kReference)
        return AddByReference(operation, item, arguments, target);
    std::wstring parentPath;
    if (operation.place == Place::kHandle) {
        const auto found = handleToPath.find(arguments.handle);
        if (found == handleToPath.end()) return {-2};
        parentPath = found->second;
    } else {
        const int result = Translate(arguments.path, parentPath);
        if (result != 1) return {result};
        if (!Has(parentPath)) return {-10};
    }
    return AddBelow(parentPath, operation, item, arguments);
}

Answer Model::AddByReference(const Operation& operation, const Item& item,
                             const Arguments& arguments, const std::wstring& target) {
    if (arguments.reference == 0) return {-2};
    if (operation.hasKey && arguments.key == nullptr) return {-1};
    if (IsNullText(item)) return {-4};
    Value& parent = *Resolve(document, target);
    if (!Fits(parent, operation)) return {-3};
    Append(parent, operation, item, arguments.key);
    return {1};
}

Answer Model::AddBelow(const std::wstring& parentPath, const Operation& operation, const Item& item,
                       const Arguments& arguments) {
    if (operation.hasKey && arguments.key == nullptr) return {-5};
    if (IsBadSelector(item)) return {0};
    if (operation.hasKey) {
        const std::wstring path = parentPath + L"/" + arguments.key;
        if (pathToHandle.count(path) != 0) return Overwrite(path, operation, item);
    }
    Value* parent = Resolve(document, parentPath);
    if (parent == nullptr) return {-2};
    if (IsNullText(item)) return {-4};
    if (!Fits(*parent, operation)) return {-3};
    Append(*parent, operation, item, arguments.key);
    return {1, HandleOf(parentPath + L"/" +
                        (operation.hasKey ? arguments.key : std::to_wstring(parent->Size() - 1)))};
}

Answer Model::Overwrite(const std::wstring& path, const Operation& operation, const Item& item) {
    Value* value = Resolve(document, path);
    const bool fails = IsText(item) && (value == nullptr || IsNullText(item));
    if (fails) return {-5};
    if (value != nullptr) *value = Stored(item, operation.place, document.GetAllocator());
    return {1, pathToHandle[path]};
}

void Model::Append(Value& parent, const Operation& operation, const Item& item,
                   const wchar_t* key) {
    Allocator& allocator = document.GetAllocator();
    Value value = Stored(item, operation.place, allocator);
    if (operation.hasKey)
        parent.AddMember(NewString(key, allocator), value, allocator);
    else
        parent.PushBack(value, allocator);
}

Answer Model::ItemHandleByPath(const std::wstring& path) {
    std::wstring pointer;
    const int result = Translate(path, pointer);
    if (result != 1) return {result};
    if (!Has(pointer)) return {-10};
    return {1, HandleOf(pointer)};
}

/// Below an array, a segment with a digit counts from 1 in an item path, from 0 in a pointer.
int Model::ItemPath(int32_t handle, std::wstring& path) {
    const auto found = handleToPath.find(handle);
    if (found == handleToPath.end()) return -2;
    const std::wstring& pointer = found->second;
    path = pointer.empty() ? L"/" : L"";
    for (size_t start = 0; start < pointer.size();) {
        size_t end = pointer.find(L'/', start + 1);
        if (end == pointer.npos) end = pointer.size();
        std::wstring segment = pointer.substr(start + 1, end - start - 1);
        const Value* parent = Resolve(document, pointer.substr(0, start));
        if (HasDigit(segment) && parent != nullptr && parent->IsArray())
            segment = std::to_wstring(std::wcstol(segment.c_str(), nullptr, 10) + 1);
        path += L"/" + segment;
        start = end;
    }
    path = Replaced(path, L"~1", L"~/");
    return 1;
}

/// Looking for the kind of a parent that does not exist is a fault.
int Model::Translate(const std::wstring& path, std::wstring& pointer) {
    pointer.clear();
    if (path == L"/") return 1;
    if (path.empty() || path[0] != L'/') return -10;
    for (size_t start = 0; start < path.size();) {
        const std::wstring segment = SegmentAt(path, start + 1);
        start += 1 + segment.size();
        std::wstring translated = Replaced(segment, L"~/", L"~1");
        if (HasDigit(segment)) {
            const Value* parent = Resolve(document, pointer);
            if (parent == nullptr) return -5;
            if (parent->IsArray())
                translated = std::to_wstring(std::wcstol(segment.c_str(), nullptr, 10) - 1);
        }
        pointer += L"/" + translated;
    }
    return 1;
}

uint32_t Model::HandleOf(const std::wstring& path) {
    const auto issued = pathToHandle.emplace(path, lastHandle + 1);
    if (issued.second) handleToPath[static_cast<int32_t>(++lastHandle)] = path;
    return issued.first->second;
}

}  // namespace building
