#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Events.h"

namespace tool {

/// A document in memory, with its numbers as they were written: the record of its events. Its
/// values are named by their indices.
class Tree : public Events {
public:
    void Scalar(ValueKind kind, std::string_view text) override;
    void Key(std::string_view name) override;
    void Start(ValueKind container) override;
    void End(ValueKind container) override;

    /// A member or element.
    struct Child {
        std::string_view key;  ///< empty for an element
        size_t value;
    };

    static constexpr size_t kRoot = 0;
    ValueKind KindOf(size_t value) const { return nodes[value].kind; }
    bool IsContainer(size_t value) const;
    /// The text of a value that is not a container, as Events have it.
    std::string_view TextOf(size_t value) const;
    /// How many members or elements a container has.
    size_t CountOf(size_t container) const { return nodes[container].length; }
    /// The members or elements of a container, in their order; none for anything else.
    std::vector<Child> ChildrenOf(size_t value) const;

    /// Calls the events of a value.
    void Play(size_t value, Events& events) const;
    /// The same with the members of every object in the order of their keys' code points; those
    /// with the same key keep theirs.
    void PlaySorted(size_t value, Events& events) const;

private:
    struct Node {
        uint64_t text;    ///< where its text begins; of a container, the index after its last node
        uint32_t length;  ///< of its text; of a container, the count
        ValueKind kind;
        bool isKey;
    };

    size_t After(size_t node) const { return IsContainer(node) ? nodes[node].text : node + 1; }
    void Add(std::string_view text, ValueKind kind, bool isKey);
    void Count();

    std::vector<Node> nodes;
    std::string texts;
    std::vector<size_t> open;  ///< containers
};

}  // namespace tool
