// What the typed getters make of values of every kind, and in which order they find mistakes.

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>

#include "PackageDelegate.h"
#include "PackageGetters.h"
#include "PackageState.h"

namespace {

using support::Answer;
using support::Arguments;
using support::Asks;
using support::LoadedPackage;
using support::Operation;
using support::Package;
using support::PackageGetters;
using support::Sample;

/// A package refuses numbers that are not finite, so that it can hold every sample but those.
std::vector<Sample> PackageSamples() {
    std::vector<Sample> samples;
    for (const Sample& sample : support::Samples())
        if (std::isfinite(sample.real)) samples.push_back(sample);
    return samples;
}

TEST(PackageValues, EveryGetterOnEveryValue) {
    for (const Sample& sample : PackageSamples()) {
        const Package package = LoadedPackage(L"{\"a\":1,\"k\":" + sample.json + L",\"z\":{}}");
        for (const Operation& getter : PackageGetters())
            EXPECT_EQ(support::PackageAnswerFor(getter, sample), Ask(getter, *package, L"k"))
                << getter.name << " of " << testing::PrintToString(sample.json);
    }
}

TEST(PackageValues, AnswersDoNotDependOnWhatWasAskedBefore) {
    for (const Sample& sample : PackageSamples()) {
        const Package package = LoadedPackage(L"{\"k\":" + sample.json + L",\"s\":\"text\"}");
        for (const Operation& before : PackageGetters())
            for (const Operation& getter : PackageGetters()) {
                Ask(before, *package, L"s");
                EXPECT_EQ(support::PackageAnswerFor(getter, sample), Ask(getter, *package, L"k"))
                    << getter.name << " after " << before.name;
            }
    }
}

// ---- Mistakes ----------------------------------------------------------------------------------

/// What can be wrong with a call of a getter.
enum class Mistake {
    kNullKey,
    kNoFirstOutput,
    kNoSecondOutput,
    kNoMember,
    kWrongKind,
    kNoBase64,  ///< a text of which GetValueBlob can make no bytes
};

/// In the order in which they are found out.
constexpr Mistake kOrder[] = {Mistake::kNullKey,  Mistake::kNoFirstOutput, Mistake::kNoSecondOutput,
                              Mistake::kNoMember, Mistake::kWrongKind,     Mistake::kNoBase64};

/// GetValueBlob is GetValueString first, and looks at its outputs when it has the text.
constexpr Mistake kOrderForBlobs[] = {Mistake::kNullKey,        Mistake::kNoMember,
                                      Mistake::kWrongKind,      Mistake::kNoFirstOutput,
                                      Mistake::kNoSecondOutput, Mistake::kNoBase64};

constexpr const wchar_t* kEveryKind =
    L"{\"text\":\"QUJD\",\"number\":12,\"flag\":true,\"nothing\":null,\"odd\":\"?*!\"}";

const wchar_t* KeyOfRightKind(Asks asks) {
    switch (asks) {
        case Asks::kDouble:
            return L"number";
        case Asks::kBoolean:
            return L"flag";
        default:
            return L"text";
    }
}

bool CanMake(Mistake mistake, const Operation& getter) {
    switch (mistake) {
        case Mistake::kNoSecondOutput:
            return getter.outputs == 2;
        case Mistake::kWrongKind:
            return getter.asks != Asks::kItemType && getter.asks != Asks::kExistence;
        case Mistake::kNoBase64:
            return getter.asks == Asks::kBlob;
        default:
            return true;
    }
}

bool IsInOutput(Mistake mistake) {
    return mistake == Mistake::kNoFirstOutput || mistake == Mistake::kNoSecondOutput;
}

int ResultOf(Mistake mistake, const Operation& getter) {
    switch (mistake) {
        case Mistake::kNullKey:
            return -1;
        case Mistake::kNoMember:
            return getter.asks == Asks::kExistence ? 0 : -1;
        case Mistake::kWrongKind:
        case Mistake::kNoBase64:
            return -3;
        default:
            return 0;
    }
}

/// A call with one or two mistakes.
struct Spoilt {
    explicit Spoilt(const Operation& getter) { arguments.key = KeyOfRightKind(getter.asks); }

    void Make(Mistake mistake) {
        switch (mistake) {
            case Mistake::kNullKey:
                arguments.key = nullptr;
                break;
            case Mistake::kNoMember:
                arguments.key = L"missing";
                break;
            case Mistake::kWrongKind:
                arguments.key = L"nothing";
                break;
            case Mistake::kNoBase64:
                arguments.key = L"odd";
                break;
            default:
                arguments.outputs[mistake == Mistake::kNoSecondOutput ? 1 : 0] = support::kMissing;
        }
    }

