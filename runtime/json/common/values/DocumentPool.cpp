#include "JsonTypes.h"

namespace QXJSON {

size_t DocumentPool::Size() const {
    size_t size = allocator.Size();
    for (const auto& annex : annexes) size += annex->Size();
    return size;
}

void DocumentPool::Annex::Keep() { pool.annexes.push_back(std::move(allocator)); }

}  // namespace QXJSON
