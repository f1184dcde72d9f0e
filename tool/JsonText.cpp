#include "JsonText.h"

namespace tool {

using namespace QXJSON::hosting;

std::wstring JsonText::Of(const Item& item) const {
    switch (item.Kind()) {
        case ValueKind::kString:
            return Of(item.As<std::wstring_view>().Get());
        case ValueKind::kNumber:
            return OfNumber(item);
        case ValueKind::kBoolean:
            return item.As<bool>().Get() ? L"true" : L"false";
        case ValueKind::kNull:
            return L"null";
        default:
            return std::wstring(item.Json().Get());
    }
}

std::wstring JsonText::Of(std::wstring_view text) const {
    scratch.NewArray().Get().Append(text).Get();
    return OfOnlyElement();
}

std::wstring JsonText::OfNumber(const Item& item) const {
    if (const auto number = item.As<int64_t>()) return std::to_wstring(*number);
    if (const auto number = item.As<uint64_t>()) return std::to_wstring(*number);
    scratch.NewArray().Get();
    uint32_t handle = 0;
    // By path a double stays one, even without a fraction: 3.0.
    scratch->AddArrayItemDoubleByPath(L"/", item.As<double>().Get(), &handle);
    return OfOnlyElement();
}

std::wstring JsonText::OfOnlyElement() const {
    const std::wstring_view array = scratch.Text().Get();
    return std::wstring(array.substr(1, array.size() - 2));
}

}  // namespace tool
