#pragma once

#include <string_view>

#include "Events.h"
#include "ItemPath.h"

namespace tool {

/// Divides a document in two: the value at a path, and the rest. Of members with the same key, the
/// path leads to the first.
class PathSplit : public Events {
public:
    /// The path must live as long as this object.
    PathSplit(const ItemPath& whereTo, Events& forValue, Events& forRest)
        : path(whereTo), value(forValue), rest(forRest) {}

    void Scalar(ValueKind kind, std::string_view text) override;
    void Key(std::string_view name) override;
    void Start(ValueKind container) override;
    void End(ValueKind container) override;

    /// Whether the value was there.
    bool Found() const { return hasRoot && matched == path.segments.size(); }
    /// Whether there was a value that the path without its last segment leads to.
    bool FoundParent() const { return matched + 1 >= path.segments.size(); }

protected:
    /// The key of the value. It goes to the rest.
    virtual void KeyOfValue(std::string_view name) { rest.Key(name); }
    /// The value begins.
    virtual void BeforeValue() {}
    /// The container that the path without its last segment leads to ends without the value; so
    /// many elements were in it.
    virtual void EndOfParent(ValueKind, uint64_t /*elements*/) {}

private:
    /// Whether what comes is directly in the container that the matched segments lead to, and that
    /// can still hold what the next segment names.
    bool IsOnPath() const { return !over && depth == matched + (hasRoot ? 1 : 0); }
    bool IsLast() const { return matched + 1 == path.segments.size(); }
    /// A value begins. Returns whether it belongs to the value at the path, or is it.
    bool Belongs(ValueKind kind);

    const ItemPath& path;
    Events& value;
    Events& rest;
    size_t matched = 0;  ///< how many segments led to a value
    size_t depth = 0;    ///< how many containers are open, outside the value
    size_t inside = 0;   ///< how many are open inside it
    bool hasRoot = false;
    bool over = false;                       ///< nothing that comes can be the value
    ValueKind container = ValueKind::kNull;  ///< of the container that the matched segments lead to
    bool keyMatches = false;
    uint64_t elements = 0;
};

}  // namespace tool
