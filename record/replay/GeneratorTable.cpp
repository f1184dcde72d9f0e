#include "MakeTable.h"

namespace replay {

std::vector<Operation> GeneratorTable() { return MakeTable(record::GeneratorOperations()); }

}  // namespace replay
