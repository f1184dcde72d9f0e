#include "Compare.h"

#include <cstring>

#include "Describe.h"

namespace replay {
namespace {

bool AreSame(const Value& recorded, const Value& actual, bool references) {
    // A file that the recorder could not read afterwards says nothing.
    if (recorded.tag == Tag::kNoFile) return true;
    if (recorded.tag == Tag::kFileSize && actual.tag == Tag::kBytes)
        return recorded.number == actual.count;
    if (recorded.tag != actual.tag) return false;
    if (recorded.tag == Tag::kReference && !references) return true;
    return recorded.number == actual.number && recorded.object == actual.object &&
           recorded.count == actual.count &&
           (recorded.DataSize() == 0 ||
            std::memcmp(recorded.data, actual.data, recorded.DataSize()) == 0);
}

}  // namespace

std::optional<std::string> FirstDifference(Values recorded, Values actual, bool references) {
    for (;;) {
        const Value expected = recorded.Next();
        const Value found = actual.Next();
        // How much stack a fault had left ends a return, and differs from run to run.
        const bool isEnd = expected.tag == Tag::kEnd || expected.tag == Tag::kStack;
        if (isEnd && (found.tag == Tag::kEnd || found.tag == Tag::kStack)) return std::nullopt;
        if (!AreSame(expected, found, references)) return Describe(found);
    }
}

}  // namespace replay
