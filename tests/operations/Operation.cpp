#include "Operation.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace support {

const char* NameOf(NamedBy naming) {
    constexpr const char* kNames[] = {"alone", "by handle", "by reference", "by path"};
    return kNames[static_cast<int>(naming)];
}

const char* NameOf(Parameter parameter) {
    constexpr const char* kNames[] = {"handle",
                                      "reference",
                                      "path",
                                      "key",
                                      "index",
                                      "text",
                                      "file name",
                                      "bytes",
                                      "length",
                                      "number",
                                      "encoding",
                                      "style",
                                      "variant",
                                      "variant",
                                      "object",
                                      "delegate",
                                      "what is passed on",
                                      "output handle",
                                      "output reference",
                                      "output type",
                                      "output number",
                                      "output text",
                                      "output bytes",
                                      "output length",
                                      "output variant",
                                      "output path"};
    static_assert(std::size(kNames) == parameters::kOutPath + 1);
    return kNames[parameter];
}

bool Operation::Takes(Parameter parameter) const {
    return std::find(parameters.begin(), parameters.end(), parameter) != parameters.end();
}

std::ostream& operator<<(std::ostream& out, const Operation& operation) {
    return out << operation.name;
}

const Operation& OperationNamed(const Operations& operations, const std::string& name) {
    for (const Operation& operation : operations)
        if (operation.name == name) return operation;
    throw std::invalid_argument("no operation " + name);
}

Operations Joined(std::initializer_list<Operations> lists) {
    Operations all;
    for (const Operations& list : lists) all.insert(all.end(), list.begin(), list.end());
    return all;
}

}  // namespace support
