// The layers around an implementation, with implementations that do what the test wants.

#include "Layers.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <stdexcept>

namespace {

using namespace QXJSON;

/// What the layers take from the heap: it can be missing, and is counted.
template <class Derived>
struct Heap {
    static void* operator new(size_t size, const std::nothrow_t&) noexcept {
        if (missing) return nullptr;
        ++blocks;
        return std::malloc(size);
    }
    static void operator delete(void* block) noexcept {
        --blocks;
        std::free(block);
    }
    static void operator delete(void* block, const std::nothrow_t&) noexcept {
        operator delete(block);
    }

    static inline bool missing = false;
    static inline int blocks = 0;
};

/// A family of one operation of each kind.
class IThing {
public:
    virtual int Ask(int question) = 0;
    virtual bool Test() = 0;
    virtual int Release() = 0;

protected:
    ~IThing() = default;
};

template <class Layer>
class ThingOperations : public Layer {
public:
    int Ask(int question) override {
        return this->Forward([](auto& next, auto... rest) { return next.Ask(rest...); }, question);
    }
    bool Test() override {
        return this->ForwardUnguarded([](auto& next) { return next.Test(); });
    }

protected:
    ~ThingOperations() = default;
};

class Implementation final : public IThing, public Heap<Implementation> {
public:
    Implementation() : number(++made) {
        if (refuses) throw std::runtime_error("no implementation");
    }

    bool IsNew() const { return !asked; }

    int Ask(int question) override {
        asked = true;
        if (question == kThrows) throw question;
        if (question == kFaults) RaiseAccessViolation();
        return 100 * number + question;
    }
    bool Test() override { return number == 1; }
    int Release() override {
        ++released;
        delete this;
        return kSuccess;
    }

    static constexpr int kThrows = 7;
    static constexpr int kFaults = 8;
    static inline bool refuses = false;
    static inline int made = 0;
    static inline int released = 0;

private:
    int number;
    bool asked = false;
};

class Adapter final : public ThingOperations<AdapterLayer<IThing, Implementation>>,
                      public Heap<Adapter> {
public:
    void Renew() { AdapterLayer::Renew(); }
    void BecomeKind(uint32_t kind) { implementationKind = kind; }
    const Implementation* Current() const { return implementation; }

    int Release() override {
        ++released;
        ReleasePart(implementation);
        delete this;
        return kSuccess;
    }

    static inline int released = 0;
};

class Facade final : public ThingOperations<FacadeLayer<IThing, Adapter>>, public Heap<Facade> {
public:
    Adapter* Behind() { return adapter; }

    int Release() override {
        ReleasePart(adapter);
        delete this;
        return kSuccess;
    }
};

Facade* NewFacade() { return new (std::nothrow) Facade; }

class Layers : public testing::Test {
protected:
    Layers() { Reset(); }
    ~Layers() override {
        EXPECT_EQ(0, Facade::blocks);
        EXPECT_EQ(0, Adapter::blocks);
        EXPECT_EQ(0, Implementation::blocks);
        Reset();
    }

private:
    static void Reset() {
        Facade::missing = Adapter::missing = Implementation::missing = false;
        Implementation::refuses = false;
        Implementation::made = Implementation::released = Adapter::released = 0;
    }
};

TEST_F(Layers, PassOperationsOn) {
    Facade* const facade = NewFacade();
    EXPECT_EQ(105, facade->Ask(5));
    EXPECT_TRUE(facade->Test());
    EXPECT_EQ(kSuccess, facade->Release());
    EXPECT_EQ(1, Adapter::released);
    EXPECT_EQ(1, Implementation::released);
}

TEST_F(Layers, TheGuardAnswersAndTheObjectGoesOn) {
    Facade* const facade = NewFacade();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(kEscapedFailure, facade->Ask(Implementation::kThrows));
        EXPECT_EQ(kEscapedFailure, facade->Ask(Implementation::kFaults));
        EXPECT_EQ(105, facade->Ask(5));
    }
    facade->Release();
}

TEST_F(Layers, NoMemoryForTheFacade) {
    Facade::missing = true;
    EXPECT_EQ(nullptr, NewFacade());
    EXPECT_EQ(0, Implementation::made);
}

TEST_F(Layers, NoMemoryForTheAdapter) {
    Adapter::missing = true;
    Facade* const facade = NewFacade();
    ASSERT_NE(nullptr, facade);
    EXPECT_EQ(nullptr, facade->Behind());
    EXPECT_EQ(0, Implementation::made);
    EXPECT_EQ(kEscapedFailure, facade->Ask(5));
    EXPECT_EQ(kSuccess, facade->Release());
    EXPECT_EQ(0, Adapter::released);
}

