#include "MakeTable.h"

namespace replay {

std::vector<Operation> DelegateTable() { return MakeTable(record::DelegateOperations()); }

}  // namespace replay