    Arguments arguments;
};

void ExpectFound(const Operation& getter, Mistake found, Mistake other) {
    const Package package = LoadedPackage(kEveryKind);
    const support::PackageState before = support::PackageStateOf(*package);
    Spoilt call(getter);
    call.Make(found);
    call.Make(other);
    const int result = ResultOf(found, getter);
    const bool isGiven = !call.arguments.outputs[0];
    EXPECT_EQ(isGiven ? support::PackageFailure(getter, result) : Answer(result),
              getter.call(*package, call.arguments))
        << getter.name << ": mistakes " << static_cast<int>(found) << " and "
        << static_cast<int>(other);
    EXPECT_EQ(before, support::PackageStateOf(*package));
}

/// Every mistake alone, and every two that do not concern the key both.
TEST(PackageValues, TheFirstMistakeDecides) {
    constexpr size_t kMistakes = std::size(kOrder);
    for (const Operation& getter : PackageGetters()) {
        const Mistake* order = getter.asks == Asks::kBlob ? kOrderForBlobs : kOrder;
        for (size_t i = 0; i < kMistakes; ++i)
            for (size_t k = i; k < kMistakes; ++k) {
                if (!CanMake(order[i], getter) || !CanMake(order[k], getter)) continue;
                if (i != k && !IsInOutput(order[i]) && !IsInOutput(order[k])) continue;
                ExpectFound(getter, order[i], order[k]);
            }
    }
}

TEST(PackageValues, TheCallsOfTheMistakesAreGoodOtherwise) {
    const Package package = LoadedPackage(kEveryKind);
    for (const Operation& getter : PackageGetters())
        EXPECT_EQ(1, Ask(getter, *package, KeyOfRightKind(getter.asks)).result) << getter.name;
}

TEST(PackageValues, AFailedGetValueLeavesAnEmptyText) {
    const Package package = LoadedPackage(L"{\"n\":1,\"b\":true,\"x\":null,\"o\":{\"a\":[1,2]}}");
    struct Row {
        const wchar_t* key;
        int result;
    };
    for (const Row row : {Row{L"n", -3}, Row{L"b", -3}, Row{L"x", -3}, Row{L"none", -1},
                          Row{L"", -1}, Row{nullptr, -1}}) {
        const wchar_t* text = L"unwritten";
        EXPECT_EQ(1, package->GetValue(L"o", &text));
        EXPECT_STREQ(L"{\"a\":[1,2]}", text);
        EXPECT_EQ(row.result, package->GetValue(row.key, &text));
        EXPECT_STREQ(L"", text);
    }
}

TEST(PackageValues, GetValueWritesContainersCompactly) {
    struct Row {
        const wchar_t* value;
        const wchar_t* text;
    };
    const Row rows[] = {
        {L"{ }", L"{}"},
        {L"[ ]", L"[]"},
        {L"{ \"b\" : 1 ,\t\"a\" : [ null , true ] }", L"{\"b\":1,\"a\":[null,true]}"},
        {L"[\"\\u0000\\u001f\\n\\/\\\"\\\\\"]", L"[\"\\u0000\\u001F\\n/\\\"\\\\\"]"},
        {L"[\"\\u00e9\\uD834\\uDD1E\x20AC\"]", L"[\"\xE9\xD834\xDD1E\x20AC\"]"},
        {L"[1.0,2.50,1e3,-0,-0.0,0.1]", L"[1.0,2.5,1000.0,0,-0.0,0.1]"},
        {L"[18446744073709551615,-9223372036854775808]",
         L"[18446744073709551615,-9223372036854775808]"},
        {L"{\"k\":1,\"k\":2,\"K\":3}", L"{\"k\":1,\"k\":2,\"K\":3}"},
    };
    for (const Row& row : rows) {
        const Package package = LoadedPackage(std::wstring(L"{\"v\":") + row.value + L"}");
        const wchar_t* text = nullptr;
        EXPECT_EQ(1, package->GetValue(L"v", &text)) << testing::PrintToString(row.value);
        EXPECT_STREQ(row.text, text);
    }
}

TEST(PackageValues, ALongContainerIsWrittenWhole) {
    std::wstring value = L"[0";
    for (int i = 1; i < 20000; ++i) value += L"," + std::to_wstring(i);
    value += L"]";
    const Package package = LoadedPackage(L"{\"v\":" + value + L"}");
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package->GetValue(L"v", &text));
    EXPECT_EQ(value, text);
}

}  // namespace
