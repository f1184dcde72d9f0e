#include "Operation.h"

#include <algorithm>
#include <stdexcept>

namespace support {

const char* NameOf(Place place) {
    constexpr const char* kNames[] = {"alone", "by handle", "by reference", "by path"};
    return kNames[static_cast<int>(place)];
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
