#include "Names.h"

#include <cwchar>
#include <iterator>

#include "Form.h"

namespace bench {
namespace {

/// As many units as tell apart a million names.
constexpr size_t kUnits = 20;

/// One of two units in each place, by the bits of the number.
std::wstring Pattern(size_t number, wchar_t zero, wchar_t one) {
    std::wstring name(kUnits, zero);
    for (size_t i = 0; i < kUnits; ++i)
        if (number >> i & 1) name[i] = one;
    return name;
}

std::wstring Equal(size_t) { return L"Customer"; }

std::wstring Cased(size_t number) {
    std::wstring name;
    for (size_t i = 0; i < kUnits; ++i)
        name += static_cast<wchar_t>((number >> i & 1 ? L'A' : L'a') + i);
    return name;
}

/// The two differ in the bit in which the cases of a letter differ, and are none.
std::wstring Signs(size_t number) { return Pattern(number, L'@', L'`'); }

/// The two differ in the same bit, and are letters whose case is not ignored.
std::wstring Cyrillic(size_t number) { return Pattern(number, L'\u0410', L'\u0430'); }

std::wstring Formatted(const wchar_t* format, size_t number) {
    wchar_t name[32];
    return {name, static_cast<size_t>(
                      std::swprintf(name, std::size(name), format, static_cast<int>(number)))};
}
std::wstring Padded(size_t number) { return Formatted(L"key%07d", number); }
std::wstring Short(size_t number) { return Formatted(L"k%d", number); }
std::wstring Field(size_t number) { return Formatted(L"field_%d", number); }

/// A name of the same length that is not in the family.
std::wstring Foreign(std::wstring name) {
    name.back() = L'!';
    return name;
}

}  // namespace

const std::vector<NameFamily>& HostileFamilies() {
    static const std::vector<NameFamily> families = [] {
        std::vector<NameFamily> all = {
            {"equal", "equal names", Equal, true},
            {"case", "names that differ in letter case alone", Cased, true},
            {"signs", "names of @ and `", Signs, false},
            {"cyrillic", "names of U+0410 and U+0430", Cyrillic, false},
        };
        const auto& numbered = NumberedFamilies();
        all.insert(all.end(), numbered.begin(), numbered.end());
        return all;
    }();
    return families;
}

const std::vector<NameFamily>& NumberedFamilies() {
    static const std::vector<NameFamily> families = {
        {"key0000001", "names as key0000001", Padded, false},
        {"k1", "names as k1", Short, false},
        {"field_1", "names as field_1", Field, false},
    };
    return families;
}

NameScene::NameScene(const NameFamily& family, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        names.push_back(family.name(i));
        values.push_back(names[i] == names[0] ? 0 : static_cast<int32_t>(i));
    }
    for (size_t i = 0; i < 50; ++i) {
        const size_t present = family.oneWithoutCase ? 0 : i * count / 50;
        searched.push_back(family.oneWithoutCase ? Foreign(names[0]) : family.name(count + i));
        searched.push_back(names[present]);
        expected += kAbsent + values[present];
    }
}

std::wstring NameScene::Text() const {
    std::wstring text = L"{";
    for (size_t i = 0; i < names.size(); ++i)
        text += (i ? L",\"" : L"\"") + names[i] + L"\":" + std::to_wstring(values[i]);
    return text + L"}";
}

}  // namespace bench
