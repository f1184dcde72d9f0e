// Any series of calls of a package and its delegate, each of them next to a model that looks
// through its keys one by one. The library searches large objects in another way.

#include <gtest/gtest.h>

#include <limits>

#include "Base64.h"
#include "OutputReference.h"
#include "PackageDelegate.h"
#include "PackageModel.h"
#include "PackageReference.h"
#include "TempFile.h"
#include "support/Choices.h"
#include "support/RandomJson.h"
#include "support/SpotChecks.h"

namespace {

using building::Value;
using QXJSON::JsonVariant;

constexpr int kSteps = 80;

constexpr double kNumbers[] = {0.0,
                               -0.0,
                               1.0,
                               -1.5,
                               0.1,
                               1e300,
                               5e-324,
                               4294967296.0,
                               9007199254740993.0,
                               9223372036854774784.0,
                               9223372036854775808.0,
                               -9223372036854775808.0,
                               9223372036854777856.0,
                               -9223372036854777856.0,
                               std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity()};

constexpr int64_t kIntegers[] = {0, 1, -1, INT32_MIN, INT64_MAX, INT64_MIN, 9007199254740993};

JsonVariant NumberVariant(int64_t number) {
    JsonVariant variant = {};
    variant.tag = QXJSON::kVariantInt64;
    variant.number = number;
    return variant;
}

JsonVariant TextVariant(const wchar_t* text) {
    JsonVariant variant = {};
    variant.tag = QXJSON::kVariantText;
    variant.text = text;
    return variant;
}

class Keeping {
public:
    Keeping(fuzz::Choices& input, fuzz::SpotChecks& spots) : choices(input), checks(spots) {}

    void Run() {
        for (int step = 0; step < kSteps && !choices.AtEnd(); ++step) {
            Step();
            if (checks.IsDue(8)) ExpectState();
        }
        ExpectState();
        ExpectNames();
        for (int encoding = 0; encoding < 4; ++encoding)
            if (checks.IsDue(4)) ExpectWritten(encoding);
    }

private:
    void Step() {
        switch (choices.Below(16)) {
            case 0:
            case 1:
            case 2:
                return Set();
            case 3:
            case 4:
                return SetNumber();
            case 5:
                return SetJson();
            case 6:
            case 7:
                return Get();
            case 8:
            case 9:
                return Remove();
            case 10:
                return AddMany();
            case 11:
                return GetAll();
            case 12:
                return GiveToDelegate();
            case 13:
                return ExpectRefusals();
            case 14:
                return RemoveSome();
            default:
                return DoRarely();
        }
    }

    void DoRarely() {
        switch (choices.Below(8)) {
            case 0:
                EXPECT_EQ(1, package->RemoveAll());
                return model.RemoveAll();
            case 1:
            case 2:
                return SetIgnoreCase();
            case 3:
                return ExpectWritten(static_cast<int>(choices.Below(4)));
            case 4:
                return LoadFile();
            case 5:
                return ExpectNames();
            default:
                return LoadText();
        }
    }

    // ---- Setting -------------------------------------------------------------------------------

    void Set() {
        const std::wstring key = AnyKey();
        const std::wstring text = fuzz::RandomText(choices);
        const JsonVariant variant = TextVariant(text.c_str());
        switch (choices.Below(6)) {
            case 0:
                EXPECT_EQ(1, package->SetValueString(key.c_str(), text.c_str()));
                return model.SetText(key, text);
            case 1:
                EXPECT_EQ(1, package->SetValue(key.c_str(), text.c_str(), false));
                return model.SetText(key, text);
            case 2:
                EXPECT_EQ(1, package->SetValueVariant(key.c_str(), &variant));
                return model.SetText(key, text);
            case 3:
                EXPECT_EQ(1, package->SetValueVariantEx(key.c_str(), &variant));
                return model.SetText(key, text);
            case 4:
                return SetBlob(key);
            default: {
                const bool flag = choices.Below(2) != 0;
                EXPECT_EQ(1, package->SetValueBoolean(key.c_str(), flag));
                return model.Set(key, Value(flag));
            }
        }
    }

    void SetBlob(const std::wstring& key) {
        const std::string bytes(1 + choices.Below(40), static_cast<char>(choices.Below(256)));
        const auto* data = reinterpret_cast<const uint8_t*>(bytes.data());
        const auto length = static_cast<uint32_t>(bytes.size());
        EXPECT_EQ(1, package->SetValueBlob(key.c_str(), data, length));
        model.SetText(key, support::EncodeBase64(bytes));
    }

