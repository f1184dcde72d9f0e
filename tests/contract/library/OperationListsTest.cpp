// The lists of operations that the tests and fuzzers go over, next to the binary contract: neither
// has an operation that the other does not have.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "GeneratorOperationList.h"
#include "PackageOperationList.h"
#include "ParserOperationList.h"
#include "Slots.h"

namespace {

using support::Operation;
using support::Operations;

/// The lines of one of the files, each with an operation as C++ declares it.
std::vector<std::string> LinesOf(const char* slots) {
    std::istringstream file(slots);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

struct Family {
    const char* name;
    const char* slots;
    const Operations& (*operations)();
};

struct Declared {
    explicit Declared(const std::string& line)
        : returnsBool(line.rfind("bool ", 0) == 0),
          parameters(static_cast<size_t>(std::count(line.begin(), line.end(), ','))) {
        const size_t start = line.find(' ') + 1;
        const size_t end = line.find('(');
        name = line.substr(start, end - start);
        if (line.compare(end, 2, "()") != 0) ++parameters;
    }

    bool returnsBool;
    size_t parameters;
    std::string name;
};

class OperationLists : public testing::TestWithParam<Family> {
protected:
    const std::vector<std::string> lines = LinesOf(GetParam().slots);
    const Operations& operations = GetParam().operations();
};

TEST_P(OperationLists, HaveAnEntryForEverySlot) {
    for (size_t slot = 0; slot < lines.size(); ++slot) {
        SCOPED_TRACE(lines[slot]);
        const Declared declared(lines[slot]);
        const Operation& operation = OperationNamed(operations, declared.name);
        EXPECT_EQ(slot, operation.slot);
        EXPECT_EQ(declared.returnsBool, operation.returnsBool);
        EXPECT_EQ(declared.parameters, operation.parameters.size());
    }
}

TEST_P(OperationLists, HaveASlotForEveryEntry) {
    for (size_t i = 0; i < operations.size(); ++i) {
        SCOPED_TRACE(operations[i].name);
        EXPECT_EQ(i, operations[i].slot) << "an entry out of order";
        ASSERT_LT(operations[i].slot, lines.size());
        EXPECT_EQ(operations[i].name, Declared(lines[operations[i].slot]).name);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Families, OperationLists,
    testing::Values(Family{"IJsonParser", support::kParserSlots, &support::ParserOperations},
                    Family{"IJsonGenerator", support::kGeneratorSlots,
                           &support::GeneratorOperations},
                    Family{"IJsonPackage", support::kPackageSlots, &support::PackageOperations}),
    [](const auto& family) { return std::string(family.param.name); });

}  // namespace
