#pragma once

#include <string>
#include <string_view>

namespace bench {

/// Converts between UTF-16 and UTF-8 by Windows' functions, for the contenders whose documents are
/// UTF-8. Each result lives in the converter until its next conversion in the same direction, so
/// that a conversion allocates only when it is the longest so far.
class Converter {
public:
    std::string_view Utf8(std::wstring_view wide);
    /// The result is zero-terminated.
    std::wstring_view Wide(std::string_view utf8);

private:
    std::string bytes;
    std::wstring units;
};

/// A number with three significant digits, as tables show it.
std::string ShortNumber(double number);

/// 1000000 as 1,000,000.
std::string Grouped(size_t number);

}  // namespace bench
