#include "MakeTable.h"

namespace replay {

std::vector<Operation> ParserTable() { return MakeTable(record::ParserOperations()); }

}  // namespace replay
