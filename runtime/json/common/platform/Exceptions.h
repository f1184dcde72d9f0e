#pragma once

namespace QXJSON {

/// Has the compiler's runtime set up what it needs for exceptions on this thread, while there is
/// memory for it: an object's first failure may well be a lack of memory. Costs next to nothing
/// where that was done before.
void PrepareExceptions();

}  // namespace QXJSON
