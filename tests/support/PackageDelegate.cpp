#include "PackageDelegate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "PackageOperationList.h"

namespace support {
namespace {

using QXJSON::IJsonPackage;
using QXJSON::IJsonPackageDelegate;

uint64_t Number(const void* object) { return reinterpret_cast<uintptr_t>(object); }

auto Parts(const DelegateCall& call) { return std::tie(call.operation, call.arguments, call.text); }

}  // namespace

bool operator==(const DelegateCall& a, const DelegateCall& b) { return Parts(a) == Parts(b); }

std::ostream& operator<<(std::ostream& out, const DelegateCall& call) {
    return out << call.operation << testing::PrintToString(call.arguments) << ' '
               << testing::PrintToString(call.text);
}

int RecordingDelegate::Export(DelegateCall call, const wchar_t** out) {
    calls.push_back(std::move(call));
    outputs.push_back(out);
    foundThere.push_back(out == nullptr ? nullptr : *out);
    if (during) during();
    if (writesText && out != nullptr) *out = text;
    return answer;
}

int RecordingDelegate::DelegateExport0(void* object, uint16_t a, uint32_t b, uint32_t c, uint32_t d,
                                       uint32_t e, uint8_t f, const wchar_t** out) {
    return Export({"DelegateExport0", {Number(object), a, b, c, d, e, f}, L""}, out);
}

int RecordingDelegate::DelegateExport1(void* object, uint8_t a, uint8_t b, uint8_t c, uint8_t d,
                                       uint8_t e, const wchar_t** out) {
    return Export({"DelegateExport1", {Number(object), a, b, c, d, e}, L""}, out);
}

int RecordingDelegate::DelegateExport2(void* object, uint16_t a, uint8_t b, uint8_t c,
                                       const wchar_t** out) {
    return Export({"DelegateExport2", {Number(object), a, b, c}, L""}, out);
}

int RecordingDelegate::DelegateExport3(void* object, uint8_t a, uint8_t b, const wchar_t** out) {
    return Export({"DelegateExport3", {Number(object), a, b}, L""}, out);
}

int RecordingDelegate::DelegateExport4(void* object, uint8_t a, const wchar_t** out) {
    return Export({"DelegateExport4", {Number(object), a}, L""}, out);
}

int RecordingDelegate::DelegateExport5(void* object, uint32_t a, const wchar_t** out) {
    return Export({"DelegateExport5", {Number(object), a}, L""}, out);
}

int RecordingDelegate::DelegateImport(void* object, const wchar_t* imported, uint8_t a, uint64_t b,
                                      uint16_t c, uint32_t d, uint32_t e) {
    calls.push_back({"DelegateImport", {Number(object), a, b, c, d, e}, imported});
    if (during) during();
    return answer;
}

void* SomeObject() { return reinterpret_cast<void*>(uintptr_t{0x8123456789ABCDEF}); }

namespace {

/// Arguments of the calls below: a value of its own for each that is passed on. Like the calls, it
/// owns nothing that an exception of the delegate could lose.
Arguments Passing(const DelegateCall& call) {
    Arguments arguments;
    arguments.object = SomeObject();
    std::copy(call.arguments.begin() + 1, call.arguments.end(), arguments.passedOn);
    return arguments;
}

}  // namespace

int ExportSlot::Forward(IJsonPackage& package, const wchar_t** text) const {
    Arguments arguments = Passing(call);
    arguments.outputs[0] = reinterpret_cast<uintptr_t>(text);
    return forward->call(package, arguments).result;
}

int ExportSlot::Set(IJsonPackage& package, const wchar_t* key) const {
    Arguments arguments = Passing(call);
    arguments.key = key;
    return set->call(package, arguments).result;
}

const std::vector<ExportSlot>& ExportSlots() {
    static const std::vector<ExportSlot> slots = [] {
        const std::vector<uint64_t> passedOn[] = {
            {0xFEDC, 0x89ABCDE1, 0x10000002, 0xFFFFFFF3, 0x80000004, 0xF5},
            {0xF1, 0x02, 0x83, 0x74, 0xE5},
            {0x8001, 0xF2, 0x73},
            {0xF1, 0x82},
            {0xF1},
            {0xF1234567},
        };
        std::vector<ExportSlot> all;
        for (const auto& numbers : passedOn) {
            const std::string name = std::to_string(all.size());
            DelegateCall call = {"DelegateExport" + name, {Number(SomeObject())}, L""};
            call.arguments.insert(call.arguments.end(), numbers.begin(), numbers.end());
            all.push_back({name, call, &PackageOperation(call.operation),
                           &PackageOperation("SetValueFromDelegate" + name)});
        }
        return all;
    }();
    return slots;
}

int ImportFrom(IJsonPackage& package, const wchar_t* key) {
    static const DelegateCall call = ImportCall(L"");
    static const Operation& operation = PackageOperation("GetValueToDelegate");
    Arguments arguments = Passing(call);
    arguments.key = key;
    return operation.call(package, arguments).result;
}

DelegateCall ImportCall(const std::wstring& text) {
    return {"DelegateImport",
            {Number(SomeObject()), 0xF1, 0xFEDCBA9876543210, 0xFFF2, 0xFFFFFFF3, 0x80000004},
            text};
}

const std::vector<JsonRoute>& JsonRoutes() {
    static const std::vector<JsonRoute> routes = [] {
        std::vector<JsonRoute> all = {
            {"SetValue", [](IJsonPackage& package, const wchar_t* key, const wchar_t* json) {
                 return package.SetValue(key, json, true);
             }}};
        for (const ExportSlot& slot : ExportSlots())
            all.push_back({"delegate " + slot.name,
                           [&slot](IJsonPackage& package, const wchar_t* key, const wchar_t* json) {
                               RecordingDelegate delegate(json);
                               EXPECT_EQ(1, package.SetDelegate(&delegate));
                               const int result = slot.Set(package, key);
                               EXPECT_EQ(1, package.SetDelegate(nullptr));
                               return result;
                           }});
        return all;
    }();
    return routes;
}

}  // namespace support
