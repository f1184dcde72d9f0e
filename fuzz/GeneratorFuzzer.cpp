// Any series of calls of a generator, each of them next to a model; in between and at the end the
// document in the forms of output.

#include <gtest/gtest.h>

#include <map>
#include <optional>

#include "GeneratorModel.h"
#include "ItemPathModel.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "OutputReference.h"
#include "Readings.h"
#include "support/Choices.h"
#include "support/RandomJson.h"
#include "support/SpotChecks.h"

namespace {

using building::Answer;
using building::Arguments;
using building::Item;
using building::Kind;
using building::NamedBy;
using building::Operation;
using building::Value;

constexpr int kSteps = 60;
constexpr size_t kPathCapacity = 1024;

const std::vector<Item>& ItemsOf(Kind kind) {
    static const auto itemsByKind = [] {
        std::map<Kind, std::vector<Item>> all;
        for (const Item& item : building::Items()) all[item.kind].push_back(item);
        return all;
    }();
    return itemsByKind.at(kind);
}

class Building {
public:
    Building(fuzz::Choices& input, fuzz::SpotChecks& spots) : choices(input), checks(spots) {
        StartAnew();
    }

    void Run() {
        for (int step = 0; step < kSteps && !choices.AtEnd(); ++step) {
            Step();
            if (checks.IsDue(8)) ExpectText();
        }
        ExpectText();
        for (const auto& form : support::AllOutputForms())
            if (!form.IsFile() && checks.IsDue(4)) ExpectWritten(form);
        if (checks.IsDue(8)) ExpectWritten(choices.Of(support::FileForms()));
        if (checks.IsDue(4)) LoadWhatIsWritten();
    }

private:
    void Step() {
        switch (choices.Below(16)) {
            case 12:
                return AskForHandle();
            case 13:
                return AskForPath();
            case 14:
                return TakeIn();
            case 15:
                return DoRarely();
            default:
                return Add();
        }
    }

    void DoRarely() {
        switch (choices.Below(4)) {
            case 0:
                return AddMany();
            case 1:
                return AskForEveryMember();
            case 2:
                return Write();
            default:
                return StartAnew();
        }
    }

    // ---- Roots ---------------------------------------------------------------------------------

    void StartAnew() {
        const bool isObject = choices.Below(2) == 0;
        const bool byReference = choices.Below(2) == 0;
        model.Reset(isObject ? rapidjson::kObjectType : rapidjson::kArrayType);
        root.reset();
        if (byReference) {
            uint64_t reference = 0;
            EXPECT_EQ(1, isObject ? generator->ResetRootObjectValue(&reference)
                                  : generator->ResetRootArrayValue(&reference));
            root = reference;
        } else {
            uint32_t handle = 0;
            EXPECT_EQ(1, isObject ? generator->CreateRootObject(&handle)
                                  : generator->CreateRootArray(&handle));
            EXPECT_EQ((Answer{1, handle}), model.ItemHandleByPath(L"/"));
        }
    }

    // ---- Items ---------------------------------------------------------------------------------

    void Add() {
        const Operation& operation = choices.Of(building::AddingOperations());
        if (operation.naming == NamedBy::kReference && !root) return;
        const Item item = AnyItem(operation);
        const std::wstring target = root ? AnyPlace(building::At(*root)) : L"";
        const std::wstring path = AnyPath();
        const std::wstring key = fuzz::RandomKey(choices);
        Arguments arguments = building::With(item);
        if (root && !choices.OneIn(16)) arguments.reference = ReferenceOf(target);
        arguments.handle = AnyHandle();
        arguments.path = path.c_str();
        arguments.key = key.c_str();
        // Whether a null key or what is wrong with these items counts first is open.
        const bool needsKey =
            operation.kind == Kind::kVariant || operation.kind == Kind::kSpecialNumber;
        if (!needsKey && choices.OneIn(16)) arguments.key = nullptr;
        Expect(operation, item, arguments, target);
    }

