// Every operation with every one of its pointers going wrong in every way: it returns what the
// contract says, a call that fails changes nothing, and the object goes on.

#include <gtest/gtest.h>

#include <cwchar>

#include "BadPointers.h"
#include "CatchFault.h"
#include "Specimen.h"

namespace {

using namespace support;
using namespace support::parameters;

// ---- Pointers ----------------------------------------------------------------------------------

/// A parameter that is a pointer, or the pointer inside a variant.
struct Pointer {
    Parameter parameter;
    size_t output = 0;  ///< which of the outputs it is
    bool isInside = false;
};

std::string NameOf(const Pointer& pointer) {
    return (pointer.isInside ? "text in the " : "") +
           std::string(support::NameOf(pointer.parameter));
}

std::vector<Pointer> PointersOf(const Operation& operation) {
    std::vector<Pointer> pointers;
    size_t outputs = 0;
    for (const Parameter parameter : operation.parameters) {
        switch (parameter) {
            case kHandle:
            case kIndex:
            case kLength:
            case kNumber:
            case kEncoding:
            case kStyle:
            case kPassedOn:
                break;
            case kVariant:
                pointers.push_back({parameter, 0, true});
                break;
            case kVariantRecord:
                pointers.push_back({parameter, 0, true});
                pointers.push_back({parameter});
                break;
            default:
                pointers.push_back({parameter, outputs});
                outputs += IsOutput(parameter) ? 1 : 0;
        }
    }
    return pointers;
}

BadMemory::Content ContentOf(const wchar_t* text) {
    const size_t size = std::wcslen(text) * sizeof *text;
    return {text, size + sizeof *text, size};
}

/// What a good pointer leads to.
BadMemory::Content ContentOf(const Arguments& arguments, const Pointer& pointer) {
    const Payload& payload = arguments.payload;
    switch (pointer.parameter) {
        case kPath:
            return ContentOf(arguments.path);
        case kKey:
            return ContentOf(arguments.key);
        case kText:
        case kFileName:
            return ContentOf(payload.text);
        case kBytes:
            return {payload.bytes, payload.word, payload.word - 1};
        case kVariant:
        case kVariantRecord:
            if (pointer.isInside) return ContentOf(payload.variant.text);
            return {&payload.variant, sizeof payload.variant, sizeof payload.variant / 2};
        default:
            return {nullptr, 0, 2};
    }
}

void Point(Arguments& arguments, const Pointer& pointer, uintptr_t address) {
    const auto text = reinterpret_cast<const wchar_t*>(address);
    switch (pointer.parameter) {
        case kReference:
            arguments.reference = address;
            break;
        case kPath:
            arguments.path = text;
            break;
        case kKey:
            arguments.key = text;
            break;
        case kText:
        case kFileName:
            arguments.payload.text = text;
            break;
        case kBytes:
            arguments.payload.bytes = reinterpret_cast<const uint8_t*>(address);
            break;
        case kVariant:
        case kVariantRecord:
            if (pointer.isInside)
                arguments.payload.variant.text = text;
            else
                arguments.record = address;
            break;
        case kObject:
            arguments.object = reinterpret_cast<void*>(address);
            break;
        case kDelegate:
            arguments.delegate = reinterpret_cast<QXJSON::IJsonPackageDelegate*>(address);
            break;
        default:
            arguments.outputs[pointer.output] = address;
    }
}

// ---- What is to come of it ---------------------------------------------------------------------

enum class Outcome {
    kGood,     ///< as if nothing were wrong
    kRefused,  ///< any other result
    kFault,    ///< -5
    kEscape,   ///< an access violation that reaches the caller
    kNotTried,
};

/// These are measured as the system does, which takes a text that cannot be read for empty: texts
/// of JSON, and the names of files to be written.
bool IsMeasuredBySystem(const Operation& operation, const Pointer& pointer) {
    if (pointer.parameter == kFileName) return operation.name.compare(0, 10, "SaveToFile") == 0;
    return pointer.parameter == kText &&
           (operation.asks == Asks::kLoad || operation.asks == Asks::kGraft ||
            operation.name == "SetValue");
}

/// The package's booleans are one byte, for which there is room before the end of a page.
bool FitsBeforeTheEnd(const Operation& operation, const Pointer& pointer) {
    const bool isPackages = operation.naming == NamedBy::kNone;
    return pointer.parameter == kOutNumber && isPackages &&
           (operation.asks == Asks::kExistence || operation.asks == Asks::kBoolean);
}

Outcome ExpectedOf(const Operation& operation, const Pointer& pointer, BadPointer::Where where) {
    const bool isOutput = IsOutput(pointer.parameter);
    const bool works = where == BadPointer::kOdd || (where == BadPointer::kReadOnly && !isOutput);
    const bool isAtEnd = where == BadPointer::kLastByte || where == BadPointer::kOffTheEnd;
    // Any memory that can be read is used as a value: the contract leaves references unchecked.
    if (works && pointer.parameter == kReference) return Outcome::kNotTried;
    // These are kept or passed on, and nothing is read through them.
    if (pointer.parameter == kObject || pointer.parameter == kDelegate) return Outcome::kGood;
    // A package that serves as a delegate refuses imports before it looks at them.
    if (operation.asks == Asks::kImport) return Outcome::kGood;
    if (works || (isAtEnd && FitsBeforeTheEnd(operation, pointer))) return Outcome::kGood;
    if (operation.asks == Asks::kExport)
        // The delegate gets the output, and that of this test writes to any but null.
        return where == BadPointer::kNull ? Outcome::kGood : Outcome::kEscape;
    if (where == BadPointer::kNull || IsMeasuredBySystem(operation, pointer))
        return Outcome::kRefused;
    return operation.returnsBool ? Outcome::kEscape : Outcome::kFault;
}

/// What the header has these leave in their outputs before anything else: "", false and null.
bool LeavesOutputs(const Operation& operation) {
    return operation.name == "GetValue" || operation.name == "ContainsKey" ||
           operation.name == "GetBytes" || operation.name == "GetJsonBytes";
}

void ExpectOutcome(Outcome expected, const Operation& operation, DWORD fault,
                   const Answer& answer) {
    EXPECT_EQ(expected == Outcome::kEscape ? EXCEPTION_ACCESS_VIOLATION : 0, fault);
    if (fault != 0 || expected == Outcome::kEscape) return;
    EXPECT_EQ(expected == Outcome::kGood, IsGood(operation, answer)) << answer;
    if (expected == Outcome::kFault) {
        EXPECT_EQ(-5, answer.result);
    }
    if (expected != Outcome::kGood && !LeavesOutputs(operation)) {
        EXPECT_EQ(std::vector<std::wstring>(), answer.outputs) << "written by a call that fails";
    }
}

// ---- The sweep ---------------------------------------------------------------------------------

class FaultSweep : public testing::TestWithParam<SpecimenFamily> {};

TEST_P(FaultSweep, WithoutAFaultEveryOperationSucceeds) {
    ForEachGoodCall(GetParam(), [&](const Operation& operation, bool overwrites) {
        SCOPED_TRACE(operation.name);
        const auto specimen = GetParam().make();
        const Arguments arguments = specimen->Good(operation, overwrites);
        const Answer answer = operation.call(specimen->Object(), arguments);
        EXPECT_TRUE(IsGood(operation, answer)) << answer;
        ExpectWhole(*specimen, operation, true, {});
    });
    EXPECT_TRUE(AreFilesClosed());
}

TEST_P(FaultSweep, EveryPointerOfEveryOperation) {
    const BadMemory memory;
    ForEachGoodCall(GetParam(), [&](const Operation& operation, bool overwrites) {
        for (const Pointer& pointer : PointersOf(operation))
            for (const BadPointer& bad : AllBadPointers()) {
                const Outcome expected = ExpectedOf(operation, pointer, bad.where);
                if (expected == Outcome::kNotTried) continue;
                SCOPED_TRACE(operation.name + (overwrites ? ", overwriting, " : ", ") +
                             NameOf(pointer) + " " + bad.name);
                const auto specimen = GetParam().make();
                Arguments arguments = specimen->Good(operation, overwrites);
                Point(arguments, pointer, memory.Address(bad.where, ContentOf(arguments, pointer)));
                const std::wstring before = specimen->Seen();
                Answer answer;
                DWORD fault = 0;
                // What fails fails again.
                for (int times = expected == Outcome::kGood ? 1 : 3; times > 0; --times) {
                    fault =
                        CatchFault([&] { answer = operation.call(specimen->Object(), arguments); });
                    ExpectOutcome(expected, operation, fault, answer);
                }
                const bool succeeded = fault == 0 && IsGood(operation, answer);
                if (succeeded && bad.where == BadPointer::kOdd && IsOutput(pointer.parameter)) {
                    EXPECT_TRUE(memory.WasWritten());
                }
                ExpectWhole(*specimen, operation, succeeded, before);
            }
    });
    EXPECT_TRUE(AreFilesClosed());
}

INSTANTIATE_TEST_SUITE_P(Families, FaultSweep, testing::ValuesIn(kSpecimenFamilies),
                         [](const auto& family) { return std::string(family.param.name); });

}  // namespace
