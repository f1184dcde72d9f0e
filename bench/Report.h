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

/// Cost against size, for the tables that grow, as SVG.
std::string Picture(const Tables& tables);

/// Writes results.md and growth.svg.
void WriteReport(const Bench& bench);

}  // namespace bench
