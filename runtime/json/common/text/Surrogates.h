#pragma once

namespace QXJSON {

inline bool IsHighSurrogate(wchar_t c) { return (c & 0xFC00) == 0xD800; }
inline bool IsLowSurrogate(wchar_t c) { return (c & 0xFC00) == 0xDC00; }
inline bool IsSurrogate(wchar_t c) { return (c & 0xF800) == 0xD800; }

}  // namespace QXJSON
