#pragma once

#include "ImportPatch.h"
#include "JsonDll.h"

namespace support {

/// Lets allocations of the DLL fail on demand, and counts its blocks, for the life of the object.
/// There may be only one at a time, and only one thread may use the DLL meanwhile. Without a
/// request, allocations work.
class FailingAllocations {
public:
    explicit FailingAllocations(HMODULE module = JsonDll());
    ~FailingAllocations();

    /// Of the allocations from now on, the `first`-th (counted from 1) and the `count - 1` that
    /// follow fail.
    void Fail(int first, int count = 1);
    /// Whether an allocation has failed since the last call of Fail.
    bool Happened() const;
    /// From now on allocations work.
    void Stop();
    /// How many bytes the DLL has asked for since this object's life began, given back or not.
    size_t RequestedBytes() const;
    /// How many more blocks the DLL has than when this object's life began.
    long LiveBlocks() const;
    /// How many more bytes those blocks have.
    long long LiveBytes() const;

private:
    ImportPatch malloc;
    ImportPatch calloc;
    ImportPatch realloc;
    ImportPatch free;
};

}  // namespace support
