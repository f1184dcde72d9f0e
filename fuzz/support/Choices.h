#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

namespace fuzz {

/// Turns the bytes of an input into choices. Behind the end of the input every choice is the first,
/// so that an input that is cut off still means something.
class Choices {
public:
    Choices(const uint8_t* bytes, size_t count) : at(bytes), end(bytes + count) {}

    bool AtEnd() const { return at == end; }

    /// A number from 0 to `bound` - 1, which takes two bytes where one would not do.
    uint32_t Below(uint32_t bound) {
        const uint32_t low = Byte();
        return (bound > 256 ? low | Byte() << 8 : low) % bound;
    }

    /// True once in so many times; never at the end of the bytes.
    bool OneIn(uint32_t times) { return Below(times) == times - 1; }

    template <class Range>
    const auto& Of(const Range& range) {
        return std::begin(range)[Below(static_cast<uint32_t>(std::size(range)))];
    }

    /// All that is left.
    std::string Rest() {
        const std::string rest(reinterpret_cast<const char*>(at), static_cast<size_t>(end - at));
        at = end;
        return rest;
    }

private:
    uint32_t Byte() { return at == end ? 0 : *at++; }

    const uint8_t* at;
    const uint8_t* end;
};

}  // namespace fuzz
