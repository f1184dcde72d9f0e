#pragma once

#include <optional>
#include <vector>

#include "Player.h"
#include "calls/Form.h"

namespace replay {

/// A parameter, and how many values it has before the call and after it.
struct Parameter {
    const char* name;
    int before;
    int after;
    record::Form form;
};

struct Operation {
    const char* name;
    std::vector<Parameter> parameters;
    bool ends;    ///< the object's life
    bool renews;  ///< begins a new document
    /// Repeats a call; null for what only a delegate has.
    std::optional<Outcome> (*play)(Player&, PlayedObject&, uint32_t call);
};

/// The operations of each interface, by their slots.
std::vector<Operation> ParserTable();
std::vector<Operation> GeneratorTable();
std::vector<Operation> PackageTable();
std::vector<Operation> DelegateTable();

/// The operation of a record; null where this program knows none of that number.
const Operation* OperationOf(const RecordHeader& record);
const char* NameOf(record::Interface interface);

}  // namespace replay
