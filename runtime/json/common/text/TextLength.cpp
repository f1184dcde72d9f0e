#include "TextLength.h"

#include "UnitBlocks.h"
#include "common/platform/FaultGuard.h"

namespace QXJSON {
namespace {

/// Units that are zero.
UnitMask Zeros(UnitBlock units) { return MaskOf(EqualTo(units, 0)); }

/// For text at an odd address, where no unit may be read as one, and text so near to null that its
/// block would begin there.
size_t CountOneByOne(const wchar_t* text) {
    const auto* const bytes = reinterpret_cast<const char*>(text);
    size_t at = 0;
    while (bytes[at] != 0 || bytes[at + 1] != 0) at += sizeof(wchar_t);
    return at / sizeof(wchar_t);
}

}  // namespace

size_t CountUnits(const wchar_t* text) {
    if (!IsAligned(text) || reinterpret_cast<uintptr_t>(text) < kBlockBytes)
        return CountOneByOne(text);
    return static_cast<size_t>(FindUnit(text, Zeros) - text);
}

size_t LengthOf(const wchar_t* text) {
    size_t length = 0;
    if (!text) return length;
    RunsWithoutFault([&] { length = CountUnits(text); });
    return length;
}

}  // namespace QXJSON
