#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Harness.h"

namespace bench {

using Tables = std::vector<std::unique_ptr<Table>>;

/// A table for the terminal.
std::string PlainText(const Table& table);

/// All tables as a page of Markdown.
std::string Markdown(const Tables& tables, int rounds);

/// Cost against size, for the tables that grow, as CSV: a line for each cell that was measured.
std::string Growth(const Tables& tables);

/// Writes what the options ask for.
void WriteReport(const Bench& bench);

}  // namespace bench