    void Expect(const Operation& operation, const Item& item, const Arguments& arguments,
                const std::wstring& target) {
        const Answer expected = model.Add(operation, item, arguments, target);
        const Answer answer = operation.call(*generator, arguments);
        const bool isSame = operation.naming == NamedBy::kReference
                                ? expected.result == answer.result
                                : expected == answer;
        ASSERT_TRUE(isSame) << "expected " << expected << ", and it is " << answer << "; "
                            << operation.name << " of " << item.name << ", handle "
                            << arguments.handle << ", path "
                            << testing::PrintToString(arguments.path) << ", reference to "
                            << testing::PrintToString(target) << ", key "
                            << testing::PrintToString(arguments.key) << ", document "
                            << testing::PrintToString(building::TextOf(*generator));
        if (operation.naming == NamedBy::kReference)
            ExpectReference(operation, item, answer, target);
    }

    /// Elements that are booleans or numbers have an output of their own, which is not a reference.
    void ExpectReference(const Operation& operation, const Item& item, const Answer& answer,
                         const std::wstring& target) {
        ASSERT_EQ(answer.result == 1, !answer.outputs.empty());
        if (answer.result != 1) return;
        const Value& parent = *building::Resolve(building::At(*root), target);
        const bool isContainer = item.kind == Kind::kObject || item.kind == Kind::kArray;
        if (operation.hasKey)
            EXPECT_EQ(building::ReferenceOf((parent.MemberEnd() - 1)->value), answer.Number());
        else if (isContainer || item.kind == Kind::kNull || building::IsText(item))
            EXPECT_EQ(building::ReferenceOf(*(parent.End() - 1)), answer.Number());
        else
            EXPECT_EQ(building::ReferenceOf(parent) + 16 * (parent.Size() - 1), answer.Number());
    }

    /// One in sixteen is spoilt.
    Item AnyItem(const Operation& operation) {
        Item item = choices.Of(ItemsOf(operation.kind));
        if (item.kind == Kind::kString) item = building::StringItem(fuzz::RandomText(choices));
        if (!choices.OneIn(16)) return item;
        item.payload.bytes = nullptr;
        item.payload.text = nullptr;
        item.payload.variant.text = nullptr;
        if (choices.Below(2) == 0) item.payload.variant.tag = 7;
        if (operation.kind == Kind::kSpecialNumber) item.payload.word = 4;
        return item;
    }

    /// Enough members or elements below one parent for its search, its storage and its paths to be
    /// kept in another way.
    void AddMany() {
        const NamedBy naming = choices.Below(2) == 0 ? NamedBy::kHandle : NamedBy::kPath;
        const bool keyed = choices.Below(4) != 0;
        const Item item = building::IntItem(static_cast<int32_t>(choices.Below(256)));
        const Operation& operation = building::AddingOperation(item.kind, naming, keyed);
        const std::wstring path = AnyPath();
        const int32_t handle = AnyHandle();
        const std::wstring stem = fuzz::RandomKey(choices);
        for (uint32_t left = choices.Below(64); left > 0; --left) {
            const std::wstring key = stem + std::to_wstring(left);
            Arguments arguments = building::With(item);
            arguments.handle = handle;
            arguments.path = path.c_str();
            arguments.key = key.c_str();
            Expect(operation, item, arguments, L"");
        }
    }

    // ---- Handles and paths ---------------------------------------------------------------------

    void AskForHandle() { ExpectHandleAt(AnyPath()); }

    void ExpectHandleAt(const std::wstring& path) {
        EXPECT_EQ(model.ItemHandleByPath(path.c_str()),
                  building::ItemHandleByPath(*generator, path.c_str()))
            << testing::PrintToString(path);
    }

    /// An object that is searched often is searched in another way.
    void AskForEveryMember() {
        const std::wstring place = AnyPlace(model.Root());
        const Value& parent = *building::Resolve(model.Root(), place);
        if (!parent.IsObject()) return;
        std::vector<std::wstring> pointers;
        for (auto member = parent.MemberBegin(); member != parent.MemberEnd(); ++member)
            pointers.push_back(place + L"/" + member->name.GetString());
        for (const std::wstring& pointer : pointers)
            ExpectHandleAt(model::TranslatePointer(model.Root(), pointer));
    }

