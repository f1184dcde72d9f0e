// A build of the library that differs in twenty operations, in every way in which an answer can:
// its test is whether a replay finds them. It passes every call on to the real library, which the
// environment variable JSON_PLANTED_LIBRARY names, and changes some answers on their way back; all
// of them, or the one whose number JSON_PLANTED names.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include "Operations.h"

namespace {

using namespace record::operations;

/// Whether the difference of this number is asked for.
bool IsPlanted(int number) {
    const wchar_t* const only = _wgetenv(L"JSON_PLANTED");
    return !only || _wtoi(only) == number;
}

/// An operation, to choose its change by.
template <class Operation>
struct Of {};

// ---- The differences ---------------------------------------------------------------------------
// Each gets the result and the arguments of a call after it, and changes what it likes.

/// No difference.
template <class Operation, class Result, class... Arguments>
void Change(Of<Operation>, Result&, Arguments...) {}

// Results.
void Change(Of<ParserHasError>, int& result) {
    if (IsPlanted(1)) result = 1 - result;
}
void Change(Of<ParserExistsItemByPath>, bool& result, const wchar_t*) {
    if (IsPlanted(2)) result = !result;
}
void Change(Of<PackageRemoveKey>, int& result, const wchar_t*) {
    if (IsPlanted(3) && result == 1) result = 0;
}
void Change(Of<GeneratorAddObjectItemNull>, int& result, int32_t, const wchar_t*, uint32_t*) {
    if (IsPlanted(4) && result == -3) result = -2;
}
void Change(Of<PackageGetIgnoreCase>, int& result, uint32_t*) {
    if (IsPlanted(5)) RaiseException(EXCEPTION_INT_DIVIDE_BY_ZERO, 0, 0, nullptr);
    (void)result;
}

// Numbers.
void Change(Of<ParserGetItemInt>, int& result, uint32_t, int32_t* number) {
    if (IsPlanted(6) && result == 1) ++*number;
}
void Change(Of<ParserGetItemDoubleByPath>, int& result, const wchar_t*, double* number) {
    if (IsPlanted(7) && result == 1) *number += *number * 1e-15 + 1e-15;
}
void Change(Of<PackageGetKeyCount>, int& result, uint32_t* count) {
    if (IsPlanted(8) && result == 1) ++*count;
}
void Change(Of<PackageContainsKey>, int& result, const wchar_t*, bool* found) {
    if (IsPlanted(9) && result == 1) *found = !*found;
}
/// Written, although the call fails.
void Change(Of<ParserGetItemFloat>, int& result, uint32_t, float* number) {
    if (IsPlanted(10) && result == -3 && number) *number = 4;
}

// Texts and bytes.
void Change(Of<ParserGetItemString>, int& result, uint32_t, const wchar_t** text) {
    if (IsPlanted(11) && result == 1) *text = L"another";
}
void Change(Of<GeneratorGetJsonString>, int& result, const wchar_t** text) {
    if (IsPlanted(12) && result == 1) ++*text;
}
void Change(Of<GeneratorGetItemPath>, int& result, int32_t, wchar_t* path) {
    if (IsPlanted(13) && result == 1) path[0] = L'\\';
}
void Change(Of<GeneratorGetJsonBytes>, int& result, const uint8_t**, uint64_t* length, int32_t) {
    if (IsPlanted(14) && result == 1) --*length;
}
void Change(Of<ParserGetItemVariant>, int& result, uint32_t, const wchar_t*,
            QXJSON::JsonVariant* variant) {
    if (IsPlanted(15) && result == 1 && variant->tag == QXJSON::kVariantInt64) ++variant->number;
}

// Handles and references.
void Change(Of<ParserGetRootItem>, int& result, uint32_t* handle, uint32_t*) {
    if (IsPlanted(16) && result == 1) ++*handle;
}
/// Another one every time, for the same value.
void Change(Of<ParserGetRootValue>, int& result, uint64_t* value, uint32_t*) {
    static uint64_t offset = 0;
    if (IsPlanted(17) && result == 1) *value += 16 * ++offset;
}

// Order, and what a delegate is called with, in Arguments below: 18 and 19.

// Files.
void Change(Of<GeneratorSaveToFile>, int& result, const wchar_t* name, int32_t) {
    std::FILE* const file = IsPlanted(20) && result == 1 ? _wfopen(name, L"ab") : nullptr;
    if (!file) return;
    std::fputc(' ', file);
    std::fclose(file);
}

// ---- What is asked of the library --------------------------------------------------------------

template <class Operation, class... Arguments>
void Ask(Of<Operation>, Arguments&...) {}
/// The first two keys in the other order.
void Ask(Of<PackageGetKeyName>, uint32_t& index, const wchar_t**&) {
    if (IsPlanted(18) && index < 2) index = 1 - index;
}
void Ask(Of<PackageGetValueToDelegate>, const wchar_t*&, void*&, uint8_t& a, uint64_t&, uint16_t&,
         uint32_t&, uint32_t&) {
    if (IsPlanted(19)) ++a;
}

// ---- The layer ---------------------------------------------------------------------------------

template <class Interface, template <class> class Calls>
class Planted final : public Calls<Planted<Interface, Calls>> {
public:
    explicit Planted(Interface* real) : real(real) {}

    template <class Operation, class... Arguments>
    auto Pass(Arguments... arguments) {
        Ask(Of<Operation>(), arguments...);
        auto result = (real->*Operation::kFunction)(arguments...);
        Change(Of<Operation>(), result, arguments...);
        if constexpr (Operation::kEnds) delete this;
        return result;
    }
    QXJSON::IJsonPackageDelegate* Passed(QXJSON::IJsonPackageDelegate* host) { return host; }

private:
    Interface* const real;
};

template <class Interface, template <class> class Calls>
Interface* New(const char* factory) {
    const HMODULE library = LoadLibraryW(_wgetenv(L"JSON_PLANTED_LIBRARY"));
    const auto create = reinterpret_cast<Interface* (*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, factory)));
    return new Planted<Interface, Calls>(create());
}

}  // namespace

QXJSON::IJsonParser* CreateJsonParser() {
    return New<QXJSON::IJsonParser, record::ParserCalls>(__func__);
}

QXJSON::IJsonGenerator* CreateJsonGenerator() {
    return New<QXJSON::IJsonGenerator, record::GeneratorCalls>(__func__);
}

QXJSON::IJsonPackage* CreateJsonPackageInterface() {
    return New<QXJSON::IJsonPackage, record::PackageCalls>(__func__);
}
