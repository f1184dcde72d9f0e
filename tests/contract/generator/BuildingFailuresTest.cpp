// How adding fails: each mistake's result, which of two mistakes is found first, and that nothing
// changes.

#include <gtest/gtest.h>

#include <climits>

#include "BuildScene.h"

namespace {

using namespace building;

/// What can be wrong with a call, in the order in which it is found out.
enum class Mistake {
    kNoBytes,      ///< no bytes for a blob
    kBadTag,       ///< a variant of an unknown kind
    kBadPlace,     ///< a null reference, a handle that was not issued, a path to nothing
    kNoKey,        ///< no key
    kLostPlace,    ///< a handle to what is no longer there
    kNoText,       ///< no text for a string
    kBadSelector,  ///< a special number that does not exist
    kNoOutput,     ///< no variable for the reference or handle
    kWrongKind,    ///< a parent that does not take the item
};

constexpr Mistake kAllMistakes[] = {
    Mistake::kNoBytes,     Mistake::kBadTag,    Mistake::kBadPlace,
    Mistake::kNoKey,       Mistake::kLostPlace, Mistake::kNoText,
    Mistake::kBadSelector, Mistake::kNoOutput,  Mistake::kWrongKind};

const char* NameOf(Mistake mistake) {
    constexpr const char* kNames[] = {"no bytes",     "bad tag",    "bad place",
                                      "no key",       "lost place", "no text",
                                      "bad selector", "no output",  "wrong kind"};
    return kNames[static_cast<int>(mistake)];
}

/// Mistakes in the same part of a call exclude each other.
enum class Part { kPlace, kKey, kPayload, kOutput };

Part PartOf(Mistake mistake) {
    switch (mistake) {
        case Mistake::kBadPlace:
        case Mistake::kLostPlace:
        case Mistake::kWrongKind:
            return Part::kPlace;
        case Mistake::kNoKey:
            return Part::kKey;
        case Mistake::kNoOutput:
            return Part::kOutput;
        default:
            return Part::kPayload;
    }
}

/// A variant without a key is not a mistake: it is appended.
bool CanMake(Mistake mistake, const Operation& operation) {
    switch (mistake) {
        case Mistake::kNoBytes:
            return operation.kind == Kind::kBlob;
        case Mistake::kBadTag:
            return operation.kind == Kind::kVariant;
        case Mistake::kNoKey:
            return operation.hasKey && operation.kind != Kind::kVariant;
        case Mistake::kLostPlace:
            return operation.naming == NamedBy::kHandle;
        case Mistake::kNoText:
            return operation.kind == Kind::kString || operation.kind == Kind::kVariant;
        case Mistake::kBadSelector:
            return operation.kind == Kind::kSpecialNumber;
        default:
            return true;
    }
}

int ResultOf(Mistake mistake, const Operation& operation) {
    switch (mistake) {
        case Mistake::kBadPlace:
            return operation.naming == NamedBy::kPath ? -10 : -2;
        case Mistake::kNoKey:
            return operation.naming == NamedBy::kReference ? -1 : -5;
        case Mistake::kLostPlace:
            return -2;
        case Mistake::kNoText:
            return -4;
        case Mistake::kWrongKind:
            return -3;
        default:
            return 0;
    }
}

class Calls {
public:
    explicit Calls(Scene& of) : scene(of) {}

    Arguments Good(const Operation& operation) {
        Arguments arguments = scene.Naming(operation.hasKey ? L"object" : L"array");
        arguments.key = L"key";
        arguments.payload = SomeItem(operation.kind).payload;
        return arguments;
    }

    void Make(Mistake mistake, const Operation& operation, Arguments& arguments) {
        switch (mistake) {
            case Mistake::kNoBytes:
                arguments.payload.bytes = nullptr;
                break;
            case Mistake::kBadTag:
                arguments.payload.variant.tag = 21;
                break;
            case Mistake::kBadPlace:
                arguments.reference = 0;
                arguments.handle = scene.UnknownHandle();
                arguments.path = L"/missing";
                break;
            case Mistake::kNoKey:
                arguments.key = nullptr;
                break;
            case Mistake::kLostPlace:
                arguments.handle = scene.LostHandle();
                break;
            case Mistake::kNoText:
                arguments.payload.text = nullptr;
                arguments.payload.variant = TextVariant(nullptr).payload.variant;
                break;
            case Mistake::kBadSelector:
                arguments.payload.word = 4;
                break;
            case Mistake::kNoOutput:
                arguments.outputs[0] = kMissing;
                break;
            case Mistake::kWrongKind:
                PutAt(operation.hasKey ? L"array" : L"object", arguments);
                break;
        }
    }

    void PutAt(const std::wstring& member, Arguments& arguments) {
        const Arguments place = scene.Naming(member);
        arguments.reference = place.reference;
        arguments.handle = place.handle;
        arguments.path = place.path;
    }

private:
    Scene& scene;
};

class BuildingFailures : public testing::Test {
protected:
    /// A failed call writes no output, changes nothing in the document and issues no handle.
    void ExpectRefusal(const Operation& operation, const Arguments& arguments, int result) {
        const std::wstring text = scene->Text();
        const uint32_t handle = scene->NextHandle();
        EXPECT_EQ((Answer{result}), operation.call(scene->Generator(), arguments));
        EXPECT_EQ(text, scene->Text());
        EXPECT_EQ(handle + 1, scene->NextHandle());
    }