    void SetNumber() {
        const std::wstring key = AnyKey();
        if (choices.Below(2) == 0) {
            const int64_t number = choices.Of(kIntegers);
            const JsonVariant variant = NumberVariant(number);
            EXPECT_EQ(1, package->SetValueVariantEx(key.c_str(), &variant));
            model.SetNumber(key, static_cast<double>(number));
        } else {
            const double number = choices.Of(kNumbers);
            // One that is not finite ends every output, and with it what can be compared.
            if (number - number != 0 && !choices.OneIn(8)) return;
            EXPECT_EQ(1, package->SetValueNumber(key.c_str(), number));
            model.SetNumber(key, number);
        }
    }

    void SetJson() {
        const std::wstring key = AnyKey();
        const std::wstring json = AnyJson();
        const auto& route = choices.Of(support::JsonRoutes());
        EXPECT_EQ(model.SetJson(key, json), route.set(*package, key.c_str(), json.c_str()))
            << route.name << ' ' << testing::PrintToString(json);
    }

    /// Enough members for an index, with names that go through others in it.
    void AddMany() {
        std::wstring key = fuzz::RandomKey(choices);
        const bool isOneName = choices.OneIn(4);
        const uint32_t count = 8 + choices.Below(80);
        for (uint32_t i = 0; i < count; ++i) {
            const std::wstring name = isOneName ? key : key + std::to_wstring(i);
            EXPECT_EQ(1, package->SetValueBoolean(name.c_str(), true));
            model.Set(name, Value(true));
            if (isOneName) key += L'k';
        }
    }

    // ---- Removing ------------------------------------------------------------------------------

    void Remove() {
        const std::wstring key = AnyKey();
        EXPECT_EQ(model.Remove(key), package->RemoveKey(key.c_str()));
    }

    void RemoveSome() {
        for (uint32_t left = choices.Below(96); left > 0; --left) Remove();
    }

    void SetIgnoreCase() {
        static constexpr uint32_t kFlags[] = {0, 1, 2, 0xFFFFFFFF};
        const uint32_t flag = choices.Of(kFlags);
        EXPECT_EQ(1, package->SetIgnoreCase(flag));
        model.SetIgnoreCase(flag);
    }

    // ---- Getting -------------------------------------------------------------------------------

    void Get() {
        const std::wstring key = AnyKey();
        for (const auto& getter : support::PackageGetters())
            EXPECT_EQ(model.Get(getter, key), Ask(getter, *package, key.c_str()))
                << getter.name << ' ' << testing::PrintToString(key);
    }

    /// An object that is searched often is searched in another way.
    void GetAll() {
        const auto& getter = choices.Of(support::PackageGetters());
        for (size_t i = 0; i < model.Count(); ++i) {
            const std::wstring key = Changed(model.Name(i).c_str(), static_cast<uint32_t>(i));
            EXPECT_EQ(model.Get(getter, key), Ask(getter, *package, key.c_str()))
                << getter.name << ' ' << testing::PrintToString(key);
        }
    }

    void ExpectState() { ASSERT_EQ(model.State(), support::PackageStateOf(*package)); }

    void ExpectNames() {
        const wchar_t* name = nullptr;
        for (uint32_t i = 0; i < model.Count(); ++i) {
            ASSERT_EQ(1, package->GetKeyName(i, &name));
            EXPECT_STREQ(model.Name(i).c_str(), name);
        }
        EXPECT_EQ(0, package->GetKeyName(static_cast<uint32_t>(model.Count()), &name));
    }

    // ---- Delegate ------------------------------------------------------------------------------

    void GiveToDelegate() {
        const std::wstring key = AnyKey();
        support::RecordingDelegate delegate;
        delegate.answer = choices.OneIn(4) ? -5 : 1;
        const bool isSet = !choices.OneIn(4);
        EXPECT_EQ(1, package->SetDelegate(isSet ? &delegate : nullptr));
        int failure = 0;
        const auto text = model.TextOf(key, failure);
        const int found = isSet ? delegate.answer : 1;
        EXPECT_EQ(text ? found : failure, support::ImportFrom(*package, key.c_str()));
        std::vector<support::DelegateCall> calls;
        if (isSet && text) calls.push_back(support::ImportCall(*text));
        if (choices.Below(2) == 0) {
            const auto& slot = choices.Of(support::ExportSlots());
            // The text that the export gives is null.
            const int exported = delegate.answer == 1 ? -4 : delegate.answer;
            EXPECT_EQ(isSet ? exported : 0, slot.Set(*package, key.c_str()));
            if (isSet) calls.push_back(slot.call);
        }
        EXPECT_EQ(calls, delegate.calls);
        EXPECT_EQ(1, package->SetDelegate(nullptr));
    }

