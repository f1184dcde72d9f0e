#include <gtest/gtest.h>

#include "JsonDll.h"
#include "LoadOutcome.h"
#include "Mistakes.h"
#include "Sites.h"
#include "Specimen.h"

namespace support {
namespace {

/// Holds kEveryKind. Only the root, and what Good must name by a handle, has one.
class ParserSpecimen final : public Specimen {
public:
    ParserSpecimen() { Refill(); }

    Subject Object() override { return *parser; }

    Arguments Good(const Operation& operation, bool) override {
        const wchar_t* const key = GoodKey(operation);
        member = {};
        member.path = std::wstring(L"/") + key;
        uint32_t type = 0;
        EXPECT_EQ(1, parser->GetMemberValue(root.reference, key, &member.reference, &type));
        if (operation.naming == NamedBy::kHandle && !operation.hasKey) {
            member.handle = NextHandle(*parser, member.path.c_str());
            EXPECT_EQ(++issued, member.handle);
        }
        Arguments arguments = AtMember(operation, root, member, key);
        arguments.payload.text = operation.Takes(parameters::kFileName) ? FileToLoad() : L"[1,2]";
        arguments.payload.bytes = reinterpret_cast<const uint8_t*>("[1,2]");
        arguments.payload.word = 5;
        return arguments;
    }

    std::wstring Seen() override {
        const LoadOutcome outcome = OutcomeOf(*parser, 1);
        return outcome.tree + L", message " + std::to_wstring(outcome.code) + L" at " +
               std::to_wstring(outcome.offset);
    }

    void ExpectNoNewHandle() override { EXPECT_EQ(++issued, NextHandle(*parser, kSparePath)); }

    void Refill() override {
        EXPECT_EQ(1, parser->LoadJsonString(kEveryKind));
        root = SiteOfRoot(*parser);
        issued = 1;
    }

    /// A parser adds nothing.
    void UseUpReserve() override {}

    void ExpectUsable() override {
        EXPECT_EQ(std::wstring(kEveryKind) + L", message 0 at 0", Seen());
        ExpectByHandle();
        ExpectByReference();
        ExpectByPath();
    }

    int Release() override { return parser.release()->Release(); }

private:
    void ExpectByHandle() {
        uint32_t object = 0;
        uint32_t type = 0;
        int32_t number = 0;
        EXPECT_EQ(1, parser->GetMemberItem(root.handle, L"OBJECT", &object, &type));
        EXPECT_EQ(1, parser->GetMemberInt(object, L"inner", &number));
        EXPECT_EQ(1, number);
        EXPECT_EQ(1, parser->GetMemberInt(root.handle, L"number", &number));
        EXPECT_EQ(7, number);
        uint32_t flag = 0;
        EXPECT_EQ(1, parser->GetMemberBoolean(root.handle, L"flag", &flag));
        EXPECT_EQ(1u, flag);
    }

    void ExpectByReference() {
        uint64_t text = 0;
        uint32_t type = 0;
        const wchar_t* characters = L"";
        uint32_t count = 0;
        EXPECT_EQ(1, parser->GetMemberValue(root.reference, L"text", &text, &type));
        EXPECT_EQ(1, parser->GetValueString(text, &characters));
        EXPECT_STREQ(L"QUJD", characters);
        EXPECT_EQ(1, parser->GetChildCountOfValue(root.reference, &count));
        EXPECT_EQ(6u, count);
    }

    void ExpectByPath() {
        const uint8_t* data = nullptr;
        uint32_t size = 0;
        int32_t number = 0;
        EXPECT_EQ(1, parser->GetItemBlobByPath(L"/text", &data, &size));
        EXPECT_EQ("ABC", std::string(data, data + size));
        EXPECT_EQ(1, parser->GetItemIntByPath(L"/array/2", &number));
        EXPECT_EQ(20, number);
        EXPECT_TRUE(parser->ExistsItemByPath(L"/object/inner"));
    }

    Parser parser = NewParser();
    Site root;
    Site member;
    uint32_t issued = 0;
};

}  // namespace

std::unique_ptr<Specimen> NewParserSpecimen() { return std::make_unique<ParserSpecimen>(); }

}  // namespace support
