#include "DocumentWalk.h"

#include <algorithm>

namespace QXJSON {
namespace {

const JsonValue& ValueOf(const JsonMember& member) { return member.value; }
const JsonValue& ValueOf(const JsonValue& element) { return element; }

template <class Child>
const JsonValue* NextContainer(WalkTrail::Level& level) {
    for (auto* child = static_cast<const Child*>(level.next); child != level.end; ++child) {
        if (!IsContainer(ValueOf(*child))) continue;
        level.next = child + 1;
        return &ValueOf(*child);
    }
    return nullptr;
}

/// The next value that is a container itself, or null; the walk goes on after it.
const JsonValue* NextContainer(WalkTrail::Level& level) {
    return level.container->IsObject() ? NextContainer<JsonMember>(level)
                                       : NextContainer<JsonValue>(level);
}

}  // namespace

void WalkTrail::Grow() {
    const auto used = static_cast<size_t>(top - bottom);
    std::unique_ptr<Level[]> larger(new Level[2 * used]);
    std::copy(bottom, top, larger.get());
    grown = std::move(larger);
    bottom = grown.get();
    top = bottom + used;
    end = bottom + 2 * used;
}

size_t DepthOf(const JsonValue& value, WalkTrail& trail) {
    if (!IsContainer(value)) return 0;
    trail.Clear();
    WalkTrail::Level level = WalkTrail::Level::Of(value);
    size_t depth = 1;
    size_t deepest = 1;
    const JsonValue* inner = NextContainer(level);
    for (;;) {
        if (inner) {
            deepest = std::max(deepest, depth + 1);
            WalkTrail::Level below = WalkTrail::Level::Of(*inner);
            inner = NextContainer(below);
            if (inner) {
                trail.Push(level);
                level = below;
                ++depth;
            } else {
                inner = NextContainer(level);
            }
        } else {
            if (trail.IsEmpty()) return deepest;
            level = trail.Pop();
            --depth;
            inner = NextContainer(level);
        }
    }
}

}  // namespace QXJSON
