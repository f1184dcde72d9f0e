#include "Text.h"

#include <windows.h>

#include <cstdio>

namespace bench {

std::string_view Converter::Utf8(std::wstring_view wide) {
    if (wide.empty()) return {};
    const size_t most = 3 * wide.size();
    if (bytes.size() < most) bytes.resize(most);
    const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()),
                                           bytes.data(), static_cast<int>(most), nullptr, nullptr);
    return {bytes.data(), static_cast<size_t>(length)};
}

std::wstring_view Converter::Wide(std::string_view utf8) {
    if (utf8.empty()) return L"";
    const size_t most = utf8.size();
    if (units.size() <= most) units.resize(most + 1);
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(most),
                                           units.data(), static_cast<int>(most));
    units[static_cast<size_t>(length)] = 0;
    return {units.data(), static_cast<size_t>(length)};
}

std::string ShortNumber(double number) {
    if (number >= 9999.5) return Grouped(static_cast<size_t>(number + 0.5));
    char text[32];
    int decimals = 0;
    for (double rest = number; rest < 99.95 && decimals < 6; rest *= 10) ++decimals;
    std::snprintf(text, sizeof text, "%.*f", decimals, number);
    return text;
}

std::string Grouped(size_t number) {
    std::string text = std::to_string(number);
    for (size_t at = text.size(); at > 3; at -= 3) text.insert(at - 3, ",");
    return text;
}

}  // namespace bench
