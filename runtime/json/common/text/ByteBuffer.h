#pragma once

#include <rapidjson/internal/stack.h>
#include <stdint.h>

#include "common/values/HeapAllocator.h"

namespace QXJSON {

/// Memory that grows at its end.
using ByteBuffer = rapidjson::internal::Stack<HeapAllocator>;

/// A buffer as the stream of a TextWriter.
template <class Unit>
class ByteBufferStream {
public:
    static constexpr size_t kMostReserved = SIZE_MAX;

    explicit ByteBufferStream(ByteBuffer& target) : buffer(target) {}

    Unit* Reserve(size_t count) {
        buffer.template Reserve<Unit>(count);
        return Top();
    }
    void Advance(Unit* end) { buffer.template PushUnsafe<Unit>(static_cast<size_t>(end - Top())); }

private:
    Unit* Top() { return buffer.template PushUnsafe<Unit>(0); }

    ByteBuffer& buffer;
};

}  // namespace QXJSON
