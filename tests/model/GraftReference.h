#pragma once

#include "GraftRoute.h"
#include "PlainReader.h"

namespace model {

/// A source that a generator takes in, as it must be understood.
struct Taken {
    enum Kind { kBroken, kScalar, kContainer };

    Kind kind;
    Document tree;  ///< of a container
};

/// The source as a route reads it (PlainReader.h).
Taken ReferenceTake(const support::Operation& route, const support::GraftSource& source);

}  // namespace model
