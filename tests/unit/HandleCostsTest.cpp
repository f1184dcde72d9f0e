// What the handles of a loaded document cost, in every order that they are asked for in.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "Growth.h"
#include "parser/HandleTable.h"

namespace {

using namespace QXJSON;
using support::Cost;
using support::CostOfEach;
using support::ExpectFlat;

/// Which values of a document are asked for, one after the other.
struct Order {
    const char* what;
    void (*arrange)(std::vector<JsonValue*>& values);
    Cost most;  // for each handle
};

void TakeEvery(std::vector<JsonValue*>& values, size_t step) {
    size_t count = 0;
    for (size_t i = 0; i < values.size(); i += step) values[count++] = values[i];
    values.resize(count);
}

/// A page of 64 handles takes about 200 bytes, and each handle 4 besides.
const Order kOrders[] = {
    {"in order", [](std::vector<JsonValue*>&) {}, {0.2, 16}},
    {"backwards",
     [](std::vector<JsonValue*>& values) { std::reverse(values.begin(), values.end()); },
     {0.2, 16}},
    {"at random",
     [](std::vector<JsonValue*>& values) {
         std::mt19937 random(41);
         std::shuffle(values.begin(), values.end(), random);
     },
     {4, 16}},
    {"one of eight", [](std::vector<JsonValue*>& values) { TakeEvery(values, 8); }, {2, 64}},
    {"one of each stretch",
     [](std::vector<JsonValue*>& values) { TakeEvery(values, 64); },
     {12, 300}},
    {"one of each stretch, at random",
     [](std::vector<JsonValue*>& values) {
         TakeEvery(values, 64);
         std::mt19937 random(42);
         std::shuffle(values.begin(), values.end(), random);
     },
     {12, 300}},
};

/// Values as arrays in a document have them: in one piece, or in many that lie apart.
std::vector<std::vector<JsonValue>> Pieces(size_t count, size_t pieces) {
    std::vector<std::vector<JsonValue>> memory;
    for (size_t i = 0; i < pieces; ++i) memory.emplace_back(count / pieces);
    return memory;
}

TEST(HandleCosts, AreTheSameInEveryDocument) {
    for (const size_t pieces : {size_t{1}, size_t{10}})
        for (const Order& order : kOrders)
            ExpectFlat(order.what, 60'000, order.most, [&](size_t count) {
                auto memory = Pieces(count, pieces);
                std::vector<JsonValue*> values;
                for (auto& piece : memory)
                    for (JsonValue& value : piece) values.push_back(&value);
                order.arrange(values);
                HandleTable table;
                for (JsonValue* value : values) table.HandleOf(*value);
                EXPECT_NE(nullptr, table.ValueOf(static_cast<uint32_t>(values.size())));
                return CostOfEach(table.Work(), table.Bytes(), values.size());
            });
}

TEST(HandleCosts, AskingAgainKeepsNothing) {
    for (const Order& order : kOrders)
        ExpectFlat(order.what, 60'000, {4, 300}, [&](size_t count) {
            std::vector<JsonValue> memory(count);
            std::vector<JsonValue*> values;
            for (JsonValue& value : memory) values.push_back(&value);
            order.arrange(values);
            HandleTable table;
            for (JsonValue* value : values) table.HandleOf(*value);
            const size_t bytes = table.Bytes();
            const uint64_t work = table.Work();
            for (uint32_t i = 0; i < values.size(); ++i)
                EXPECT_EQ(i + 1, table.HandleOf(*values[i]));
            EXPECT_EQ(bytes, table.Bytes());
            return CostOfEach(table.Work() - work, bytes, values.size());
        });
}

}  // namespace
