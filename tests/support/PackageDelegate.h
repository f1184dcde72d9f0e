#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "JsonDll.h"
#include "Operation.h"

namespace support {

/// A call that reached a delegate: which operation, and all it was given. The object comes first
/// among the arguments.
struct DelegateCall {
    std::string operation;
    std::vector<uint64_t> arguments;
    std::wstring text;  ///< of the import
};

bool operator==(const DelegateCall& a, const DelegateCall& b);
std::ostream& operator<<(std::ostream& out, const DelegateCall& call);

/// A delegate that notes its calls and returns what the test has set.
class RecordingDelegate final : public QXJSON::IJsonPackageDelegate {
public:
    RecordingDelegate() = default;
    /// Exports give this text with success.
    explicit RecordingDelegate(const wchar_t* exported) : text(exported) {}

    int DelegateExport0(void* object, uint16_t a, uint32_t b, uint32_t c, uint32_t d, uint32_t e,
                        uint8_t f, const wchar_t** out) override;
    int DelegateExport1(void* object, uint8_t a, uint8_t b, uint8_t c, uint8_t d, uint8_t e,
                        const wchar_t** out) override;
    int DelegateExport2(void* object, uint16_t a, uint8_t b, uint8_t c,
                        const wchar_t** out) override;
    int DelegateExport3(void* object, uint8_t a, uint8_t b, const wchar_t** out) override;
    int DelegateExport4(void* object, uint8_t a, const wchar_t** out) override;
    int DelegateExport5(void* object, uint32_t a, const wchar_t** out) override;
    int DelegateImport(void* object, const wchar_t* imported, uint8_t a, uint64_t b, uint16_t c,
                       uint32_t d, uint32_t e) override;

    int answer = 1;
    const wchar_t* text = nullptr;
    bool writesText = true;        ///< whether exports touch their output at all
    std::function<void()> during;  ///< runs inside every call, if set

    std::vector<DelegateCall> calls;
    std::vector<const wchar_t**> outputs;    ///< where each export was told to put its text
    std::vector<const wchar_t*> foundThere;  ///< and what was there before

private:
    int Export(DelegateCall call, const wchar_t** out);
};

/// The runtime object of the tests; the library must not read what is at its address.
void* SomeObject();

/// An export as the package offers it twice: to be called itself, and to set a key from. Both pass
/// the same arguments, each with its own value.
struct ExportSlot {
    std::string name;
    DelegateCall call;  ///< what must reach the delegate
    const Operation* forward;
    const Operation* set;

    int Forward(QXJSON::IJsonPackage& package, const wchar_t** text) const;
    int Set(QXJSON::IJsonPackage& package, const wchar_t* key) const;
};

const std::vector<ExportSlot>& ExportSlots();

/// GetValueToDelegate with a value of its own for each argument, and what must reach the delegate.
int ImportFrom(QXJSON::IJsonPackage& package, const wchar_t* key);
DelegateCall ImportCall(const std::wstring& text);

/// One way in which JSON text can become the value of a key: SetValue, or a delegate's export.
struct JsonRoute {
    std::string name;
    std::function<int(QXJSON::IJsonPackage&, const wchar_t* key, const wchar_t* json)> set;
};

const std::vector<JsonRoute>& JsonRoutes();

}  // namespace support
