#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "JsonDll.h"

// What surrounds the code shown: a host that owns one object of each family. The lines shown are
// those between two markers of the same name.

namespace snippets {

using QXJSON::IJsonGenerator;
using QXJSON::IJsonPackage;
using QXJSON::IJsonParser;

class Parsing : public testing::Test {
protected:
    /// Loads what a snippet reads.
    void Load(const wchar_t* json) { ASSERT_EQ(1, parser->LoadJsonString(json)); }

    support::Parser owner = support::NewParser();
    IJsonParser* const parser = owner.get();
};

class Generating : public testing::Test {
protected:
    /// Loads what a snippet adds to; the root has the handle 1.
    void Load(const wchar_t* json) {
        uint32_t handle = 0;
        ASSERT_EQ(1, generator->LoadJsonString(json, &handle));
    }

    std::wstring Json() const {
        const wchar_t* text = L"(nothing)";
        EXPECT_EQ(1, generator->GetJsonString(&text));
        return text;
    }

    support::Generator owner = support::NewGenerator();
    IJsonGenerator* const generator = owner.get();
};

class Packaging : public testing::Test {
protected:
    void Load(const wchar_t* json) { ASSERT_EQ(1, package->LoadString(json)); }

    std::wstring Json() const {
        const wchar_t* text = L"(nothing)";
        EXPECT_EQ(1, package->GetText(&text));
        return text;
    }

    support::Package owner = support::NewPackage();
    IJsonPackage* const package = owner.get();
};

}  // namespace snippets
