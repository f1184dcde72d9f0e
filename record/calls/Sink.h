#pragma once

#include <cstdint>
#include <cstring>

#include "References.h"
#include "log/Format.h"

namespace record {

/// How much of what a host passes goes into a log.
struct Extent {
    bool hashed = false;  ///< texts and bytes as hashes alone
};

constexpr uint64_t kHashOfNothing = 0xCBF29CE484222325u;

/// FNV-1a with 64 bits; `hash` is that of what comes before.
inline uint64_t HashOf(const void* data, size_t size, uint64_t hash = kHashOfNothing) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    for (size_t i = 0; i < size; ++i) hash = (hash ^ bytes[i]) * 0x100000001B3u;
    return hash;
}

/// The bytes of a number with its tag.
constexpr size_t kNumberSize = 1 + sizeof(uint64_t);
/// Those of a text or bytes without its characters, and of its hash.
constexpr size_t kDataSize = 1 + sizeof(uint32_t) + sizeof(uint64_t);

/// Where the values of a record are written. There must be room for them.
class Sink {
public:
    Sink(uint8_t* at, References& references, const Extent& extent)
        : references(references), extent(extent), at(at) {}

    uint8_t* End() const { return at; }

    void Put(Tag tag) { *at++ = static_cast<uint8_t>(tag); }
    void Put(Tag tag, uint64_t number) {
        Put(tag);
        Copy(&number, sizeof number);
    }
    void Put(Reference reference) {
        Put(Tag::kReference);
        Copy(&reference.object, sizeof reference.object);
        Copy(&reference.number, sizeof reference.number);
    }
    /// A text or bytes, of which `count` units of `unitSize` bytes can be read.
    void PutData(Tag tag, const void* data, uint32_t count, size_t unitSize) {
        if (extent.hashed) {
            const bool isText = unitSize == sizeof(wchar_t);
            return PutHash(isText ? Tag::kTextHash : Tag::kBytesHash, count,
                           HashOf(data, count * unitSize));
        }
        Put(tag);
        Copy(&count, sizeof count);
        Copy(data, count * unitSize);
    }
    void PutHash(Tag tag, uint32_t count, uint64_t hash) {
        Put(tag);
        Copy(&count, sizeof count);
        Copy(&hash, sizeof hash);
    }

    /// What is written by other means: a tag, a count, and bytes that `fill(place)` puts in place,
    /// which returns their count. Not for logs of hashes: the bytes would be in the log for a
    /// moment, and stay in it after the hash.
    template <class Fill>
    void PutBytes(Fill fill) {
        uint8_t* const place = at + 1 + sizeof(uint32_t);
        const uint32_t count = fill(place);
        Put(Tag::kBytes);
        Copy(&count, sizeof count);
        at += count;
    }

    References& references;  ///< those of the object that is called
    const Extent& extent;

private:
    void Copy(const void* from, size_t size) {
        std::memcpy(at, from, size);
        at += size;
    }

    uint8_t* at;
};

}  // namespace record
