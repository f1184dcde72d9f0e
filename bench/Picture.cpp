// The picture of cost against size: a panel for each table, both axes logarithmic.

#include <algorithm>
#include <cmath>
#include <string>

#include "Report.h"

namespace bench {
namespace {

constexpr int kColumns = 3;
constexpr int kPanelWidth = 280, kPanelHeight = 210;
constexpr int kLeft = 44, kTop = 24, kRight = 20, kBottom = 24;  // around the plot of a panel

struct Style {
    const char* contender;
    const char* colour;
};

constexpr Style kStyles[] = {
    {"RapidJSON", "#888"},
    {"nlohmann", "#e08a1e"},
    {"Boost.JSON", "#3a9d4f"},
    {"Json_Dll", "#1f5fbf"},
    {"Json_Dll handle", "#1f5fbf"},
    {"Json_Dll item", "#7aa7e8"},
    {"Json_Dll reference", "#8e44ad"},
    {"Json_Dll path", "#c0392b"},
};

std::string Number(double value) { return std::to_string(static_cast<int>(std::lround(value))); }

std::string Label(double x, double y, const char* anchor, const std::string& text) {
    return "<text x='" + Number(x) + "' y='" + Number(y) + "' text-anchor='" + anchor + "'>" +
           text + "</text>\n";
}

std::string Line(double x1, double y1, double x2, double y2, const std::string& style) {
    return "<path d='M" + Number(x1) + " " + Number(y1) + "L" + Number(x2) + " " + Number(y2) +
           "' " + style + "/>\n";
}

std::string PowerOfTen(int exponent) {
    if (exponent >= 6) return "1" + std::string(static_cast<size_t>(exponent - 6), '0') + "M";
    if (exponent >= 3) return "1" + std::string(static_cast<size_t>(exponent - 3), '0') + "k";
    return "1" + std::string(static_cast<size_t>(std::max(exponent, 0)), '0');
}

/// A logarithmic axis from one power of ten to another.
struct Axis {
    int low = 99, high = -99;  // exponents
    double from = 0, to = 1;   // places on the page

    void Include(double value) {
        low = std::min(low, static_cast<int>(std::floor(std::log10(value) + 1e-9)));
        high = std::max(high, static_cast<int>(std::ceil(std::log10(value) - 1e-9)));
    }
    double At(double value) const { return AtExponent(std::log10(value)); }
    double AtExponent(double exponent) const {
        return from + (to - from) * (exponent - low) / std::max(high - low, 1);
    }
};

/// One table's panel, with its left upper corner at (left, top).
class Panel {
public:
    Panel(const Table& shown, double left, double top) : table(shown) {
        x.from = left + kLeft;
        x.to = left + kPanelWidth - kRight;
        y.from = top + kPanelHeight - kBottom;
        y.to = top + kTop;
        for (const Row& row : table.rows) {
            x.Include(static_cast<double>(row.size));
            for (const auto& [name, cell] : row.cells)
                if (cell.rounds > 0) y.Include(cell.cost);
        }
    }

    std::string Svg() const {
        std::string svg = Label(x.from, y.to - 9, "start", table.key + ", ns");
        for (int exponent = x.low; exponent <= x.high; ++exponent) {
            const double at = x.AtExponent(exponent);
            svg += Line(at, y.from, at, y.to, kGrid);
            svg += Label(at, y.from + 14, "middle", PowerOfTen(exponent));
        }
        for (int exponent = y.low; exponent <= y.high; ++exponent) {
            const double at = y.AtExponent(exponent);
            svg += Line(x.from, at, x.to, at, kGrid);
            svg += Label(x.from - 4, at + 4, "end", PowerOfTen(exponent));
        }
        for (const Style& style : kStyles) svg += Curve(style);
        return svg;
    }

private:
    static constexpr const char* kGrid = "stroke='#ddd'";

    std::string Curve(const Style& style) const {
        std::string points;
        for (const Row& row : table.rows) {
            const auto found = row.cells.find(style.contender);
            if (found == row.cells.end() || found->second.rounds == 0) continue;
            points += (points.empty() ? "M" : "L") + Number(x.At(static_cast<double>(row.size))) +
                      " " + Number(y.At(found->second.cost));
        }
        if (points.empty()) return "";
        return "<path d='" + points + "' stroke='" + style.colour + "' stroke-width='2'/>\n";
    }

    const Table& table;
    Axis x, y;
};

std::string Legend(double left, double top) {
    std::string svg;
    for (const Style& style : kStyles) {
        // The library as a whole has the colour of its handles, and no line of its own.
        if (std::string(style.contender) == "Json_Dll") continue;
        top += 20;
        svg += Line(left + kLeft, top, left + kLeft + 24, top,
                    "stroke-width='2' stroke='" + std::string(style.colour) + "'");
        std::string name = style.contender;
        if (name == "Json_Dll handle") name += ", package";
        svg += Label(left + kLeft + 30, top + 4, "start", name);
    }
    return svg;
}

}  // namespace

std::string Picture(const Tables& tables) {
    std::string panels;
    int count = 0;
    const auto place = [&] {
        const int number = count++;
        return std::make_pair(kPanelWidth * (number % kColumns),
                              kPanelHeight * (number / kColumns));
    };
    for (const auto& table : tables) {
        if (!table->grows) continue;
        const auto [left, top] = place();
        panels += Panel(*table, left, top).Svg();
    }
    const auto [left, top] = place();
    panels += Legend(left, top);
    const int width = kColumns * kPanelWidth;
    const int height = (count + kColumns - 1) / kColumns * kPanelHeight + 8;
    return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 " + std::to_string(width) + " " +
           std::to_string(height) + "' font-family='sans-serif' font-size='11' fill='none'>\n" +
           "<rect width='100%' height='100%' fill='#fff'/>\n<style>text{fill:#333}</style>\n" +
           panels + "</svg>\n";
}

}  // namespace bench
