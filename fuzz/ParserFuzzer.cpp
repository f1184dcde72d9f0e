// Any series of reading operations on any document, each of them next to a model.

#include <gtest/gtest.h>

#include "CatchFault.h"
#include "JsonDll.h"
#include "LoadOutcome.h"
#include "ParserModel.h"
#include "support/Choices.h"
#include "support/RandomJson.h"

namespace {

using model::Value;
using support::Arguments;
using support::Asks;
using support::Operation;

constexpr int kSteps = 100;

class Reading {
public:
    Reading(fuzz::Choices& input, const std::wstring& json)
        : choices(input), parser(support::Loaded(json.c_str())), model(json, *parser) {}

    void Run() {
        for (int step = 0; step < kSteps && !choices.AtEnd(); ++step) {
            if (choices.OneIn(16))
                AskForEveryKey();
            else
                Ask();
        }
        EXPECT_EQ(0, parser->HasError());
        EXPECT_EQ(building::TextOf(model.Root()), support::TreeOf(*parser));
    }

private:
    void Ask() {
        static const auto& operations = support::ReadingOperations();
        const Operation& operation = choices.Of(operations);
        Value& target = AnyValue();
        Arguments arguments;
        arguments.handle = choices.Below(model.LastHandle() + 2);
        arguments.reference = choices.OneIn(16) ? 0 : model.ReferenceOf(target);
        arguments.path = pathToTarget.c_str();
        const std::wstring key = AnyKeyOf(target);
        arguments.key = choices.OneIn(16) ? nullptr : key.c_str();
        arguments.index = choices.Below(8);
        // A blob's size has no test of its own.
        if (choices.OneIn(16)) arguments.outputs[0] = support::kMissing;
        if (choices.OneIn(16) && operation.asks != Asks::kBlob)
            arguments.outputs[1] = support::kMissing;
        Expect(operation, arguments);
    }

    void Expect(const Operation& operation, const Arguments& arguments) {
        const auto expected = model.Ask(operation, arguments);
        if (operation.returnsBool && expected.result == -5) {
            EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION, support::CatchFault([&] {
                          if (operation.hasKey)
                              parser->ExistsMemberByPath(arguments.path, arguments.key);
                          else
                              parser->ExistsItemByPath(arguments.path);
                      }));
            return;
        }
        EXPECT_EQ(expected, operation.call(*parser, arguments))
            << operation.name << ", handle " << arguments.handle << ", path "
            << testing::PrintToString(arguments.path) << ", key "
            << testing::PrintToString(arguments.key) << ", index " << arguments.index
            << ", document " << testing::PrintToString(building::TextOf(model.Root()));
    }

    /// An object that is searched often is searched in another way, which a few series of searches
    /// bring about.
    void AskForEveryKey() {
        static const Operation& byReference = support::ParserOperation("GetMemberValue");
        static const Operation& byPath = support::ParserOperation("ExistsMemberByPath");
        Value& object = AnyValue();
        if (!object.IsObject()) return;
        Arguments arguments;
        arguments.reference = model.ReferenceOf(object);
        arguments.path = pathToTarget.c_str();
        for (uint32_t i = 0; i < object.MemberCount() + 8; ++i) {
            std::wstring key = i < object.MemberCount() ? object.MemberBegin()[i].name.GetString()
                                                        : fuzz::RandomKey(choices);
            if (i % 2 != 0 && !key.empty()) key[i / 2 % key.size()] ^= 0x20;
            arguments.key = key.c_str();
            Expect(byReference, arguments);
            Expect(byPath, arguments);
        }
    }

    /// Goes down from the root a little. The path on the way is the value's, or nearly so.
    Value& AnyValue() {
        Value* value = &model.Root();
        pathToTarget.clear();
        for (uint32_t levels = choices.Below(5); levels > 0; --levels) {
            if (value->IsArray() && !value->Empty()) {
                const uint32_t index = choices.Below(value->Size());
                pathToTarget += L"/" + std::to_wstring(index + 1);
                value = &(*value)[index];
            } else if (value->IsObject() && !value->ObjectEmpty()) {
                auto& member = value->MemberBegin()[choices.Below(value->MemberCount())];
                pathToTarget += L"/" + InPath(member.name.GetString());
                value = &member.value;
            }
        }
        if (choices.OneIn(8)) pathToTarget += L"/" + fuzz::RandomKey(choices);
        if (pathToTarget.empty()) pathToTarget = choices.OneIn(32) ? L"" : L"/";
        if (choices.OneIn(32) && !pathToTarget.empty())
            pathToTarget.insert(choices.Below(4) % pathToTarget.size(), L"~");
        return *value;
    }

    static std::wstring InPath(const std::wstring& name) {
        std::wstring segment;
        for (const wchar_t c : name) {
            if (c == L'/') segment += L'~';
            segment += c;
        }
        return segment;
    }

    /// Often one of the object's own, with the case of a letter changed.
    std::wstring AnyKeyOf(const Value& value) {
        if (!value.IsObject() || value.ObjectEmpty() || choices.OneIn(4))
            return fuzz::RandomKey(choices);
        std::wstring key = value.MemberBegin()[choices.Below(value.MemberCount())].name.GetString();
        if (!key.empty() && choices.OneIn(3)) key[choices.Below(8) % key.size()] ^= 0x20;
        return key;
    }

    fuzz::Choices& choices;
    support::Parser parser;
    model::ParserModel model;
    std::wstring pathToTarget;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::Choices choices(data, size);
    const std::wstring json =
        fuzz::RandomJson(choices, {/*acceptNan=*/true, /*uniqueNames=*/false});
    Reading(choices, json).Run();
    return 0;
}
