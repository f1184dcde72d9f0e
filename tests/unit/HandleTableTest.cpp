// Handles against a map: values of documents in every order that a host may ask for them in.

#include "parser/HandleTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

namespace {

using namespace QXJSON;

/// A table, and what it has to return.
class Subject {
public:
    void Ask(JsonValue& value) {
        const auto known = model.emplace(&value, static_cast<uint32_t>(model.size() + 1)).first;
        ASSERT_EQ(known->second, table.HandleOf(value));
        ASSERT_EQ(&value, table.ValueOf(known->second));
    }

    /// All handles that were issued, and those that were not.
    void Check() {
        for (const auto& [value, handle] : model) {
            ASSERT_EQ(value, table.ValueOf(handle));
            ASSERT_EQ(handle, table.HandleOf(*value));
        }
        EXPECT_EQ(nullptr, table.ValueOf(0));
        EXPECT_EQ(nullptr, table.ValueOf(static_cast<uint32_t>(model.size() + 1)));
        EXPECT_EQ(nullptr, table.ValueOf(UINT32_MAX));
    }

private:
    HandleTable table;
    std::map<JsonValue*, uint32_t> model;
};

/// Addresses of values, in the order in which they lie in memory. They are never looked at.
std::vector<JsonValue*> Values(std::vector<JsonValue>& memory) {
    std::vector<JsonValue*> values;
    for (JsonValue& value : memory) values.push_back(&value);
    return values;
}

constexpr size_t kMany = 300'000;  // more than a page can keep the distances of

TEST(HandleTable, StartsWithNothing) { Subject().Check(); }

TEST(HandleTable, InTheOrderOfMemory) {
    std::vector<JsonValue> memory(kMany);
    Subject subject;
    for (JsonValue* value : Values(memory)) subject.Ask(*value);
    subject.Check();
}

/// Values begin where a pool puts them, at any multiple of their alignment, and those of one
/// stretch need not have the same distance to a multiple of their size.
TEST(HandleTable, AtEveryAlignment) {
    std::vector<JsonValue> memory(1000);
    auto* const bytes = reinterpret_cast<char*>(memory.data());
    Subject subject;
    for (size_t at = 0, i = 0; at + sizeof(JsonValue) <= memory.size() * sizeof(JsonValue); ++i) {
        subject.Ask(*reinterpret_cast<JsonValue*>(bytes + at));
        at += sizeof(JsonValue) + i % 3 * alignof(JsonValue);
    }
    subject.Check();
}

TEST(HandleTable, AgainstTheOrderOfMemory) {
    std::vector<JsonValue> memory(kMany);
    Subject subject;
    std::vector<JsonValue*> values = Values(memory);
    std::reverse(values.begin(), values.end());
    for (JsonValue* value : values) subject.Ask(*value);
    subject.Check();
}

/// The values of one page are asked for so far apart that their handles are, too.
TEST(HandleTable, WithLongDistances) {
    for (const size_t stride : {3u, 64u, 1000u, 65'535u, 65'536u, 100'000u}) {
        std::vector<JsonValue> memory(kMany);
        Subject subject;
        for (size_t start = 0; start < stride; ++start)
            for (size_t i = start; i < kMany; i += stride) subject.Ask(memory[i]);
        subject.Check();
    }
}

/// The largest distance that a page keeps, and the first that it does not.
TEST(HandleTable, AtTheEdgeOfDistances) {
    for (const size_t between : {65'533u, 65'534u, 65'535u, 65'536u}) {
        std::vector<JsonValue> memory(kMany);
        Subject subject;
        subject.Ask(memory[0]);
        for (size_t i = 0; i < between; ++i) subject.Ask(memory[1000 + i]);
        for (size_t i = 1; i < 64; ++i) subject.Ask(memory[i]);
        subject.Check();
    }
}

TEST(HandleTable, InAnyOrderAndAgain) {
    std::vector<JsonValue> memory(kMany);
    std::vector<JsonValue*> values = Values(memory);
    std::mt19937 random(7);
    for (const size_t many : {1u, 63u, 64u, 65u, 1023u, 1024u, 1025u, 200'000u}) {
        std::shuffle(values.begin(), values.end(), random);
        Subject subject;
        for (size_t i = 0; i < many; ++i) subject.Ask(*values[i]);
        for (size_t i = 0; i < many; i += 7) subject.Ask(*values[i]);
        subject.Check();
    }
}

}  // namespace
