#include "Tree.h"

#include <algorithm>

namespace tool {

void Tree::Add(std::string_view text, ValueKind kind, bool isKey) {
    nodes.push_back({texts.size(), static_cast<uint32_t>(text.size()), kind, isKey});
    texts.append(text);
}

void Tree::Count() {
    if (!open.empty()) ++nodes[open.back()].length;
}

void Tree::Scalar(ValueKind kind, std::string_view text) {
    Count();
    Add(text, kind, false);
}

void Tree::Key(std::string_view name) { Add(name, ValueKind::kString, true); }

void Tree::Start(ValueKind container) {
    Count();
    open.push_back(nodes.size());
    nodes.push_back({0, 0, container, false});
}

void Tree::End(ValueKind) {
    nodes[open.back()].text = nodes.size();
    open.pop_back();
}

bool Tree::IsContainer(size_t value) const {
    return nodes[value].kind == ValueKind::kObject || nodes[value].kind == ValueKind::kArray;
}

std::string_view Tree::TextOf(size_t value) const {
    return std::string_view(texts).substr(nodes[value].text, nodes[value].length);
}

std::vector<Tree::Child> Tree::ChildrenOf(size_t value) const {
    std::vector<Child> children;
    if (!IsContainer(value)) return children;
    children.reserve(CountOf(value));
    for (size_t at = value + 1; at < nodes[value].text; at = After(at)) {
        const bool isMember = nodes[at].isKey;
        const std::string_view key = isMember ? TextOf(at) : std::string_view();
        if (isMember) ++at;
        children.push_back({key, at});
    }
    return children;
}

void Tree::Play(size_t value, Events& events) const {
    std::vector<size_t> containers;  // those that are open
    const size_t end = After(value);
    for (size_t at = value;; ++at) {
        for (; !containers.empty() && nodes[containers.back()].text == at; containers.pop_back())
            events.End(nodes[containers.back()].kind);
        if (at == end) return;
        if (nodes[at].isKey)
            events.Key(TextOf(at));
        else if (!IsContainer(at))
            events.Scalar(nodes[at].kind, TextOf(at));
        else {
            events.Start(nodes[at].kind);
            containers.push_back(at);
        }
    }
}

void Tree::PlaySorted(size_t value, Events& events) const {
    struct Level {
        ValueKind kind;
        std::vector<Child> children;
        size_t next;
    };
    std::vector<Level> levels;  // of open containers
    const auto play = [&](size_t at) {
        if (!IsContainer(at)) {
            events.Scalar(nodes[at].kind, TextOf(at));
            return;
        }
        events.Start(nodes[at].kind);
        levels.push_back({nodes[at].kind, ChildrenOf(at), 0});
        if (nodes[at].kind == ValueKind::kObject)
            std::stable_sort(levels.back().children.begin(), levels.back().children.end(),
                             [](const Child& a, const Child& b) { return a.key < b.key; });
    };
    play(value);
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.children.size()) {
            events.End(level.kind);
            levels.pop_back();
            continue;
        }
        const Child& child = level.children[level.next++];
        if (level.kind == ValueKind::kObject) events.Key(child.key);
        play(child.value);
    }
}

}  // namespace tool
