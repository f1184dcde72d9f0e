#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// Names of a kind that an index of names may be slow with: their hash codes are equal or close
/// together when letter case is folded without care, or when the hash function is weak.
struct NameFamily {
    const char* key;
    const char* title;
    std::wstring (*name)(size_t number);
    bool oneWithoutCase;  ///< they are all the same name where letter case is ignored
};

/// Those with which growth is measured.
const std::vector<NameFamily>& HostileFamilies();
/// The numbered ones among them, as programs make them.
const std::vector<NameFamily>& NumberedFamilies();

/// An object of such names, and a hundred searches in it.
struct NameScene {
    NameScene(const NameFamily& family, size_t count);

    std::vector<std::wstring> names;     ///< of the members
    std::vector<int32_t> values;         ///< of the members; those of equal names are equal
    std::vector<std::wstring> searched;  ///< absent names and present ones, in turns
    int64_t expected = 0;                ///< the sum of what is found

    /// The object as a document.
    std::wstring Text() const;
};

}  // namespace bench
