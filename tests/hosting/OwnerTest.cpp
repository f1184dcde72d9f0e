// Objects are released once, whichever way they go.

#include <functional>
#include <stdexcept>

#include "Host.h"

namespace hosts {
namespace {

/// An interface that counts how often it is released.
struct Counted {
    explicit Counted(int& counter) : releases(&counter) {}
    int Release() {
        ++*releases;
        return 1;
    }
    int Answer() const { return 42; }
    int* releases;
};

using Owned = Owner<Counted>;

TEST(HostOwners, ReleaseOnce) {
    struct Row {
        const char* way;
        std::function<void(Counted&)> run;
        int releases;
    };
    const Row rows[] = {
        {"end of scope", [](Counted& object) { const Owned owner(&object); }, 1},
        {"moved",
         [](Counted& object) {
             Owned a(&object), b(std::move(a));
             EXPECT_FALSE(a);
         },
         1},
        {"moved into an empty one",
         [](Counted& object) {
             Owned a(&object), b;
             b = std::move(a);
         },
         1},
        {"replaced by none",
         [](Counted& object) {
             Owned owner(&object);
             owner = Owned();
             EXPECT_EQ(1, *object.releases);
         },
         1},
        {"replaced by another",
         [](Counted& object) {
             int others = 0;
             Counted another(others);
             Owned owner(&object);
             owner = Owned(&another);
             EXPECT_EQ(1, *object.releases);
             EXPECT_EQ(0, others);
         },
         1},
        {"detached",
         [](Counted& object) {
             Owned owner(&object);
             EXPECT_EQ(&object, owner.Detach());
             EXPECT_FALSE(owner);
         },
         0},
        {"through a result that is taken",
         [](Counted& object) {
             const Owned owner = Result<Owned>(1, Owned(&object)).Get();
             EXPECT_EQ(0, *object.releases);
         },
         1},
        {"in a result that nobody takes",
         [](Counted& object) {
             const Result<Owned> result(1, Owned(&object));
             EXPECT_TRUE(result);
         },
         1},
        {"in a result that failed",
         [](Counted& object) { EXPECT_THROW((void)Result<Owned>(0, Owned(&object)).Get(), Error); },
         1},
        {"while an exception passes",
         [](Counted& object) {
             const auto fail = [&] {
                 const Owned owner(&object);
                 throw std::runtime_error("the host's own");
             };
             EXPECT_THROW(fail(), std::runtime_error);
         },
         1},
    };
    for (const Row& row : rows) {
        int releases = 0;
        Counted object(releases);
        row.run(object);
        EXPECT_EQ(row.releases, releases) << row.way;
    }
}

TEST(HostOwners, LeadToTheInterface) {
    int releases = 0;
    Counted object(releases);
    const Owned owner(&object);
    EXPECT_TRUE(owner);
    EXPECT_EQ(42, owner->Answer());
    EXPECT_EQ(&object, &owner.Raw());
    EXPECT_FALSE(Owned());
    EXPECT_FALSE(Owned(nullptr));
}

TEST(HostOwners, AnObjectMayBeTakenOverAndGivenUp) {
    QXJSON::IJsonParser* const raw = CreateJsonParser();
    Parser parser(raw);
    EXPECT_TRUE(parser.Load(L"{\"a\":1}"));
    EXPECT_EQ(raw, &parser.Raw());
    QXJSON::IJsonParser* const given = parser.Detach();
    EXPECT_EQ(raw, given);
    int32_t number = 0;
    EXPECT_EQ(1, given->GetItemIntByPath(L"/a", &number));
    EXPECT_EQ(1, number);
    EXPECT_EQ(1, given->Release());
}

TEST(HostOwners, WhatTheLayerHasNoNameFor) {
    const Parser parser = Loaded(L"{\"a\":-7}");
    QXJSON::JsonVariant variant = {};
    const Item root = parser.Root().Get();
    EXPECT_EQ(1, parser->GetItemVariant(root.Raw(), L"a", &variant));
    EXPECT_EQ(QXJSON::kVariantInt64, variant.tag);
    EXPECT_EQ(-7, variant.number);

    const Value value = parser.RootValue().Get();
    variant = {};
    EXPECT_EQ(1, parser.Raw().GetVariantOfValue(value.Raw(), L"a", &variant));
    EXPECT_EQ(-7, variant.number);
}

}  // namespace
}  // namespace hosts