    /// Null keys and null values.
    void ExpectRefusals() {
        const std::wstring key = AnyKey();
        const JsonVariant none = TextVariant(nullptr);
        JsonVariant other = NumberVariant(1);
        other.tag = static_cast<uint16_t>(choices.Below(20));
        EXPECT_EQ(-4, package->SetValueString(key.c_str(), nullptr));
        EXPECT_EQ(-4, package->SetValue(key.c_str(), nullptr, choices.Below(2) == 0));
        EXPECT_EQ(-4, package->SetValueBlob(key.c_str(), nullptr, 1));
        EXPECT_EQ(-3, package->SetValueVariant(key.c_str(), &none));
        EXPECT_EQ(-3, package->SetValueVariantEx(key.c_str(), &other));
        EXPECT_EQ(-1, package->SetValueString(nullptr, L"text"));
        EXPECT_EQ(-1, package->SetValueNumber(nullptr, 1));
        EXPECT_EQ(-1, package->RemoveKey(nullptr));
        bool found = true;
        EXPECT_EQ(-1, package->ContainsKey(nullptr, &found));
        EXPECT_FALSE(found);
    }

    // ---- Loading and output --------------------------------------------------------------------

    void LoadText() {
        const std::wstring json = AnyJson();
        const auto expected = model.Load(model::ReadText(model::kPackageLoads, json));
        EXPECT_EQ(expected, support::LoadPackageText(*package, json));
    }

    void LoadFile() {
        const std::wstring json = AnyJson();
        const support::TempFile file(support::Encode(json, choices.Of(support::kAllEncodings)));
        const auto expected = model.Load(model::ReadFile(model::kPackageLoads, file.Name()));
        EXPECT_EQ(expected, support::PackageOutcomeOf(*package, package->LoadFile(file.Name())));
    }

    /// Halves of surrogate pairs end the output in encodings that cannot hold them.
    void ExpectWritten(int encoding) {
        const std::wstring text = model.State().text;
        const void* data = nullptr;
        size_t length = 0;
        EXPECT_EQ(1, package->GetBytes(&data, &length, encoding));
        if (!model::IsWellFormed(text)) return;
        const std::string expected = support::TextIn(encoding, text);
        EXPECT_EQ(expected, std::string(static_cast<const char*>(data), length)) << encoding;
        if (checks.IsDue(2)) ExpectSaved(encoding, text, expected);
    }

    void ExpectSaved(int encoding, const std::wstring& text, const std::string& expected) {
        const support::TempFile file;
        EXPECT_EQ(1, package->SaveToFile(file.Name(), encoding));
        const std::string saved = file.Bytes();
        EXPECT_TRUE(file.IsClosed());
        if (text.back() != L'}') return;
        EXPECT_EQ(support::MarkOf(encoding) + expected, saved) << encoding;
        const support::Package again = support::NewPackage();
        EXPECT_EQ(1, again->LoadFile(file.Name()));
        EXPECT_EQ(text, building::TextOf(model::ParseExactly(text)));
        EXPECT_EQ(building::TextOf(model::Parse(text)), support::PackageText(*again));
    }

    // ---- Choices -------------------------------------------------------------------------------

    /// Often one that is there, with the case of a letter changed or not.
    std::wstring AnyKey() {
        const auto count = static_cast<uint32_t>(model.Count());
        if (count == 0 || choices.OneIn(3)) return fuzz::RandomKey(choices);
        return Changed(model.Name(choices.Below(count)).c_str(), choices.Below(16));
    }

    /// "[" and "{" differ by the same bit, but are no letters.
    static std::wstring Changed(std::wstring key, uint32_t how) {
        if (!key.empty() && how % 2 != 0) key[how / 2 % key.size()] ^= 0x20;
        return key.c_str();
    }

    /// One in eight is spoilt.
    std::wstring AnyJson() {
        const bool acceptNan = choices.OneIn(8);
        std::wstring json = fuzz::RandomJson(choices, {acceptNan, /*uniqueNames=*/false});
        if (choices.OneIn(8)) json.erase(choices.Below(256) % json.size(), 1);
        return json;
    }

    fuzz::Choices& choices;
    fuzz::SpotChecks& checks;
    support::Package package = support::NewPackage();
    model::PackageModel model;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::Choices choices(data, size);
    fuzz::SpotChecks checks(data, size);
    Keeping(choices, checks).Run();
    return 0;
}
