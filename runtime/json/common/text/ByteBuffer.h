#pragma once

#include <rapidjson/internal/stack.h>

#include "common/values/HeapAllocator.h"

namespace QXJSON {

/// Memory that grows at its end.
using ByteBuffer = rapidjson::internal::Stack<HeapAllocator>;

/// A buffer as the target of RapidJSON's writers, for units of any size: what GenericStringBuffer
/// is for one.
template <class Unit>
class ByteBufferStream {
public:
    using Ch = Unit;

    explicit ByteBufferStream(ByteBuffer& target) : lender(target) { buffer.Swap(lender); }
    ByteBufferStream(const ByteBufferStream&) = delete;
    ByteBufferStream& operator=(const ByteBufferStream&) = delete;
    ~ByteBufferStream() { buffer.Swap(lender); }

    void Put(Unit unit) { *buffer.template Push<Unit>() = unit; }
    void Reserve(size_t count) { buffer.template Reserve<Unit>(count); }
    Unit* PushUnsafe(size_t count) { return buffer.template PushUnsafe<Unit>(count); }
    void Flush() {}

private:
    ByteBuffer& lender;
    ByteBuffer buffer{nullptr, 0};  // the lender's memory
};

// Found by the writers in place of RapidJSON's own, which reserve nothing.

template <class Unit>
void PutReserve(ByteBufferStream<Unit>& stream, size_t count) {
    stream.Reserve(count);
}
template <class Unit>
void PutUnsafe(ByteBufferStream<Unit>& stream, typename ByteBufferStream<Unit>::Ch unit) {
    *stream.PushUnsafe(1) = unit;
}

}  // namespace QXJSON
