#include "Report.h"

#include <cpuid.h>
#include <rapidjson/rapidjson.h>

#include <algorithm>
#include <boost/version.hpp>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "Text.h"

namespace bench {
namespace {

std::string RatioText(double ratio) {
    if (ratio < 0.01) return "<0.01x";
    char text[32];
    std::snprintf(text, sizeof text, "%.*fx", ratio < 9.995 ? 2 : 1, ratio);
    return text;
}

std::string CellText(const Table& table, const Row& row, const std::string& contender,
                     int fullRounds) {
    const auto found = row.cells.find(contender);
    if (found == row.cells.end()) return "-";
    const Cell& cell = found->second;
    if (cell.rounds == 0) return "too long";
    std::string text = ShortNumber(cell.cost);
    if (contender != table.contenders.front() && cell.ratio > 0)
        text += " (" + RatioText(cell.ratio) + ")";
    return text + (cell.rounds < fullRounds ? "*" : "");
}

int FullRounds(const Table& table) {
    int most = 0;
    for (const Row& row : table.rows)
        for (const auto& [name, cell] : row.cells) most = std::max(most, cell.rounds);
    return most;
}

/// The table as text, with a line of titles in front.
std::vector<std::vector<std::string>> Lines(const Table& table) {
    const int fullRounds = FullRounds(table);
    std::vector<std::vector<std::string>> lines = {{table.axis}};
    lines[0].insert(lines[0].end(), table.contenders.begin(), table.contenders.end());
    for (const Row& row : table.rows) {
        lines.push_back({row.label});
        for (const std::string& contender : table.contenders)
            lines.back().push_back(CellText(table, row, contender, fullRounds));
    }
    return lines;
}

std::string Processor() {
    unsigned words[12] = {};
    for (unsigned leaf = 0; leaf < 3; ++leaf)
        __get_cpuid(0x80000002 + leaf, &words[4 * leaf], &words[4 * leaf + 1], &words[4 * leaf + 2],
                    &words[4 * leaf + 3]);
    char name[sizeof words + 1] = {};
    std::memcpy(name, words, sizeof words);
    std::string text = name;
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::string Compiler() {
    const std::string version = __VERSION__;  // of GCC the bare number
    return std::isdigit(static_cast<unsigned char>(version[0])) ? "GCC " + version : version;
}

std::string Versions() {
    return Compiler() + ", RapidJSON " RAPIDJSON_VERSION_STRING + ", nlohmann-json " +
           std::to_string(NLOHMANN_JSON_VERSION_MAJOR) + "." +
           std::to_string(NLOHMANN_JSON_VERSION_MINOR) + "." +
           std::to_string(NLOHMANN_JSON_VERSION_PATCH) + ", Boost.JSON of Boost " +
           std::to_string(BOOST_VERSION / 100000) + "." +
           std::to_string(BOOST_VERSION / 100 % 1000);
}

void WriteFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    if (!file.write(text.data(), static_cast<std::streamsize>(text.size())))
        throw std::runtime_error("cannot write " + path.string());
}

}  // namespace

std::string PlainText(const Table& table) {
    const auto lines = Lines(table);
    std::vector<size_t> widths(lines[0].size());
    for (const auto& line : lines)
        for (size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], line[i].size());
    std::string text = "\n" + table.key + ": " + table.title + "\n";
    for (const auto& line : lines) {
        for (size_t i = 0; i < line.size(); ++i) {
            const std::string gap(widths[i] - line[i].size(), ' ');
            text += i == 0 ? "  " + line[i] + gap : "  " + gap + line[i];
        }
        text += "\n";
    }
    return text;
}

std::string Markdown(const Tables& tables, int rounds) {
    std::string text =
        "# Results\n\nWritten by `script/bench`; [README.md](README.md) says how to read it.\n\n"
        "- " +
        Processor() + ", under Wine\n- " + Versions() + "\n- medians of " + std::to_string(rounds) +
        " rounds (fewer where a * follows), and in parentheses the median "
        "ratio to the first column\n\n![Cost against size](growth.svg)\n";
    for (const auto& table : tables) {
        text += "\n## " + table->key + "\n\n" + table->title + "\n";
        size_t number = 0;
        for (const auto& line : Lines(*table)) {
            text += "\n|";
            for (const std::string& cell : line) text += " " + cell + " |";
            if (number++ > 0) continue;
            text += "\n|---|";
            for (size_t i = 1; i < line.size(); ++i) text += "--:|";
        }
        text += "\n";
    }
    return text;
}

std::string Growth(const Tables& tables) {
    std::string lines = "table,contender,size,ns\n";
    for (const auto& table : tables) {
        if (!table->grows) continue;
        for (const std::string& contender : table->contenders)
            for (const Row& row : table->rows) {
                const auto cell = row.cells.find(contender);
                if (cell == row.cells.end() || cell->second.rounds == 0) continue;
                lines += table->key + ",\"" + contender + "\"," + std::to_string(row.size) + "," +
                         std::to_string(cell->second.cost) + "\n";
            }
    }
    return lines;
}

void WriteReport(const Bench& bench) {
    const Options& wanted = bench.Wanted();
    if (!wanted.report.empty()) {
        const std::filesystem::path folder = std::filesystem::u8path(wanted.report);
        std::filesystem::create_directories(folder);
        WriteFile(folder / "results.md", Markdown(bench.Tables(), wanted.rounds));
    }
    if (!wanted.growth.empty())
        WriteFile(std::filesystem::u8path(wanted.growth), Growth(bench.Tables()));
}

}  // namespace bench
