#pragma once

#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <stdint.h>

#include <memory>
#include <vector>

#include "PoolBlocks.h"
#include "ReadingMemory.h"

namespace QXJSON {

/// The encoding of every document in memory: UTF-16 in the platform's wchar_t.
using JsonEncoding = rapidjson::UTF16<wchar_t>;
/// Owns the values and strings of one document; frees them all at once, never one by one.
using JsonAllocator = rapidjson::MemoryPoolAllocator<PoolBlocks>;
using JsonValue = rapidjson::GenericValue<JsonEncoding, JsonAllocator>;
using JsonMember = JsonValue::Member;
using JsonDocument = rapidjson::GenericDocument<JsonEncoding, JsonAllocator, ReadingMemory>;
using JsonPointer = rapidjson::GenericPointer<JsonValue, HeapAllocator>;
using JsonTextBuffer = rapidjson::GenericStringBuffer<JsonEncoding, HeapAllocator>;

/// The pool of one document, which knows what lies in it. A small document takes no memory from the
/// heap.
class DocumentPool {
public:
    class Annex;

    DocumentPool() : allocator(first, kFirstSize, kBlockSize, &blocks) {}
    DocumentPool(const DocumentPool&) = delete;
    DocumentPool& operator=(const DocumentPool&) = delete;

    JsonAllocator& Allocator() { return allocator; }
    bool Contains(const void* address) const {
        const auto at = reinterpret_cast<uintptr_t>(address);
        return at - reinterpret_cast<uintptr_t>(first) < kFirstSize || blocks.Contain(address);
    }
    /// How much of its memory is in use.
    size_t Size() const;
    bool IsEmpty() const { return allocator.Size() == 0; }

private:
    static constexpr size_t kFirstSize = 4 * 1024;
    static constexpr size_t kBlockSize = 64 * 1024;

    /// More memory of a pool, with an allocator of its own.
    struct Extension {
        explicit Extension(PoolBlocks& blocks)
            : allocator(first, kFirstSize, kBlockSize / 4, &blocks) {}

        alignas(JsonValue) char first[kFirstSize];
        JsonAllocator allocator;
    };

    alignas(JsonValue) char first[kFirstSize];
    PoolBlocks blocks;
    JsonAllocator allocator;
    std::vector<std::unique_ptr<Extension>> extensions;  // that were kept
};

/// Memory for values that may come to stay in a document: it lies in the document's pool, and is
/// given back unless it is kept. As long as it is there, nothing else may take memory from a pool
/// that was empty.
class DocumentPool::Annex {
public:
    explicit Annex(DocumentPool& whole)
        : pool(whole),
          extension(whole.IsEmpty() ? nullptr : std::make_unique<Extension>(whole.blocks)) {}
    ~Annex() {
        if (!kept && !extension) pool.allocator.Clear();
    }
    Annex(const Annex&) = delete;
    Annex& operator=(const Annex&) = delete;

    JsonAllocator& Allocator() { return extension ? extension->allocator : pool.allocator; }
    /// Whether so much is in use that keeping it costs less than copying what lies in it: the rest
    /// of its last block is lost.
    bool IsWorthKeeping() const;
    /// What lies in it stays as long as the pool. Its allocator may not be used afterwards. If it
    /// throws std::bad_alloc, nothing has changed.
    void Keep();

private:
    DocumentPool& pool;
    std::unique_ptr<Extension> extension;  // none where the pool itself is empty
    bool kept = false;
};

/// A document, with memory for reading it.
class ReadDocument : private ReadingMemory, public JsonDocument {
public:
    explicit ReadDocument(JsonAllocator& allocator)
        : JsonDocument(&allocator, ReadingMemory::kFirstSize, this) {}
};

/// Whether a value is one of the two kinds that a document may have as its root.
inline bool IsContainer(const JsonValue& value) { return value.IsObject() || value.IsArray(); }

}  // namespace QXJSON
