#include "Describe.h"

#include <cstdio>
#include <cstring>

#include "OperationTable.h"
#include "Text.h"
#include "calls/Memory.h"

namespace replay {
namespace {

using record::Form;

constexpr size_t kWidth = 60;

/// A number of as many bits as it needs.
std::string NumberText(uint64_t bits, Form form) {
    char text[32];
    if (form == Form::kDouble)
        std::snprintf(text, sizeof text, "%.17g", record::Load<double>(&bits));
    else if (form == Form::kFloat)
        std::snprintf(text, sizeof text, "%.9g", static_cast<double>(record::Load<float>(&bits)));
    else if (form == Form::kUnsigned)
        return std::to_string(bits);
    else
        return std::to_string(bits >> 32 == 0 ? static_cast<int32_t>(bits)
                                              : static_cast<int64_t>(bits));
    return text;
}

/// Whether an output had nothing in it that could be meant: an address, or what a replay puts
/// there.
bool IsNothing(uint64_t left) { return left >> 32 != 0 || left == 0xCDCDCDCD; }

std::string Quoted(const Value& value) {
    const size_t shown = value.count < kWidth ? value.count : kWidth;
    std::wstring units(shown, 0);
    std::memcpy(units.data(), value.data, shown * sizeof(wchar_t));
    for (wchar_t& unit : units)
        if (unit < 0x20 || unit == 0x7F) unit = L' ';
    std::string text = "\"" + tool::ToUtf8(units) + "\"";
    if (value.count > shown) text += "... of " + std::to_string(value.count) + " units";
    if (value.tag == Tag::kTextPart) text += " and nothing readable after it";
    return text;
}

std::string Bytes(const Value& value) {
    std::string text = std::to_string(value.count) + " bytes";
    constexpr uint32_t kShown = 8;
    for (uint32_t i = 0; i < value.count && i < kShown; ++i) {
        char digits[4];
        std::snprintf(digits, sizeof digits, " %02X", value.data[i]);
        text += digits;
    }
    if (value.count > kShown) text += " ...";
    if (value.tag == Tag::kBytesPart) text += " and nothing readable after them";
    return text;
}

std::string Hash(const Value& value, const char* units) {
    char text[80];
    std::snprintf(text, sizeof text, "%u %s with hash %016llX", value.count, units,
                  static_cast<unsigned long long>(value.number));
    return text;
}

/// The next values, of which a parameter has so many.
std::string Take(Values& values, int count, Form form) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        const Value value = values.Next();
        if (value.tag == Tag::kGiven) continue;
        text += (text.empty() ? " " : " with ") + Describe(value, form);
    }
    return text;
}

}  // namespace

std::string Hexadecimal(unsigned long code) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", code);
    return text;
}

std::string NameOf(const RecordHeader& record) {
    const std::string interface = NameOf(record.interface);
    if (record.slot == record::kFactory) return "new " + interface;
    const Operation* const operation = OperationOf(record);
    if (!operation) return interface + " slot " + std::to_string(record.slot);
    return interface + " " + operation->name;
}

std::string Describe(const Value& value, Form form) {
    switch (value.tag) {
        case Tag::kEnd:
            return "nothing";
        case Tag::kNull:
            return "null";
        case Tag::kBad:
            return "a bad pointer";
        case Tag::kReadOnly:
            return "read-only memory";
        case Tag::kNumber:
            return NumberText(value.number, form);
        case Tag::kLeft:
            return IsNothing(value.number) ? "unchanged"
                                           : "still " + NumberText(value.number, form);
        case Tag::kReference:
            return "&" + std::to_string(value.object) + "." + std::to_string(value.number);
        case Tag::kText:
        case Tag::kTextPart:
            return Quoted(value);
        case Tag::kBytes:
        case Tag::kBytesPart:
            return Bytes(value);
        case Tag::kTextHash:
            return Hash(value, "units");
        case Tag::kBytesHash:
            return Hash(value, "bytes");
        case Tag::kNoFile:
            return "no file";
        case Tag::kFolder:
            return "a folder";
        case Tag::kFileSize:
            return std::to_string(value.number) + " bytes";
        case Tag::kNotAFile:
            return "a pipe or device";
        default:
            return "";
    }
}

std::string Answer(const Call& call, Values values) {
    std::string text = Describe(values.Next());
    const Operation* const operation = OperationOf(*call.begin);
    if (!operation) return text;
    for (const Parameter& parameter : operation->parameters)
        if (parameter.after > 0)
            text +=
                std::string(", ") + parameter.name + Take(values, parameter.after, parameter.form);
    return text;
}

std::string Question(const Call& call) {
    const std::string interface = NameOf(call.begin->interface);
    if (call.IsFactory()) return "new " + interface;
    const Operation* const operation = OperationOf(*call.begin);
    if (!operation) return "slot " + std::to_string(call.begin->slot);
    Values values(call.begin);
    std::string text = interface + " " + std::to_string(call.begin->object) + ": ";
    if (call.IsOfDelegate())
        text = interface + " " + Describe(values.Next()) + " of package " +
               std::to_string(call.begin->object) + ": ";
    text += operation->name;
    const char* separator = "(";
    for (const Parameter& parameter : operation->parameters) {
        text += separator + std::string(parameter.name) +
                Take(values, parameter.before, parameter.form);
        separator = ", ";
    }
    return text + (operation->parameters.empty() ? "()" : ")");
}

std::string Line(const Call& call) {
    std::string text = Question(call);
    if (!call.end) return text + " does not return";
    Values values(call.end);
    if (call.Threw())
        return text + " throws " + Hexadecimal(static_cast<unsigned long>(values.Next().number));
    return text + " = " + Answer(call, values);
}

}  // namespace replay