    void AskForPath() {
        const int32_t handle = AnyHandle();
        std::wstring expected = L"unwritten";
        int result = model.ItemPath(handle, expected);
        if (expected.size() >= kPathCapacity) {
            result = 0;
            expected = L"unwritten";
        }
        wchar_t path[kPathCapacity] = L"unwritten";
        EXPECT_EQ(result, generator->GetItemPath(handle, path));
        EXPECT_EQ(expected, path) << handle;
    }

    // ---- Parsed JSON ---------------------------------------------------------------------------

    void TakeIn() {
        const auto& route = choices.OneIn(8) ? choices.Of(support::AllGraftRoutes())
                                             : choices.Of(support::TextRoutes());
        const std::wstring json = AnyJson();
        const support::GraftSource source(route, json);
        const std::wstring path = AnyPath();
        const std::wstring key = fuzz::RandomKey(choices);
        support::Arguments arguments;
        arguments.handle = AnyHandle();
        arguments.path = path.c_str();
        arguments.key = key.c_str();
        arguments.payload.text = source.Argument();
        const auto expected = model.Graft(route, arguments, model::ReferenceTake(route, source));
        ASSERT_EQ(expected, route.call(*generator, arguments))
            << route << " of " << testing::PrintToString(json) << ", handle " << arguments.handle
            << ", path " << testing::PrintToString(path) << ", key " << testing::PrintToString(key)
            << ", document " << testing::PrintToString(building::TextOf(*generator));
        EXPECT_TRUE(source.IsClosed());
        if (route.asks == support::Asks::kLoad && expected.result == 1) root.reset();
    }

    /// One in eight is spoilt.
    std::wstring AnyJson() {
        std::wstring json = fuzz::RandomJson(choices, {/*acceptNan=*/true, /*uniqueNames=*/false});
        if (!choices.OneIn(8)) return json;
        static const wchar_t* const kOthers[] = {L"", L" ", L"1", L"\"text\"", L"null"};
        if (choices.Below(2) == 0) return choices.Of(kOthers);
        return json.erase(choices.Below(256) % json.size(), 1);
    }

    // ---- Output --------------------------------------------------------------------------------

    void ExpectText() { ASSERT_EQ(model.Text(), building::TextOf(*generator)); }

    void Write() { ExpectWritten(choices.Of(support::AllOutputForms())); }

    void ExpectWritten(const support::OutputForm& form) {
        EXPECT_EQ(ReferenceIn(form, model.Root()), WriteIn(form, *generator)) << form;
    }

    void LoadWhatIsWritten() {
        const std::wstring text = building::TextOf(*generator);
        if (!model::IsWellFormed(text)) return;
        EXPECT_EQ(text, building::TextOf(model::ParseExactly(text)));
        EXPECT_EQ(building::TextOf(model::Parse(text)),
                  support::JsonOf(*support::GeneratorOf(text)));
    }

    // ---- Choices -------------------------------------------------------------------------------

    std::wstring AnyPlace(Value& value) {
        const auto place = building::PointerIn(value, choices.Below(building::CountIn(value)));
        // Below the second of two members with one name nothing is named, or something else.
        return building::Resolve(value, place) ? place : L"";
    }

    uint64_t ReferenceOf(const std::wstring& place) {
        return building::ReferenceOf(*building::Resolve(building::At(*root), place));
    }

    /// The path of a value, sometimes with something after it, or nearly a path.
    std::wstring AnyPath() {
        std::wstring path = model::TranslatePointer(model.Root(), AnyPlace(model.Root()));
        if (choices.OneIn(8)) path += L"/" + fuzz::RandomKey(choices);
        if (choices.OneIn(32)) path.insert(choices.Below(4) % path.size(), L"~");
        return path;
    }

    /// Often one of the last, which belong together.
    int32_t AnyHandle() {
        const uint32_t end = model.LastHandle() + 2;
        const uint32_t handle = choices.Below(end);
        return static_cast<int32_t>(end > 8 && choices.Below(2) == 0 ? end - 1 - handle % 8
                                                                     : handle);
    }

    fuzz::Choices& choices;
    fuzz::SpotChecks& checks;
    support::Generator generator = support::NewGenerator();
    model::GeneratorModel model;
    std::optional<uint64_t> root;  ///< the root's reference, where it was returned
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::Choices choices(data, size);
    fuzz::SpotChecks checks(data, size);
    Building(choices, checks).Run();
    return 0;
}
