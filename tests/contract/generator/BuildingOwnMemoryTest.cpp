// What a generator returned, given back to it as an argument while it still lives.

#include <gtest/gtest.h>

#include "JsonDll.h"
#include "OutputForm.h"
#include "Selectors.h"

namespace {

using support::Generator;
using support::GeneratorOf;
using support::JsonOf;

const wchar_t* TextOf(QXJSON::IJsonGenerator& generator) {
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, generator.GetJsonString(&text));
    return text;
}

/// The text of a document as a key, as a string and as JSON in it.
TEST(BuildingOwnMemory, TextBecomesItems) {
    const Generator generator = GeneratorOf(L"{\"a\":[1]}");
    uint32_t handle = 0;
    uint64_t root = 0;
    EXPECT_EQ(1, generator->AddObjectItemJsonString(1, L"json", TextOf(*generator), &handle));
    EXPECT_EQ(L"{\"a\":[1],\"json\":{\"a\":[1]}}", JsonOf(*generator));
    EXPECT_EQ(1, generator->AddObjectItemJsonString(1, L"json", TextOf(*generator), &handle));
    EXPECT_EQ(L"{\"a\":[1],\"json\":{\"a\":[1],\"json\":{\"a\":[1]}}}", JsonOf(*generator));
    EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
    EXPECT_EQ(1, generator->AddObjectValueString(root, TextOf(*generator), L"x", &root));
    EXPECT_EQ(L"{\"{}\":\"x\"}", JsonOf(*generator));
    EXPECT_EQ(1, generator->GetItemHandleByPath(L"/", &handle));
    const auto object = static_cast<int32_t>(handle);
    EXPECT_EQ(1, generator->AddObjectItemString(object, L"s", TextOf(*generator), &handle));
    EXPECT_EQ(1, generator->AddObjectItemString(object, L"s", TextOf(*generator) + 1, &handle));
    EXPECT_EQ(LR"({"{}":"x","s":"\"{}\":\"x\",\"s\":\"{\\\"{}\\\":\\\"x\\\"}\"}"})",
              JsonOf(*generator));
}

TEST(BuildingOwnMemory, BytesBecomeBlobs) {
    for (const int32_t selector : support::kAllSelectors) {
        const Generator generator = GeneratorOf(L"[1,2,3]");
        const uint8_t* data = nullptr;
        uint64_t length = 0;
        uint32_t handle = 0;
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(1, generator->GetJsonBytes(&data, &length, selector));
            EXPECT_EQ(1, generator->AddArrayItemBlob(1, data + 1, 3, &handle));
        }
        const std::wstring text = selector == 0 || selector == 2 ? L"\"MSwy\""
                                  : selector == 1                ? L"\"ADEA\""
                                                                 : L"\"WwAx\"";
        EXPECT_EQ(L"[1,2,3," + text + L"," + text + L"," + text + L"]", JsonOf(*generator));
    }
}

}  // namespace
