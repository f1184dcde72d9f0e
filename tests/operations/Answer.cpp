#include "Answer.h"

#include <cmath>
#include <cwchar>

namespace support {
namespace {

/// std::to_wstring formats, which is slow, and most outputs are numbers.
template <class Number>
std::wstring Digits(Number number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

}  // namespace

Answer::Answer(int answered, uint64_t number) : result(answered), outputs{Show(number)} {}

uint64_t Answer::Number() const {
    uint64_t number = 0;
    if (!outputs.empty())
        for (const wchar_t digit : outputs.front())
            number = number * 10 + static_cast<uint64_t>(digit - L'0');
    return number;
}

bool operator==(const Answer& a, const Answer& b) {
    return a.result == b.result && a.outputs == b.outputs;
}

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    out << answer.result;
    for (const std::wstring& output : answer.outputs) {
        out << " [";
        for (const wchar_t c : output.substr(0, 200)) {
            if (c >= 0x20 && c < 0x7F)
                out << static_cast<char>(c);
            else
                out << "\\x" << std::hex << static_cast<unsigned>(c) << std::dec << ' ';
        }
        out << ']';
    }
    return out;
}

std::wstring Show(bool flag) { return flag ? L"1" : L"0"; }
std::wstring Show(uint32_t number) { return Digits(number); }
std::wstring Show(int32_t number) { return Digits(number); }
std::wstring Show(uint64_t number) { return Digits(number); }
std::wstring Show(int64_t number) { return Digits(number); }
std::wstring Show(float number) { return Show(static_cast<double>(number)); }
std::wstring Show(const wchar_t* text) { return text ? text : L"null"; }

std::wstring Show(double number) {
    if (std::isnan(number)) return L"NaN";
    if (std::isinf(number)) return number > 0 ? L"Infinity" : L"-Infinity";
    wchar_t text[64] = {};
    std::swprintf(text, sizeof text / sizeof *text, L"%.17g", number);
    return text;
}

std::wstring Show(const QXJSON::JsonVariant& variant) {
    switch (variant.tag) {
        case QXJSON::kVariantText:
            return std::wstring(L"text ") + variant.text;
        case QXJSON::kVariantInt64:
            return L"number " + Show(variant.number);
        default:
            return L"tag " + std::to_wstring(variant.tag);
    }
}

std::wstring ShowBytes(const void* data, size_t size) {
    const auto* const bytes = static_cast<const uint8_t*>(data);
    return {bytes, bytes + size};
}

}  // namespace support
