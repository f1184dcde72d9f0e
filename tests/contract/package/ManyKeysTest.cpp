// Many keys: equal ones, and those that differ in case alone, found, set and removed in any order.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "PackageState.h"

namespace {

using QXJSON::IJsonPackage;
using support::LoadedPackage;
using support::Package;

/// What a package is by its description: members in their order, of which the first that matches
/// counts.
class Members {
public:
    struct Member {
        std::wstring name;
        double value;
    };

    std::vector<Member>::iterator Find(const std::wstring& name, bool ignoreCase) {
        return std::find_if(members.begin(), members.end(), [&](const Member& member) {
            return ignoreCase ? Folded(member.name) == Folded(name) : member.name == name;
        });
    }
    void Set(const std::wstring& name, double value, bool ignoreCase) {
        const auto found = Find(name, ignoreCase);
        if (found == members.end())
            members.push_back({name, value});
        else
            found->value = value;
    }

    std::vector<Member> members;

private:
    static std::wstring Folded(std::wstring name) {
        for (wchar_t& c : name)
            if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
        return name;
    }
};

std::wstring NameOf(uint32_t number) {
    const wchar_t* const spellings[] = {L"name ", L"NAME ", L"Name ", L"a name that is not short "};
    return spellings[number % 4] + std::to_wstring(number / 4);
}

void ExpectMember(IJsonPackage& package, Members& model, const std::wstring& name, bool flag) {
    const auto found = model.Find(name, flag);
    bool contained = false;
    package.ContainsKey(name.c_str(), &contained);
    ASSERT_EQ(found != model.members.end(), contained);
    double value = -1;
    if (contained) {
        ASSERT_EQ(1, package.GetValueNumber(name.c_str(), &value));
        ASSERT_EQ(found->value, value);
    }
}

void ExpectNames(IJsonPackage& package, const Members& model) {
    uint32_t count = 0;
    ASSERT_EQ(1, package.GetKeyCount(&count));
    ASSERT_EQ(model.members.size(), count);
    for (uint32_t i = 0; i < count; ++i) {
        const wchar_t* name = nullptr;
        ASSERT_EQ(1, package.GetKeyName(i, &name));
        ASSERT_EQ(model.members[i].name, name);
    }
}

TEST(PackageManyKeys, AreFoundSetAndRemovedAsInAList) {
    constexpr uint32_t kNames = 400, kMembers = 1000, kSteps = 8000;
    std::mt19937 random(1);
    Members model;
    std::wstring json;
    for (uint32_t i = 0; i < kMembers; ++i) {
        const std::wstring name = NameOf(static_cast<uint32_t>(random()) % kNames);
        model.members.push_back({name, static_cast<double>(i)});
        json += (i == 0 ? L"{\"" : L",\"") + name + L"\":" + std::to_wstring(i);
    }
    const Package package = LoadedPackage((json + L"}").c_str());
    for (uint32_t step = 0; step < kSteps; ++step) {
        SCOPED_TRACE(step);
        const bool flag = step / 100 % 2 == 0;
        if (step % 100 == 0) ASSERT_EQ(1, package->SetIgnoreCase(flag));
        const std::wstring name = NameOf(static_cast<uint32_t>(random()) % kNames);
        switch (random() % 4) {
            case 0:
                ASSERT_EQ(1, package->SetValueNumber(name.c_str(), step));
                model.Set(name, step, flag);
                break;
            case 1:
                if (const auto found = model.Find(name, flag); found != model.members.end()) {
                    ASSERT_EQ(1, package->RemoveKey(name.c_str()));
                    model.members.erase(found);
                }
                break;
            default:
                ASSERT_NO_FATAL_FAILURE(ExpectMember(*package, model, name, flag));
        }
    }
    ExpectNames(*package, model);
}

}  // namespace