    /// A scene of its own for each call: one that wrongly succeeds does not disturb the others.
    Calls NewCalls() {
        scene = std::make_unique<Scene>();
        return Calls(*scene);
    }

    std::unique_ptr<Scene> scene;
};

TEST_F(BuildingFailures, OneMistakeDecidesTheResult) {
    for (const Operation& operation : AddingOperations()) {
        for (const Mistake mistake : kAllMistakes) {
            if (!CanMake(mistake, operation)) continue;
            SCOPED_TRACE(testing::Message() << operation.name << ", " << NameOf(mistake));
            Calls calls = NewCalls();
            Arguments arguments = calls.Good(operation);
            calls.Make(mistake, operation, arguments);
            ExpectRefusal(operation, arguments, ResultOf(mistake, operation));
        }
    }
}

TEST_F(BuildingFailures, OfTwoMistakesTheOneFoundFirstDecides) {
    int pairs = 0;
    for (const Operation& operation : AddingOperations()) {
        for (const Mistake first : kAllMistakes) {
            for (const Mistake second : kAllMistakes) {
                if (second <= first || PartOf(first) == PartOf(second)) continue;
                if (!CanMake(first, operation) || !CanMake(second, operation)) continue;
                SCOPED_TRACE(testing::Message() << operation.name << ", " << NameOf(first)
                                                << " and " << NameOf(second));
                Calls calls = NewCalls();
                Arguments arguments = calls.Good(operation);
                calls.Make(first, operation, arguments);
                calls.Make(second, operation, arguments);
                ExpectRefusal(operation, arguments, ResultOf(first, operation));
                ++pairs;
            }
        }
    }
    EXPECT_LT(300, pairs);
}

TEST_F(BuildingFailures, EveryParentOfAnotherKindIsWrong) {
    for (const Operation& operation : AddingOperations()) {
        for (const wchar_t* parent :
             {operation.hasKey ? L"array" : L"object", L"text", L"number", L"flag", L"nothing"}) {
            SCOPED_TRACE(testing::Message() << operation.name << " at " << parent);
            Calls calls = NewCalls();
            Arguments arguments = calls.Good(operation);
            calls.PutAt(parent, arguments);
            ExpectRefusal(operation, arguments, -3);
        }
    }
}

TEST_F(BuildingFailures, EveryHandleThatWasNotIssuedIsUnknown) {
    for (const Operation& operation : AddingOperations()) {
        if (operation.naming != NamedBy::kHandle) continue;
        for (const int32_t handle : {0, -1, INT_MIN, INT_MAX, 1000, -2, 0x10001}) {
            SCOPED_TRACE(testing::Message() << operation.name << ", handle " << handle);
            Calls calls = NewCalls();
            Arguments arguments = calls.Good(operation);
            arguments.handle = handle;
            ExpectRefusal(operation, arguments, -2);
        }
    }
}

TEST_F(BuildingFailures, EveryPathToNothingIsBad) {
    for (const Operation& operation : AddingOperations()) {
        if (operation.naming != NamedBy::kPath) continue;
        for (const BadPath& bad : BadPaths()) {
            SCOPED_TRACE(testing::Message()
                         << operation.name << ", path " << testing::PrintToString(bad.path));
            Calls calls = NewCalls();
            Arguments arguments = calls.Good(operation);
            arguments.path = bad.path;
            ExpectRefusal(operation, arguments, bad.result);
        }
    }
}

TEST_F(BuildingFailures, EveryOtherSelectorIsBad) {
    for (const Operation& operation : AddingOperations()) {
        if (operation.kind != Kind::kSpecialNumber) continue;
        for (const uint32_t selector : {4u, 5u, 0x100u, 0x80000000u, 0x80000001u, 0xFFFFFFFFu}) {
            SCOPED_TRACE(testing::Message() << operation.name << ", selector " << selector);
            Calls calls = NewCalls();
            Arguments arguments = calls.Good(operation);
            arguments.payload.word = selector;
            ExpectRefusal(operation, arguments, 0);
        }
    }
}

TEST_F(BuildingFailures, EveryOtherTagIsBad) {
    for (const Operation& operation : AddingOperations()) {
        if (operation.kind != Kind::kVariant) continue;
        for (const int tag : {0, 1, 3, 5, 8, 11, 19, 21, 0x3FFF, 0x4001, 0x4014, 0x8000, 0xFFFF}) {
            SCOPED_TRACE(testing::Message() << operation.name << ", tag " << tag);
            Calls calls = NewCalls();
            Arguments arguments = calls.Good(operation);
            arguments.payload.variant.tag = static_cast<uint16_t>(tag);
            ExpectRefusal(operation, arguments, 0);
        }
    }
}

/// Bytes that are not there are not looked for, whatever their number.
TEST_F(BuildingFailures, NoBytesOfAnyLength) {
    for (const Operation& operation : AddingOperations()) {
        if (operation.kind != Kind::kBlob) continue;
        for (const uint32_t length : {0u, 1u, 0xFFFFFFFFu}) {
            SCOPED_TRACE(testing::Message() << operation.name << ", length " << length);
            Calls calls = NewCalls();
            Arguments arguments = calls.Good(operation);
            arguments.payload.bytes = nullptr;
            arguments.payload.word = length;
            ExpectRefusal(operation, arguments, 0);
        }
    }
}

}  // namespace
