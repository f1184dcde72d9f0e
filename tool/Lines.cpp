#include "Lines.h"

#include <utility>

#include "Failure.h"
#include "Text.h"

namespace tool {

Lines::Lines(const std::string& argument) : label(L"(standard input)"), stream(stdin) {
    if (argument == "-") return;
    label = FromUtf8(argument);
    file.reset(_wfopen(Openable(label).c_str(), L"rb"));
    stream = file.get();
    if (!file) throw Failure{label + L": " + WhyUnreadable(label).value_or(kUnreadable)};
}

std::optional<Input> Lines::Next() {
    std::string line;
    while (ReadLine(line)) {
        ++number;
        if (number == 1 && line.compare(0, 3, "\xEF\xBB\xBF") == 0) line.erase(0, 3);
        if (line.find_first_not_of(" \t\r") != line.npos)
            return Input(std::move(line), label + L", line " + std::to_wstring(number));
    }
    return std::nullopt;
}

bool Lines::ReadLine(std::string& line) {
    line.clear();
    for (;;) {
        const size_t end = block.find('\n', at);
        line.append(block, at, end - at);
        if (end != block.npos) {
            at = end + 1;
            return true;
        }
        constexpr size_t kBlock = 64 * 1024;
        block.resize(kBlock);
        block.resize(std::fread(block.data(), 1, kBlock, stream));
        at = 0;
        if (std::ferror(stream)) throw Failure{label + L": " + kUnreadable};
        if (block.empty()) return !line.empty();
    }
}

}  // namespace tool
