#include "Surrogates.h"

#include "UnitBlocks.h"

namespace QXJSON {
namespace {

/// The first surrogate in [at, end), or the end.
const wchar_t* NextSurrogate(const wchar_t* at, const wchar_t* end) {
    for (; static_cast<size_t>(end - at) >= kBlockUnits; at += kBlockUnits)
        if (const UnitMask found = SurrogatesIn(LoadBlock(at))) return at + FirstUnit(found);
    while (at != end && !IsHighSurrogate(*at) && !IsLowSurrogate(*at)) ++at;
    return at;
}

}  // namespace

size_t WellFormedLength(std::wstring_view text) {
    const wchar_t* const end = text.data() + text.size();
    const wchar_t* at = NextSurrogate(text.data(), end);
    while (at != end && IsHighSurrogate(at[0]) && end - at >= 2 && IsLowSurrogate(at[1]))
        at = NextSurrogate(at + 2, end);
    return static_cast<size_t>(at - text.data());
}

}  // namespace QXJSON
