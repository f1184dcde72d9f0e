#include "Findings.h"

#include <algorithm>
#include <cstddef>
#include <functional>

namespace tool {

void Findings::Scalar(ValueKind kind, std::string_view text) {
    if (kind == ValueKind::kNumber && !notFinite && text.find_first_of("NI") != text.npos)
        notFinite = place;
}

void Findings::Key(std::string_view name) {
    names.push_back({std::hash<std::string_view>()(name), texts.size(), name.size(), place});
    texts.append(name);
}

void Findings::Start(ValueKind container) {
    if (container == ValueKind::kObject) firsts.push_back(names.size());
}

void Findings::End(ValueKind container) {
    if (container != ValueKind::kObject) return;
    const size_t first = firsts.back();
    firsts.pop_back();
    if (first == names.size()) return;
    const size_t textsBefore = names[first].begin;
    FindRepeated(first);
    names.resize(first);
    texts.resize(textsBefore);
}

void Findings::FindRepeated(size_t first) {
    const auto begin = names.begin() + static_cast<std::ptrdiff_t>(first);
    const auto textOf = [this](const Name& name) {
        return std::string_view(texts).substr(name.begin, name.length);
    };
    std::sort(begin, names.end(), [&](const Name& a, const Name& b) {
        if (a.hash != b.hash) return a.hash < b.hash;
        const int order = textOf(a).compare(textOf(b));
        return order != 0 ? order < 0 : a.place < b.place;
    });
    for (auto at = begin; at + 1 < names.end(); ++at)
        if (at[0].hash == at[1].hash && textOf(at[0]) == textOf(at[1]))
            repeatedName = std::min(at[1].place, repeatedName.value_or(at[1].place));
}

}  // namespace tool
