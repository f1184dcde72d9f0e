#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace bench {

/// Converts between UTF-16 and UTF-8, for the contenders whose documents are UTF-8. Each result
/// lives in the converter until its next conversion in the same direction, so that a conversion
/// allocates only when it is the longest so far. Texts are well-formed; nothing is checked.
class Converter {
public:
    std::string_view Utf8(std::wstring_view wide);
    /// The result has a zero behind it.
    std::wstring_view Wide(std::string_view utf8);

private:
    template <class Unit>
    struct Buffer {
        std::unique_ptr<Unit[]> units;
        size_t capacity = 0;

        Unit* Room(size_t needed);
    };

    Buffer<char> bytes;
    Buffer<wchar_t> units;
};

/// A number with three significant digits, as tables show it.
std::string ShortNumber(double number);

/// 1000000 as 1,000,000.
std::string Grouped(size_t number);

}  // namespace bench
