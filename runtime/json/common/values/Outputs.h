#pragma once

#include <stddef.h>

namespace QXJSON {

/// Faults where the host's memory for an output cannot be written, and changes nothing where it
/// can. An operation makes sure of its outputs before it changes anything, and writes them last: a
/// call that fails has then done nothing. `count` is that of an array of outputs, no larger than a
/// page.
template <class T>
void EnsureWritable(T* output, size_t count = 1) {
    // The first and the last byte: an output may lie across two pages, and at any address.
    auto* const bytes = reinterpret_cast<volatile unsigned char*>(output);
    const size_t last = count * sizeof(T) - 1;
    const auto writeBack = [](volatile unsigned char* byte) {
        const unsigned char same = *byte;
        *byte = same;
    };
    writeBack(bytes);
    writeBack(bytes + last);
}

}  // namespace QXJSON
