// Failures that are not the library's own: exceptions of another module's C++ runtime and
// structured ones with any code, below an operation, alone, in one another and on their way up.

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "ImportPatch.h"
#include "JsonDll.h"

namespace {

using support::Loaded;
using support::Parser;

/// What the system does when the library asks it to decode base64.
std::function<void()> g_during;

BOOL WINAPI Decode(const wchar_t*, DWORD, DWORD, BYTE*, DWORD* count, DWORD*, DWORD*) {
    g_during();
    *count = 1;
    return TRUE;
}

/// A parser with a blob, which a function of the test decodes in place of the system's.
class Guard : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(decode.Found()); }
    void TearDown() override { g_during = nullptr; }

    int Read(std::function<void()> during) {
        g_during = std::move(during);
        const uint8_t* data = nullptr;
        uint32_t length = 0;
        return parser->GetItemBlobByPath(L"/blob", &data, &length);
    }

    const support::ImportPatch decode{support::JsonDll(), "CryptStringToBinaryW", &Decode};
    const Parser parser = Loaded(L"{\"blob\":\"QUJD\"}");
};

/// An operation that faults, of an object of its own.
int FaultingCall() {
    const Parser other = Loaded(L"[1]");
    uint32_t handle = 0;
    return other->GetItemByPath(reinterpret_cast<const wchar_t*>(8), &handle);
}

struct Notes {
    ~Notes() { ++*destroyed; }
    int* destroyed;
};

TEST_F(Guard, AnswersExceptionsOfAnotherModule) {
    int destroyed = 0;
    const std::function<void()> throwers[] = {
        [] { throw std::runtime_error("of the system"); },
        [] { throw 42; },
        [] { throw "text"; },
        [&] {
            const Notes notes{&destroyed};
            throw std::bad_alloc();
        },
    };
    for (int round = 0; round < 3; ++round) {
        for (const auto& thrower : throwers) EXPECT_EQ(-5, Read(thrower));
        EXPECT_EQ(1, Read([] {}));
    }
    EXPECT_EQ(3, destroyed);
}

TEST_F(Guard, AnswersStructuredExceptionsOfAnyCode) {
    const DWORD codes[] = {
        EXCEPTION_ACCESS_VIOLATION,
        EXCEPTION_IN_PAGE_ERROR,
        EXCEPTION_INT_DIVIDE_BY_ZERO,
        EXCEPTION_FLT_INVALID_OPERATION,
        EXCEPTION_ILLEGAL_INSTRUCTION,
        EXCEPTION_DATATYPE_MISALIGNMENT,
        0xE06D7363,  // a C++ exception of Microsoft's compiler
        0xE0434352,  // one of .NET
        0xE0474343,  // not quite one of GCC's
        0x00474343,
        1,
    };
    for (const DWORD code : codes) {
        SCOPED_TRACE(code);
        EXPECT_EQ(-5, Read([code] { RaiseException(code, 0, 0, nullptr); }));
        EXPECT_EQ(1, Read([] {}));
    }
}

TEST_F(Guard, AnswersFaultsOfTheProcessor) {
    volatile int* volatile null = nullptr;
    for (int i = 0; i < 100; ++i) EXPECT_EQ(-5, Read([&] { *null = 1; }));
    EXPECT_EQ(1, Read([] {}));
}

/// The inner guard returns for what is below it, and the outer one goes on, or fails by itself.
TEST_F(Guard, NestedGuards) {
    int inner = 0;
    EXPECT_EQ(1, Read([&] { inner = FaultingCall(); }));
    EXPECT_EQ(-5, inner);
    EXPECT_EQ(-5, Read([&] {
        inner = FaultingCall() - 1;
        throw std::runtime_error("behind it");
    }));
    EXPECT_EQ(-6, inner);
    EXPECT_EQ(-5, Read([&] {
        inner = FaultingCall() - 2;
        RaiseException(1, 0, 0, nullptr);
    }));
    EXPECT_EQ(-7, inner);
}

struct Calling {
    ~Calling() { *answer = FaultingCall(); }
    int* answer;
};

/// A fault in a destructor that an exception passes is caught, and the exception goes on.
TEST_F(Guard, AFaultThatIsAnsweredWhileAnExceptionIsOnItsWay) {
    int answer = 0;
    const auto during = [&] {
        const Calling calling{&answer};
        throw std::runtime_error("on its way");
    };
    EXPECT_EQ(-5, Read(during));
    EXPECT_EQ(-5, answer);

    answer = 0;
    EXPECT_THROW(during(), std::runtime_error);
    EXPECT_EQ(-5, answer);
}

TEST_F(Guard, AFaultInAHandler) {
    EXPECT_EQ(-5, Read([] {
        try {
            throw 1;
        } catch (int) {
            RaiseException(EXCEPTION_ACCESS_VIOLATION, 0, 0, nullptr);
        }
    }));
    EXPECT_EQ(1, Read([] {}));
}

struct Faulting {
    ~Faulting() { RaiseException(EXCEPTION_ACCESS_VIOLATION, 0, 0, nullptr); }
};

/// The fault takes the exception's place.
TEST_F(Guard, AFaultWhileAnExceptionIsOnItsWay) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(-5, Read([] {
            const Faulting faulting;
            throw std::runtime_error("replaced");
        }));
        EXPECT_EQ(1, Read([] {}));
    }
}

void RaiseWithoutExceptions() noexcept { RaiseException(0xE0001234, 0, 0, nullptr); }

/// Functions that promise not to throw promise nothing about faults.
TEST_F(Guard, AFaultInAFunctionThatDoesNotThrow) {
    EXPECT_EQ(-5, Read([] { RaiseWithoutExceptions(); }));
    EXPECT_EQ(1, Read([] {}));
}

}  // namespace
