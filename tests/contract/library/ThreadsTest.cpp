// Threads, each with objects of its own: they share nothing but the message texts, which the first
// request of the process makes ready, on whichever thread it comes.

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "JsonDll.h"
#include "LoadOutcome.h"
#include "Messages.h"
#include "StackThread.h"
#include "TempFile.h"

namespace {

using support::Generator;
using support::NewGenerator;
using support::NewPackage;
using support::NewParser;
using support::Package;
using support::Parser;
using support::TempFile;

constexpr unsigned kThreads = 8;
constexpr int kRounds = 200;

/// What one thread works on: all that it makes has its number in it.
class Worker {
public:
    explicit Worker(unsigned number) : name(std::to_wstring(number)) {}

    /// How many of the checks failed.
    int Failures() const { return failures; }

    void AskForMessages() {
        const wchar_t* text = L"";
        Check(parser->LoadJsonString(L"[1") == 0 && parser->GetErrorMessage(&text) == 1);
        Check(std::wstring_view(text) == model::EnglishMessage(7));
        Check(package->LoadString(L"") == 0 && package->GetErrorMessage(&text) == 1);
        Check(std::wstring_view(text) == model::EnglishMessage(21));
    }

    void Work(int round) {
        const std::wstring list = std::to_wstring(round) + L",\"" + name + L"\"";
        Build(round, L"{\"list\":[" + list + L"],\"blob\":\"AQID\"}");
        Read(round, L"{\"list\":[" + list + L"]}");
        if (round % 20 == 0) GoTooDeep();
        Keep(round, L"{\"" + name + L"\":" + std::to_wstring(round) + L"}");
    }

    void UseFiles() {
        Check(generator->SaveToFile(file.Name(), 2) == 1);
        Check(parser->LoadJsonFile(file.Name()) == 1);
        Check(package->LoadFile(file.Name()) == 1);
        Check(support::TreeOf(*parser) == TextOf(*package));
    }

private:
    void Check(bool good) { failures += good ? 0 : 1; }

    static std::wstring TextOf(QXJSON::IJsonPackage& filled) {
        const wchar_t* text = L"";
        return filled.GetText(&text) == 1 ? text : L"";
    }

    void Build(int round, const std::wstring& expected) {
        const uint8_t bytes[] = {1, 2, 3};
        uint32_t handle = 0;
        const wchar_t* text = L"";
        Check(generator->CreateRootObject(&handle) == 1);
        Check(generator->AddObjectItemArray(1, L"list", &handle) == 1);
        Check(generator->AddArrayItemInt(2, round, &handle) == 1);
        Check(generator->AddArrayItemString(2, name.c_str(), &handle) == 1);
        Check(generator->AddObjectItemBlob(1, L"blob", bytes, 3, &handle) == 1);
        Check(generator->AddObjectItemNull(1, nullptr, &handle) == -5);
        Check(generator->GetJsonString(&text) == 1 && text == expected);
    }

    void Read(int round, const std::wstring& json) {
        int32_t number = 0;
        const wchar_t* text = L"";
        Check(parser->LoadJsonString(json.c_str()) == 1);
        Check(parser->GetItemIntByPath(L"/list/1", &number) == 1 && number == round);
        Check(parser->GetItemStringByPath(L"/list/2", &text) == 1 && text == name);
        Check(parser->GetItemIntByPath(L"/missing/1", &number) == -5);
    }

    /// The stack that counts is that of the calling thread.
    void GoTooDeep() {
        int result = 0;
        support::OnStackOf(support::kSmallStack, [&] {
            result = parser->LoadJsonString(std::wstring(100'000, L'[').c_str());
        });
        Check(result == -5);
    }

    void Keep(int round, const std::wstring& expected) {
        double number = 0;
        Check(package->RemoveAll() == 1);
        Check(package->SetValueNumber(name.c_str(), round) == 1);
        Check(package->GetValueNumber(name.c_str(), &number) == 1 && number == round);
        Check(package->GetValueNumber(L"none", &number) == -1);
        Check(TextOf(*package) == expected);
    }

    std::wstring name;
    int failures = 0;
    Parser parser = NewParser();
    Generator generator = NewGenerator();
    Package package = NewPackage();
    const TempFile file;
};

/// Runs `work` on eight threads that begin at the same time.
template <class Work>
void SideBySide(const Work& work) {
    std::atomic<unsigned> ready{0};
    std::vector<std::thread> threads;
    for (unsigned number = 0; number < kThreads; ++number)
        threads.emplace_back([&, number] {
            for (++ready; ready < kThreads;) std::this_thread::yield();
            work(number);
        });
    for (std::thread& thread : threads) thread.join();
}

TEST(Threads, ObjectsOfTheirOwnWorkSideBySide) {
    std::vector<std::unique_ptr<Worker>> workers;
    for (unsigned number = 0; number < kThreads; ++number)
        workers.push_back(std::make_unique<Worker>(number));
    SideBySide([&](unsigned number) {
        Worker& worker = *workers[number];
        worker.AskForMessages();
        for (int round = 0; round < kRounds; ++round) worker.Work(round);
        worker.UseFiles();
    });
    for (unsigned number = 0; number < kThreads; ++number)
        EXPECT_EQ(0, workers[number]->Failures()) << "thread " << number;
}

/// An object belongs to no thread: any may make it, use it after another, and release it.
TEST(Threads, AnObjectGoesFromThreadToThread) {
    Parser parser;
    Generator generator;
    Package package;
    std::wstring tree;
    std::thread([&] {
        parser = NewParser();
        generator = NewGenerator();
        package = NewPackage();
        parser->LoadJsonString(L"[1,2]");
    }).join();
    std::thread([&] {
        uint32_t handle = 0;
        tree = support::TreeOf(*parser);
        generator->CreateRootArray(&handle);
        package->SetValueNumber(L"k", 1);
    }).join();
    EXPECT_EQ(L"[1,2]", tree);
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, generator->GetJsonString(&text));
    EXPECT_STREQ(L"[]", text);
    double number = 0;
    EXPECT_EQ(1, package->GetValueNumber(L"K", &number));
    int released = 0;
    std::thread([&] {
        released = parser.release()->Release() + generator.release()->Release() +
                   package.release()->Release();
    }).join();
    EXPECT_EQ(3, released);
}

}  // namespace