TEST_F(Layers, NoMemoryForTheImplementation) {
    Implementation::missing = true;
    Facade* const facade = NewFacade();
    ASSERT_NE(nullptr, facade->Behind());
    EXPECT_EQ(nullptr, facade->Behind()->Current());
    EXPECT_EQ(kEscapedFailure, facade->Ask(5));
    facade->Behind()->Renew();
    EXPECT_EQ(nullptr, facade->Behind()->Current());
    Implementation::missing = false;
    facade->Behind()->Renew();
    EXPECT_EQ(105, facade->Ask(5));
    facade->Release();
}

TEST_F(Layers, ReleaseWithoutAnImplementation) {
    Implementation::missing = true;
    EXPECT_EQ(kSuccess, NewFacade()->Release());
    EXPECT_EQ(1, Adapter::released);
    EXPECT_EQ(0, Implementation::released);
}

/// The exception of a constructor frees what was allocated for all three layers, and goes on.
TEST_F(Layers, AConstructorThatThrows) {
    Implementation::refuses = true;
    EXPECT_THROW(NewFacade(), std::runtime_error);
    EXPECT_EQ(1, Implementation::made);
    EXPECT_EQ(0, Implementation::released);
    EXPECT_EQ(0, Facade::blocks);
    EXPECT_EQ(0, Adapter::blocks);
    EXPECT_EQ(0, Implementation::blocks);
}

TEST_F(Layers, RenewalEndsTheOldImplementation) {
    Facade* const facade = NewFacade();
    for (int number = 1; number <= 5; ++number) {
        EXPECT_EQ(number * 100 + 5, facade->Ask(5));
        EXPECT_EQ(number - 1, Implementation::released);
        EXPECT_EQ(1, Implementation::blocks);
        facade->Behind()->Renew();
    }
    facade->Release();
}

/// One that nobody has used is as good as a new one.
TEST_F(Layers, RenewalKeepsWhatIsNew) {
    Facade* const facade = NewFacade();
    Implementation::missing = true;
    for (int i = 0; i < 3; ++i) facade->Behind()->Renew();
    EXPECT_EQ(1, Implementation::made);
    EXPECT_EQ(105, facade->Ask(5));
    Implementation::missing = false;
    facade->Behind()->Renew();
    facade->Behind()->Renew();
    EXPECT_EQ(2, Implementation::made);
    EXPECT_EQ(1, Implementation::released);
    facade->Release();
}

/// Where the new one cannot be made for lack of memory, the old one is gone; an exception comes
/// before anything has happened.
TEST_F(Layers, RenewalThatFails) {
    Facade* const facade = NewFacade();
    EXPECT_EQ(105, facade->Ask(5));
    Implementation::refuses = true;
    EXPECT_THROW(facade->Behind()->Renew(), std::runtime_error);
    EXPECT_EQ(105, facade->Ask(5));
    EXPECT_EQ(0, Implementation::released);
    Implementation::refuses = false;
    Implementation::missing = true;
    facade->Behind()->Renew();
    EXPECT_EQ(1, Implementation::released);
    EXPECT_EQ(kEscapedFailure, facade->Ask(5));
    facade->Release();
}

/// There is but one kind of implementation; an adapter of any other makes none.
TEST_F(Layers, AnotherKindHasNoImplementation) {
    Facade* const facade = NewFacade();
    EXPECT_EQ(105, facade->Ask(5));
    for (const uint32_t kind : {1u, 2u, 0xFFFFFFFFu}) {
        facade->Behind()->BecomeKind(kind);
        facade->Behind()->Renew();
        EXPECT_EQ(nullptr, facade->Behind()->Current());
        EXPECT_EQ(kEscapedFailure, facade->Ask(5));
    }
    facade->Behind()->BecomeKind(0);
    facade->Behind()->Renew();
    EXPECT_EQ(205, facade->Ask(5));
    facade->Release();
}

/// Nobody catches what an unguarded operation meets.
TEST_F(Layers, UnguardedOperationsFaultWithoutAnAdapter) {
    Adapter::missing = true;
    Facade* const facade = NewFacade();
    EXPECT_FALSE(RunsWithoutFault([&] { facade->Test(); }));
    facade->Release();
}

}  // namespace
