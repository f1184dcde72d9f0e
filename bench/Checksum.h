#pragma once

#include <cstdint>
#include <string_view>

namespace bench {

// What each value of a document adds to the document's checksum. The sum does not depend on the
// order of members, which not every library keeps, nor on the last bits of a fraction, which the
// libraries do not agree on. It is cheap: a walk should be made of the library's work.

inline uint64_t NameSum(std::wstring_view name) {
    return 31 * name.size() + (name.empty() ? 0u : static_cast<uint64_t>(name[0]));
}

inline uint64_t StringSum(std::wstring_view text) {
    return 17 * text.size() + (text.empty() ? 0u : static_cast<uint64_t>(text[0]));
}

inline uint64_t NumberSum(double number) {
    // A thousand and a shift: the decimals of the documents never come near a boundary.
    const bool large = number > 1e15 || number < -1e15;
    return 13 *
           static_cast<uint64_t>(static_cast<int64_t>(large ? number : number * 1000 + 0.1234));
}

inline uint64_t BooleanSum(bool flag) { return flag ? 5 : 3; }

constexpr uint64_t kNullSum = 11;

inline uint64_t ContainerSum(size_t children) { return 19 + 23 * children; }

}  // namespace bench
