#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Events.h"

namespace tool {

/// Finds what the library reads although it is not JSON (RFC 8259): the first place of each.
class Findings : public Events {
public:
    void Scalar(ValueKind kind, std::string_view text) override;
    void Key(std::string_view name) override;
    void Start(ValueKind container) override;
    void End(ValueKind container) override;

    std::optional<uint64_t> notFinite;     ///< NaN or an infinity
    std::optional<uint64_t> repeatedName;  ///< the second of two members with the same name

private:
    struct Name {
        size_t hash;
        size_t begin, length;  ///< in `texts`
        uint64_t place;
    };

    void FindRepeated(size_t first);

    // Of the objects that are open.
    std::vector<Name> names;
    std::string texts;
    std::vector<size_t> firsts;  ///< the first name of each
};

}  // namespace tool
