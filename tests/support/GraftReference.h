#pragma once

#include <string>

#include "GraftRoute.h"

namespace support {

/// What is to come of a source: RapidJSON as it is behind its own detection of encodings, and for
/// files the second attempt in the ANSI code page.
struct Taken {
    enum Kind { kBroken, kScalar, kContainer };

    Kind kind;
    std::wstring tree;  ///< of a container: its compact text
};

/// The source as a route reads it. It must not be nested deeper than the stack of the test carries.
Taken ReferenceTake(const Operation& route, const GraftSource& source);

/// Takes a source in through a route, in a scene of its own, and expects what the reference makes
/// of it: the tree in its place, or the result of the failure and nothing changed. Tells whether
/// it was a tree.
bool ExpectAsReference(const Operation& route, const GraftSource& source);

}  // namespace support
