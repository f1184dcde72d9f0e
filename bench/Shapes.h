#pragma once

#include <string>
#include <vector>

#include "Checksum.h"

namespace bench {

using Keys = std::vector<std::wstring>;

// The documents that are built item by item. Each shape has:
//   Begin     what is there before, and the container that items are then added to
//   Add       the items that count, `count` of them
//   Expected  the checksum of the result

/// An array of objects of three members.
struct Records {
    template <class Builder>
    static typename Builder::Place Begin(Builder& builder) {
        return builder.RootArray();
    }
    template <class Builder>
    static void Add(Builder& builder, typename Builder::Place& root, const Keys& keys,
                    size_t count) {
        static const std::wstring name = L"name", number = L"count", price = L"price";
        for (size_t i = 0; i < count; ++i) {
            auto record = builder.AddObject(root);
            builder.AddText(record, name, keys[i]);
            builder.AddInt(record, number, static_cast<int32_t>(i));
            builder.AddDouble(record, price, Price(i));
        }
    }
    static uint64_t Expected(const Keys& keys, size_t count) {
        uint64_t sum = ContainerSum(count);
        for (size_t i = 0; i < count; ++i)
            sum += ContainerSum(3) + NameSum(L"name") + StringSum(keys[i]) + NameSum(L"count") +
                   NumberSum(static_cast<double>(i)) + NameSum(L"price") + NumberSum(Price(i));
        return sum;
    }

private:
    static double Price(size_t i) { return static_cast<double>(i % 1000) + 0.25; }
};

/// One object of many members.
struct Members {
    template <class Builder>
    static typename Builder::Place Begin(Builder& builder) {
        return builder.RootObject();
    }
    template <class Builder>
    static void Add(Builder& builder, typename Builder::Place& root, const Keys& keys,
                    size_t count) {
        for (size_t i = 0; i < count; ++i) builder.AddInt(root, keys[i], static_cast<int32_t>(i));
    }
    static uint64_t Expected(const Keys& keys, size_t count) {
        uint64_t sum = ContainerSum(count);
        for (size_t i = 0; i < count; ++i)
            sum += NameSum(keys[i]) + NumberSum(static_cast<double>(i));
        return sum;
    }
};

/// What stands in the cell of a row, whatever the shape of the row.
inline int32_t CellNumber(size_t row, size_t column) {
    return static_cast<int32_t>(row * 7 + column);
}
inline uint64_t CellSum(size_t row, size_t column) {
    return NumberSum(static_cast<double>(CellNumber(row, column)));
}

/// Twenty columns as the members of an object.
template <class Builder>
void AddMembers(Builder& builder, typename Builder::Place& row, const Keys& keys, size_t number) {
    for (size_t c = 0; c < 20; ++c) builder.AddInt(row, keys[c], CellNumber(number, c));
}
inline uint64_t MembersSum(const Keys& keys, size_t number) {
    uint64_t sum = ContainerSum(20);
    for (size_t c = 0; c < 20; ++c) sum += NameSum(keys[c]) + CellSum(number, c);
    return sum;
}

/// So many columns as the elements of an array.
template <class Builder>
void AddElements(Builder& builder, typename Builder::Place& row, size_t number, size_t columns) {
    for (size_t c = 0; c < columns; ++c) builder.AddInt(row, CellNumber(number, c));
}
inline uint64_t ElementsSum(size_t number, size_t columns) {
    uint64_t sum = ContainerSum(columns);
    for (size_t c = 0; c < columns; ++c) sum += CellSum(number, c);
    return sum;
}

/// [{20 members}, ...]
struct ObjectRows {
    template <class Builder>
    static typename Builder::Place Begin(Builder& builder) {
        return builder.RootArray();
    }
    template <class Builder>
    static void Add(Builder& builder, typename Builder::Place& root, const Keys& keys,
                    size_t count) {
        for (size_t i = 0; i < count; ++i) {
            auto row = builder.AddObject(root);
            AddMembers(builder, row, keys, i);
        }
    }
    static uint64_t Expected(const Keys& keys, size_t count) {
        uint64_t sum = ContainerSum(count);
        for (size_t i = 0; i < count; ++i) sum += MembersSum(keys, i);
        return sum;
    }
};

/// [[20 elements], ...]
struct ArrayRows {
    template <class Builder>
    static typename Builder::Place Begin(Builder& builder) {
        return builder.RootArray();
    }
    template <class Builder>
    static void Add(Builder& builder, typename Builder::Place& root, const Keys&, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            auto row = builder.AddArray(root);
            AddElements(builder, row, i, 20);
        }
    }
    static uint64_t Expected(const Keys&, size_t count) {
        uint64_t sum = ContainerSum(count);
        for (size_t i = 0; i < count; ++i) sum += ElementsSum(i, 20);
        return sum;
    }
};

/// {"rows": [{"cells": {20 members}}, ...]}: three segments lead to where the members are added.
struct NestedRows {
    template <class Builder>
    static typename Builder::Place Begin(Builder& builder) {
        auto root = builder.RootObject();
        return builder.AddArray(root, L"rows");
    }
    template <class Builder>
    static void Add(Builder& builder, typename Builder::Place& rows, const Keys& keys,
                    size_t count) {
        static const std::wstring name = L"cells";
        for (size_t i = 0; i < count; ++i) {
            auto row = builder.AddObject(rows);
            auto cells = builder.AddObject(row, name);
            AddMembers(builder, cells, keys, i);
        }
    }
    static uint64_t Expected(const Keys& keys, size_t count) {
        uint64_t sum = ContainerSum(1) + NameSum(L"rows") + ContainerSum(count);
        for (size_t i = 0; i < count; ++i)
            sum += ContainerSum(1) + NameSum(L"cells") + MembersSum(keys, i);
        return sum;
    }
};

/// [[400,000 elements], [10 elements], ...]: rows that come after something large.
struct LateRows {
    static constexpr size_t kBefore = 400000, kColumns = 10;

    template <class Builder>
    static typename Builder::Place Begin(Builder& builder) {
        auto root = builder.RootArray();
        auto large = builder.AddArray(root);
        AddElements(builder, large, 0, kBefore);
        return root;
    }
    template <class Builder>
    static void Add(Builder& builder, typename Builder::Place& root, const Keys&, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            auto row = builder.AddArray(root);
            AddElements(builder, row, i, kColumns);
        }
    }
    static uint64_t Expected(const Keys&, size_t count) {
        uint64_t sum = ContainerSum(1 + count) + ElementsSum(0, kBefore);
        for (size_t i = 0; i < count; ++i) sum += ElementsSum(i, kColumns);
        return sum;
    }
};

}  // namespace bench
