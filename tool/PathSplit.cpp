#include "PathSplit.h"

namespace tool {

bool PathSplit::Belongs(ValueKind kind) {
    if (inside > 0) return true;
    if (!IsOnPath()) return false;
    if (hasRoot) {
        const bool isArray = container == ValueKind::kArray;
        if (isArray ? ++elements != path.segments[matched].position : !keyMatches) return false;
        ++matched;
    }
    hasRoot = true;
    container = kind;
    elements = 0;
    keyMatches = false;
    const bool isValue = matched == path.segments.size();
    over = isValue || (kind != ValueKind::kObject && kind != ValueKind::kArray);
    if (isValue) BeforeValue();
    return isValue;
}

void PathSplit::Scalar(ValueKind kind, std::string_view text) {
    (Belongs(kind) ? value : rest).Scalar(kind, text);
}

void PathSplit::Key(std::string_view name) {
    if (inside > 0) {
        value.Key(name);
        return;
    }
    keyMatches = IsOnPath() && name == path.segments[matched].key;
    if (keyMatches && IsLast())
        KeyOfValue(name);
    else
        rest.Key(name);
}

void PathSplit::Start(ValueKind kind) {
    const bool belongs = Belongs(kind);
    ++(belongs ? inside : depth);
    (belongs ? value : rest).Start(kind);
}

void PathSplit::End(ValueKind kind) {
    if (inside > 0) {
        --inside;
        value.End(kind);
        return;
    }
    if (IsOnPath()) {
        over = true;
        if (IsLast()) EndOfParent(kind, elements);
    }
    --depth;
    rest.End(kind);
}

}  // namespace tool
