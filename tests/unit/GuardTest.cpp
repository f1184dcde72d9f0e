// What the guard turns into a result, and RethrowFaults into an exception.

#include "Guard.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <stdexcept>

namespace {

using namespace QXJSON;

struct Notes {
    ~Notes() { ++*destroyed; }
    int* destroyed;
};

TEST(Guard, PassesAResultOn) {
    EXPECT_EQ(7, Guarded([] { return 7; }));
}

TEST(Guard, PassesArgumentsOn) {
    const auto sum = [](int8_t a, double b, const int* c, float d, int64_t e, bool f) {
        return static_cast<int>(a + b + *c + static_cast<double>(d) + static_cast<double>(e)) + f;
    };
    const int four = 4;
    EXPECT_EQ(64, Guarded(sum, int8_t{-1}, 12.5, &four, 32.5f, int64_t{15}, true));
    const auto* const nowhere = reinterpret_cast<const int*>(uintptr_t{8});
    EXPECT_EQ(kEscapedFailure, Guarded(sum, int8_t{-1}, 12.5, nowhere, 32.5f, int64_t{15}, true));
}

TEST(Guard, AnswersEveryCppException) {
    EXPECT_EQ(kEscapedFailure, Guarded([]() -> int { throw std::runtime_error("x"); }));
    EXPECT_EQ(kEscapedFailure, Guarded([]() -> int { throw 42; }));
    EXPECT_EQ(kEscapedFailure, Guarded([]() -> int { throw kNoMember; }));
}

TEST(Guard, DestroysWhatACppExceptionPasses) {
    int destroyed = 0;
    EXPECT_EQ(kEscapedFailure, Guarded([&]() -> int {
                  const Notes notes{&destroyed};
                  throw 1;
              }));
    EXPECT_EQ(1, destroyed);
}

struct Fault {
    const char* name;
    DWORD code;
};

TEST(Guard, AnswersEveryProcessorFault) {
    const Fault faults[] = {
        {"access violation", EXCEPTION_ACCESS_VIOLATION},
        {"integer division", EXCEPTION_INT_DIVIDE_BY_ZERO},
        {"illegal instruction", EXCEPTION_ILLEGAL_INSTRUCTION},
        {"exception of another compiler", 0xE06D7363},
        {"somebody's own", 0xE0001234},
    };
    for (const Fault& fault : faults) {
        SCOPED_TRACE(fault.name);
        EXPECT_EQ(kEscapedFailure, Guarded([&] {
                      RaiseException(fault.code, 0, 0, nullptr);
                      return 1;
                  }));
    }
}

TEST(Guard, AnswersARealAccessViolation) {
    volatile int* volatile null = nullptr;
    EXPECT_EQ(kEscapedFailure, Guarded([&] { return *null; }));
    EXPECT_EQ(kEscapedFailure, Guarded([&] { return *null = 1; }));
}

TEST(Guard, AnswersARaisedAccessViolation) {
    EXPECT_EQ(kEscapedFailure, Guarded([]() -> int { RaiseAccessViolation(); }));
}

TEST(Guard, CanBeNested) {
    EXPECT_EQ(kEscapedFailure - 1,
              Guarded([] { return Guarded([]() -> int { RaiseAccessViolation(); }) - 1; }));
}

TEST(Guard, RestoresTheRegistersOfItsCaller) {
    // Values that live across the call, more than there are scratch registers.
    volatile int seed = 1;
    const int a = seed, b = a + 1, c = b + 1, d = c + 1, e = d + 1, f = e + 1, g = f + 1;
    const double x = a * 0.5, y = b * 0.5;
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(kEscapedFailure, Guarded([]() -> int { RaiseAccessViolation(); }));
    EXPECT_EQ(28, a + b + c + d + e + f + g);
    EXPECT_EQ(1.5, x + y);
}

TEST(Guard, StandsInAFunctionThatDoesNotThrow) {
    const auto ask = []() noexcept { return Guarded([]() -> int { RaiseAccessViolation(); }); };
    EXPECT_EQ(kEscapedFailure, ask());
}

TEST(RethrowFaults, TurnsAFaultIntoAnExceptionThatDestroysWhatLivesOutside) {
    int destroyed = 0;
    const auto fails = [&] {
        const Notes notes{&destroyed};
        RethrowFaults([] { RaiseAccessViolation(); });
    };
    EXPECT_THROW(fails(), ProcessorFault);
    EXPECT_EQ(1, destroyed);
}

TEST(RethrowFaults, LetsCppExceptionsThrough) {
    int destroyed = 0;
    const auto fails = [&] {
        RethrowFaults([&] {
            const Notes notes{&destroyed};
            throw std::runtime_error("through");
        });
    };
    EXPECT_THROW(fails(), std::runtime_error);
    EXPECT_EQ(1, destroyed);
}

}  // namespace
