#include "OperationTable.h"

namespace replay {

const Operation* OperationOf(const RecordHeader& record) {
    static const std::vector<Operation> tables[] = {ParserTable(), GeneratorTable(), PackageTable(),
                                                    DelegateTable()};
    const auto interface = static_cast<size_t>(record.interface);
    if (interface >= std::size(tables) || record.slot >= tables[interface].size()) return nullptr;
    return &tables[interface][record.slot];
}

const char* NameOf(record::Interface interface) {
    constexpr const char* names[] = {"parser", "generator", "package", "delegate"};
    const auto at = static_cast<size_t>(interface);
    return at < std::size(names) ? names[at] : "unknown";
}

}  // namespace replay
