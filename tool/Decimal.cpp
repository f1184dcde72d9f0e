#include "Decimal.h"

#include <cstdlib>
#include <string>

namespace tool {
namespace {

/// A number as 0.DIGITS times a power of ten; without digits it is zero.
struct Decimal {
    bool isNegative = false;
    std::string digits;  ///< without zeros at either end
    long long exponent = 0;
};

Decimal DecimalOf(std::string_view text) {
    Decimal number;
    number.isNegative = text[0] == '-';
    if (number.isNegative) text.remove_prefix(1);
    const size_t e = text.find_first_of("eE");
    if (e != text.npos) {
        number.exponent = std::strtoll(std::string(text.substr(e + 1)).c_str(), nullptr, 10);
        text = text.substr(0, e);
    }
    const size_t point = text.find('.');
    number.digits = text.substr(0, point);
    number.exponent += static_cast<long long>(number.digits.size());
    if (point != text.npos) number.digits += text.substr(point + 1);

    const size_t zeros = number.digits.find_first_not_of('0');
    if (zeros == std::string::npos) return {};
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    number.digits.erase(0, zeros);
    number.exponent -= static_cast<long long>(zeros);
    return number;
}

}  // namespace

bool IsSameNumber(std::string_view a, std::string_view b) {
    if (a == b) return true;
    if (a.find_first_of("NI") != a.npos || b.find_first_of("NI") != b.npos)
        return a.substr(0, a.find("inity")) == b.substr(0, b.find("inity"));  // Inf is Infinity
    const Decimal x = DecimalOf(a), y = DecimalOf(b);
    return x.isNegative == y.isNegative && x.digits == y.digits && x.exponent == y.exponent;
}

}  // namespace tool
