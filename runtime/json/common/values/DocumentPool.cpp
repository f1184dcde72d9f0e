#include "JsonTypes.h"

namespace QXJSON {

// LCOV_EXCL_START: the unit tests ask for it, to count what things cost
size_t DocumentPool::Size() const {
    size_t size = allocator.Size();
    for (const auto& extension : extensions) size += extension->allocator.Size();
    return size;
}
// LCOV_EXCL_STOP

bool DocumentPool::Annex::IsWorthKeeping() const {
    return !extension || extension->allocator.Size() > extension->allocator.Capacity() / 2;
}

void DocumentPool::Annex::Keep() {
    if (extension) {
        pool.extensions.emplace_back();
        try {
            pool.blocks.Add(extension->first, kFirstSize);
        } catch (...) {
            pool.extensions.pop_back();
            throw;
        }
        pool.extensions.back() = std::move(extension);
    }
    kept = true;
}

}  // namespace QXJSON
