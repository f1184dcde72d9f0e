#pragma once

#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <stdint.h>

#include "PoolBlocks.h"

namespace QXJSON {

/// The encoding of every document in memory: UTF-16 in the platform's wchar_t.
using JsonEncoding = rapidjson::UTF16<wchar_t>;
/// Owns the values and strings of one document; frees them all at once, never one by one.
using JsonAllocator = rapidjson::MemoryPoolAllocator<PoolBlocks>;
using JsonValue = rapidjson::GenericValue<JsonEncoding, JsonAllocator>;
using JsonMember = JsonValue::Member;
using JsonDocument = rapidjson::GenericDocument<JsonEncoding, JsonAllocator, HeapAllocator>;
using JsonPointer = rapidjson::GenericPointer<JsonValue, HeapAllocator>;
using JsonTextBuffer = rapidjson::GenericStringBuffer<JsonEncoding, HeapAllocator>;

/// The pool of one document, which knows what lies in it. A small document takes no memory from the
/// heap.
class DocumentPool {
public:
    DocumentPool() : allocator(first, kFirstSize, kBlockSize, &blocks) {}
    DocumentPool(const DocumentPool&) = delete;
    DocumentPool& operator=(const DocumentPool&) = delete;

    JsonAllocator& Allocator() { return allocator; }
    bool Contains(const void* address) const {
        const auto at = reinterpret_cast<uintptr_t>(address);
        return at - reinterpret_cast<uintptr_t>(first) < kFirstSize || blocks.Contain(address);
    }
    /// How much of its memory is in use.
    size_t Size() const { return allocator.Size(); }

private:
    static constexpr size_t kFirstSize = 4 * 1024;
    static constexpr size_t kBlockSize = 64 * 1024;

    alignas(JsonValue) char first[kFirstSize];
    PoolBlocks blocks;
    JsonAllocator allocator;
};

/// Whether a value is one of the two kinds that a document may have as its root.
inline bool IsContainer(const JsonValue& value) { return value.IsObject() || value.IsArray(); }

}  // namespace QXJSON
