// Runs a fuzzer's inputs as a test: replay FOLDER
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "support/SpotChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

const bool fuzz::kMakesAllChecks = true;

namespace {

std::filesystem::path folder;

std::vector<std::filesystem::path> Inputs() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

void Replay(const std::filesystem::path& file) {
    // Should the program end in the middle, the last name tells where.
    std::printf("%s\n", file.filename().string().c_str());
    std::fflush(stdout);
    SCOPED_TRACE(file.filename().string());
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

TEST(Replay, EveryInputOfTheCorpus) {
    const auto inputs = Inputs();
    EXPECT_FALSE(inputs.empty());
    for (const auto& file : inputs) Replay(file);
}

TEST(Replay, EmptyInput) { LLVMFuzzerTestOneInput(nullptr, 0); }

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (argc != 2) return 2;
    folder = argv[1];
    return RUN_ALL_TESTS();
}
