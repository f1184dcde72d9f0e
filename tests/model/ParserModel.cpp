#include "ParserModel.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "IJsonParser.h"
#include "ItemPathModel.h"

namespace model {
namespace {

using support::Answer;
using support::Arguments;
using support::Asks;
using support::NamedBy;
using support::Operation;
using support::Show;

bool IsText(Asks asks) { return asks == Asks::kObjectText || asks == Asks::kArrayText; }

/// Whether what is found goes out as a reference or handle.
bool IsHandedOut(Asks asks) {
    return asks == Asks::kMember || asks == Asks::kChild || asks == Asks::kObject ||
           asks == Asks::kArray || asks == Asks::kItem;
}

bool IsContainer(const Value& value) { return value.IsObject() || value.IsArray(); }

bool IsMissing(const Arguments& arguments, const Operation& operation) {
    const auto end = arguments.outputs + operation.outputs;
    return std::any_of(arguments.outputs, end,
                       [](const auto& output) { return output.has_value(); });
}

}  // namespace

ParserModel::ParserModel(const std::wstring& json, QXJSON::IJsonParser& parser)
    : document(Parse(json)) {
    uint64_t root = 0;
    uint32_t type = 0;
    EXPECT_EQ(1, parser.GetRootValue(&root, &type));
    EXPECT_EQ(ItemTypeOf(document), type);
    Pair(document, building::At(root));
}

void ParserModel::Pair(Value& mine, Value& theirs) {
    ASSERT_EQ(ValueTypeOf(mine), ValueTypeOf(theirs));
    references.emplace_back(&mine, building::ReferenceOf(theirs));
    if (mine.IsArray()) {
        ASSERT_EQ(mine.Size(), theirs.Size());
        for (rapidjson::SizeType i = 0; i < mine.Size(); ++i) Pair(mine[i], theirs[i]);
    } else if (mine.IsObject()) {
        ASSERT_EQ(mine.MemberCount(), theirs.MemberCount());
        for (rapidjson::SizeType i = 0; i < mine.MemberCount(); ++i) {
            EXPECT_EQ(CharactersOf(mine.MemberBegin()[i].name),
                      CharactersOf(theirs.MemberBegin()[i].name));
            Pair(mine.MemberBegin()[i].value, theirs.MemberBegin()[i].value);
        }
    }
}

uint64_t ParserModel::ReferenceOf(const Value& value) const {
    return std::find_if(references.begin(), references.end(),
                        [&](const auto& pair) { return pair.first == &value; })
        ->second;
}

Value* ParserModel::ValueOf(uint64_t reference) const {
    return std::find_if(references.begin(), references.end(),
                        [&](const auto& pair) { return pair.second == reference; })
        ->first;
}

Answer ParserModel::Ask(const Operation& operation, const Arguments& arguments) {
    const auto refuse = [&](int result) {
        return Answer(operation.returnsBool && result != -5 ? 0 : result);
    };
    const Found place = Find(operation, arguments);
    if (!place.value) return refuse(place.absence);
    const bool needsKey = operation.hasKey && operation.asks != Asks::kVariant;
    if (needsKey && !arguments.key) return refuse(IsText(operation.asks) ? 0 : -1);
    // A blob is asked for its text first, which has an output of its own.
    const bool isMissing = IsMissing(arguments, operation);
    if (isMissing && operation.asks != Asks::kBlob) return refuse(0);
    const Found target = Target(operation, arguments, place);
    if (!target.value) return refuse(target.absence);
    if (isMissing) return refuse(target.value->IsString() ? 0 : -3);
    auto outputs = OutputsFor(operation, *target.value);
    const bool isChoosy = IsText(operation.asks) || IsHandedOut(operation.asks);
    if (!outputs) return refuse(isChoosy ? 0 : -3);
    return {1, *outputs};
}

// ---- Places ------------------------------------------------------------------------------------

ParserModel::Found ParserModel::Find(const Operation& operation, const Arguments& arguments) {
    switch (operation.naming) {
        case support::NamedBy::kHandle: {
            const bool isKnown = arguments.handle - 1 < handleToValue.size();
            // The texts by handle use it without a test.
            if (!isKnown) return {nullptr, IsText(operation.asks) ? -5 : -2};
            return {const_cast<Value*>(handleToValue[arguments.handle - 1]), 1};
        }
        case support::NamedBy::kReference:
            if (arguments.reference == 0) return {nullptr, -2};
            return {ValueOf(arguments.reference), 1};
        default: {
            Found found = Path(arguments.path);
            if (found.absence == -10 && operation.asks == Asks::kItem) found.absence = -2;
            return found;
        }
    }
}

ParserModel::Found ParserModel::Path(const wchar_t* path) {
    std::wstring pointer;
    const int result = TranslatePath(document, path, pointer);
    if (result != 1) return {nullptr, result};
    return {building::Resolve(document, pointer), -10};
}

// ---- Targets -----------------------------------------------------------------------------------

/// The value that is asked, which is the one at the place or a child of it.
ParserModel::Found ParserModel::Target(const Operation& operation, const Arguments& arguments,
                                       Found place) {
    Value& value = *place.value;
    if (operation.asks == Asks::kName) {
        if (!value.IsObject()) return {nullptr, -3};
        if (arguments.index >= value.MemberCount()) return {nullptr, 0};
        return {&value.MemberBegin()[arguments.index].name, 1};
    }
    if (operation.hasIndex) return Child(value, arguments.index);
    if (operation.hasKey && arguments.key) return Member(operation, arguments.key, value);
    return place;
}

ParserModel::Found ParserModel::Member(const Operation& operation, const wchar_t* key,
                                       Value& parent) {
    if (!parent.IsObject()) return {nullptr, IsText(operation.asks) ? 0 : -3};
    const bool exactly = operation.returnsBool && operation.naming == support::NamedBy::kPath;
    for (auto member = parent.MemberBegin(); member != parent.MemberEnd(); ++member)
        if (AreSame(CharactersOf(member->name), key, exactly)) return {&member->value, 1};
    if (operation.asks == Asks::kNumberClass) return {nullptr, -2};
    const bool isFinder =
        IsHandedOut(operation.asks) || IsText(operation.asks) || operation.asks == Asks::kItemType;
    return {nullptr, isFinder ? 0 : -1};
}

ParserModel::Found ParserModel::Child(Value& parent, uint32_t index) {
    if (!IsContainer(parent)) return {nullptr, -3};
    const uint32_t count = parent.IsObject() ? parent.MemberCount() : parent.Size();
    if (index >= count) return {nullptr, 0};
    return {parent.IsObject() ? &parent.MemberBegin()[index].value : &parent[index], 1};
}

// ---- Outputs -----------------------------------------------------------------------------------

std::optional<Outputs> ParserModel::OutputsFor(const Operation& operation, Value& value) {
    const Asks asks = operation.asks;
    const bool isByHandle = operation.naming == support::NamedBy::kHandle;
    if (asks == Asks::kExistence) {
        if (isByHandle) HandleOf(value);
        return Outputs();
    }
    if (asks == Asks::kName) return Outputs{Show(value.GetString())};
    if (asks == Asks::kItemType && operation.hasKey) HandleOf(value);
    if (!IsHandedOut(asks)) return Read(asks, value);
    if (asks == Asks::kObject && !value.IsObject()) return std::nullopt;
    if (asks == Asks::kArray && !value.IsArray()) return std::nullopt;
    if (operation.naming == support::NamedBy::kReference)
        return Outputs{Show(ReferenceOf(value)), Show(ValueTypeOf(value))};
    if (asks == Asks::kItem) return Outputs{Show(HandleOf(value))};
    return Outputs{Show(HandleOf(value)), Show(ItemTypeOf(value))};
}

uint32_t ParserModel::HandleOf(const Value& value) {
    const auto found = std::find(handleToValue.begin(), handleToValue.end(), &value);
    const auto position = static_cast<uint32_t>(found - handleToValue.begin());
    if (found == handleToValue.end()) handleToValue.push_back(&value);
    return position + 1;
}

}  // namespace model
