#include "ByteSink.h"

#include <utility>

namespace tool {

void ByteSink::NewBlock() {
    if (file && block) {
        PassOn(file);
        return;
    }
    if (block) full.push_back(std::move(block));
    block = std::make_unique<Ch[]>(kBlock);
    used = 0;
}

void ByteSink::PassOn(std::FILE* target) {
    for (const auto& whole : full) std::fwrite(whole.get(), 1, kBlock, target);
    full.clear();
    if (!block) return;
    std::fwrite(block.get(), 1, used, target);
    used = 0;
}

std::string ByteSink::Text() const {
    std::string text;
    for (const auto& whole : full) text.append(whole.get(), kBlock);
    if (block) text.append(block.get(), used);
    return text;
}

}  // namespace tool
