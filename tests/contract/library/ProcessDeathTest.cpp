// Failures that could leave the process itself broken: locks of the runtime library held for ever,
// a call of std::terminate. Each runs in a process of its own, whose exit code reports how far it
// came, and which ends itself where it would hang.

#include <gtest/gtest.h>

#include <limits>

#include "FailingAllocations.h"
#include "JsonDll.h"
#include "LoadForm.h"
#include "Messages.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonParser;
using support::FailingAllocations;
using support::NewParser;
using support::Parser;
using support::TempFile;

enum ExitCode : int { kGood, kWrongResult, kNoMoreLoads, kHangs = 9 };

constexpr int kAllThatFollow = std::numeric_limits<int>::max();

/// Ends this process with `code` at once.
[[noreturn]] void End(ExitCode code) {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
    std::abort();
}

DWORD WINAPI EndAHangingProcess(void*) {
    Sleep(5000);
    End(kHangs);
}

void EndWhereItHangs() {
    CloseHandle(CreateThread(nullptr, 0, &EndAHangingProcess, nullptr, 0, nullptr));
}

DWORD WINAPI LoadsAFile(void*) {
    const TempFile file("[1]");
    return static_cast<DWORD>(NewParser()->LoadJsonFile(file.Name()));
}

/// Whether files load on another thread too.
bool AnotherThreadLoads() {
    HANDLE thread = CreateThread(nullptr, 0, &LoadsAFile, nullptr, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    DWORD result = 0;
    GetExitCodeThread(thread, &result);
    CloseHandle(thread);
    return result == 1;
}

bool MessageIs(IJsonParser& parser, int code) {
    const wchar_t* text = L"";
    return parser.GetErrorMessage(&text) == 1 && model::CodeOfMessage(text) == code;
}

[[noreturn]] void LoadUnreadableFileName() {
    EndWhereItHangs();
    const Parser parser = NewParser();
    if (parser->LoadJsonFile(reinterpret_cast<const wchar_t*>(uintptr_t{8})) != -5)
        End(kWrongResult);
    if (LoadsAFile(nullptr) != 1 || !AnotherThreadLoads()) End(kNoMoreLoads);
    End(kGood);
}

[[noreturn]] void RequestTheFirstMessage(int failing, int count) {
    EndWhereItHangs();
    const Parser parser = NewParser();
    if (parser->LoadJsonString(L"[1") != 0) End(kWrongResult);
    FailingAllocations allocations;
    allocations.Fail(failing, count);
    const wchar_t* text = L"";
    const int result = parser->GetErrorMessage(&text);
    const bool happened = allocations.Happened();
    allocations.Stop();
    if (result != 1 && !(result == -5 && happened)) End(kWrongResult);
    if (!MessageIs(*parser, 7)) End(kNoMoreLoads);
    if (parser->LoadJsonString(L"") != 0 || !MessageIs(*parser, 21)) End(kNoMoreLoads);
    End(kGood);
}

[[noreturn]] void LoadWithout(int failing, int count) {
    EndWhereItHangs();
    const Parser parser = NewParser();
    FailingAllocations allocations;
    allocations.Fail(failing, count);
    const int result = parser->LoadJsonBytes("[1,\"text\"]", 10);
    const bool happened = allocations.Happened();
    allocations.Stop();
    if (result != 1 && !(result == -5 && happened)) End(kWrongResult);
    if (parser->LoadJsonBytes("[1]", 3) != 1 || !AnotherThreadLoads()) End(kNoMoreLoads);
    End(kGood);
}

class ProcessDeathTest : public testing::Test {
protected:
    ProcessDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(ProcessDeathTest, AFileNameThatCannotBeReadStopsNobody) {
    ASSERT_EXIT(LoadUnreadableFileName(), testing::ExitedWithCode(kGood), "");
}

TEST_F(ProcessDeathTest, TheFirstMessageMayLackMemory) {
    for (const int count : {1, kAllThatFollow})
        for (int failing = 1; failing <= 10; ++failing)
            ASSERT_EXIT(RequestTheFirstMessage(failing, count), testing::ExitedWithCode(kGood), "")
                << "allocation " << failing << " and " << count - 1 << " more";
}

TEST_F(ProcessDeathTest, TheFirstFailureMayLackMemory) {
    // The exception that reports the failure may lack memory too, and so may the record that its
    // thread has of it.
    for (const int count : {1, 2, 3, kAllThatFollow})
        for (int failing = 1; failing <= 4; ++failing)
            ASSERT_EXIT(LoadWithout(failing, count), testing::ExitedWithCode(kGood), "")
                << "allocation " << failing << " and " << count - 1 << " more";
}

}  // namespace
