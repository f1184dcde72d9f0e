#include "MakeTable.h"

namespace replay {

std::vector<Operation> PackageTable() { return MakeTable(record::PackageOperations()); }

}  // namespace replay
