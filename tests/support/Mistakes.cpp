#include "Mistakes.h"

#include <cwchar>

namespace support {

const wchar_t kEveryKind[] =
    LR"({"object":{"inner":1},"array":[10,20],"flag":true,"number":7,"text":"QUJD","spare":null})";

namespace {

bool Is(const wchar_t* a, const wchar_t* b) { return std::wcscmp(a, b) == 0; }

}  // namespace

const wchar_t* GoodKey(const Operation& operation) {
    switch (operation.asks) {
        case Asks::kBoolean:
            return L"flag";
        case Asks::kDouble:
        case Asks::kFloat:
        case Asks::kUInt64:
        case Asks::kInt64:
        case Asks::kUInt:
        case Asks::kInt:
        case Asks::kNumberClass:
        case Asks::kVariant:
            return L"number";
        case Asks::kBlob:
        case Asks::kString:
            return L"text";
        case Asks::kCount:
        case Asks::kArray:
        case Asks::kArrayText:
            return L"array";
        case Asks::kMember:
            return L"flag";
        default:
            return L"object";
    }
}

namespace {

/// The member of kEveryKind that is of the wrong kind for an operation; null when none is.
const wchar_t* WrongKey(const Operation& operation) {
    switch (operation.asks) {
        case Asks::kMember:
        case Asks::kItem:
        case Asks::kExistence:
        case Asks::kValueType:
        case Asks::kItemType:
            return nullptr;
        case Asks::kBoolean:
        case Asks::kBlob:
        case Asks::kString:
        case Asks::kChild:
            return L"number";
        case Asks::kObject:
        case Asks::kObjectText:
        case Asks::kName:
            return L"array";
        case Asks::kArray:
        case Asks::kArrayText:
            return L"object";
        case Asks::kVariant:
            return L"flag";
        default:
            return L"text";
    }
}

bool IsText(const Operation& operation) {
    return operation.asks == Asks::kObjectText || operation.asks == Asks::kArrayText;
}

int ResultOfBadPlace(const Operation& operation) {
    if (operation.naming == NamedBy::kPath) return operation.asks == Asks::kItem ? -2 : -10;
    return IsText(operation) ? -5 : -2;
}

int ResultOfNoMember(const Operation& operation) {
    switch (operation.asks) {
        case Asks::kMember:
        case Asks::kItemType:
        case Asks::kObject:
        case Asks::kArray:
        case Asks::kObjectText:
        case Asks::kArrayText:
            return 0;
        case Asks::kNumberClass:
            return -2;
        default:
            return -1;
    }
}

int ResultOfWrongType(const Operation& operation) {
    const bool isOfKind = operation.asks == Asks::kObject || operation.asks == Asks::kArray;
    return isOfKind || IsText(operation) ? 0 : -3;
}

}  // namespace

const char* NameOf(Mistake mistake) {
    switch (mistake) {
        case Mistake::kBadPlace:
            return "bad place";
        case Mistake::kNullKey:
            return "null key";
        case Mistake::kNullOutput:
            return "null output";
        case Mistake::kNoObject:
            return "no object";
        case Mistake::kNoMember:
            return "no member";
        case Mistake::kBadIndex:
            return "bad index";
        default:
            return "wrong type";
    }
}

Part PartOf(Mistake mistake, const Operation& operation) {
    switch (mistake) {
        case Mistake::kBadPlace:
        case Mistake::kNoObject:
            return Part::kPlace;
        case Mistake::kNullKey:
        case Mistake::kNoMember:
            return Part::kKey;
        case Mistake::kNullOutput:
            return Part::kOutput;
        case Mistake::kBadIndex:
            return Part::kIndex;
        default:
            return operation.hasKey ? Part::kKey : Part::kPlace;
    }
}

Calls::Calls(QXJSON::IJsonParser& parser)
    : root(SiteOfRoot(parser)),
      object(SiteOfMember(parser, L"object")),
      array(SiteOfMember(parser, L"array")),
      flag(SiteOfMember(parser, L"flag")),
      number(SiteOfMember(parser, L"number")),
      text(SiteOfMember(parser, L"text")) {}

const Site& Calls::SiteOf(const wchar_t* key) const {
    if (Is(key, L"object")) return object;
    if (Is(key, L"array")) return array;
    if (Is(key, L"flag")) return flag;
    return Is(key, L"number") ? number : text;
}

Arguments Calls::Good(const Operation& operation) const {
    const wchar_t* key = GoodKey(operation);
    return AtMember(operation, root, SiteOf(key), key);
}

void Calls::Make(Mistake mistake, const Operation& operation, Arguments& arguments) const {
    auto moveTo = [&](const Site& site) {
        arguments.handle = site.handle;
        arguments.reference = site.reference;
        arguments.path = site.path.c_str();
    };
    switch (mistake) {
        case Mistake::kBadPlace: {
            static const Site nowhere{999, 0, L"/nowhere"};
            return moveTo(nowhere);
        }
        case Mistake::kNullKey:
            arguments.key = nullptr;
            return;
        case Mistake::kNullOutput:
            for (auto& output : arguments.outputs) output = kMissing;
            return;
        case Mistake::kNoObject:
            return moveTo(array);
        case Mistake::kNoMember:
            arguments.key = L"nowhere";
            return;
        case Mistake::kBadIndex:
            arguments.index = 2;
            return;
        case Mistake::kWrongType:
            if (operation.hasKey)
                arguments.key = WrongKey(operation);
            else
                moveTo(SiteOf(WrongKey(operation)));
            return;
    }
}

bool CanMake(Mistake mistake, const Operation& operation) {
    switch (mistake) {
        case Mistake::kBadPlace:
            return operation.naming != NamedBy::kNone;
        // Without a key a variant is that of the value itself.
        case Mistake::kNullKey:
            return operation.hasKey && operation.asks != Asks::kVariant;
        case Mistake::kNullOutput:
            return operation.outputs > 0;
        case Mistake::kNoObject:
        case Mistake::kNoMember:
            return operation.hasKey;
        case Mistake::kBadIndex:
            return operation.hasIndex;
        default:
            return WrongKey(operation) != nullptr;
    }
}

int ResultOf(Mistake mistake, const Operation& operation) {
    if (operation.returnsBool) return 0;
    switch (mistake) {
        case Mistake::kBadPlace:
            return ResultOfBadPlace(operation);
        case Mistake::kNullKey:
            return IsText(operation) ? 0 : -1;
        case Mistake::kNoObject:
            return IsText(operation) ? 0 : -3;
        case Mistake::kNoMember:
            return ResultOfNoMember(operation);
        case Mistake::kWrongType:
            return ResultOfWrongType(operation);
        default:
            return 0;
    }
}

bool IsFoundBefore(Mistake first, Mistake second, const Operation& operation) {
    // A blob's outputs are looked at when its string is there to be decoded.
    const bool blob = operation.asks == Asks::kBlob;
    auto rank = [&](Mistake mistake) {
        return blob && mistake == Mistake::kNullOutput ? 100 : static_cast<int>(mistake);
    };
    return rank(first) < rank(second);
}

}  // namespace support
