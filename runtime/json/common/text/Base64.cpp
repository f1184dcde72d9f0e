#include "Base64.h"

#include <windows.h>
// wincrypt.h needs the types of windows.h before it.
#include <wincrypt.h>

#include "common/ResultCodes.h"
#include "common/values/Outputs.h"

namespace QXJSON {

int DecodeBase64(MessageBuffer& buffer, const wchar_t* text, const uint8_t** data, uint32_t* size) {
    if (!text || !data || !size) return kPlainFailure;
    const DWORD length = static_cast<DWORD>(lstrlenW(text));
    const auto decode = [&](BYTE* into, DWORD* count) {
        return CryptStringToBinaryW(text, length, CRYPT_STRING_BASE64, into, count, nullptr,
                                    nullptr) != FALSE;
    };
    DWORD count = 0;
    if (!decode(nullptr, &count) || !buffer.Reserve(count)) return kWrongKind;
    if (!decode(static_cast<BYTE*>(buffer.Area()), &count)) return kWrongKind;
    EnsureWritable(data);
    EnsureWritable(size);
    *data = static_cast<const uint8_t*>(buffer.Area());
    *size = count;
    return kSuccess;
}

/// How many units the base64 text of so many bytes has, with its zero.
constexpr uint64_t UnitsFor(uint32_t size) { return (uint64_t{size} + 2) / 3 * 4 + 1; }

int EncodeBase64(MessageBuffer& buffer, const uint8_t* data, uint32_t size, const wchar_t** text) {
    if (!data || !text) return kPlainFailure;
    const auto encode = [&](wchar_t* into, DWORD* count) {
        return CryptBinaryToStringW(data, size, CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF, into,
                                    count) != FALSE;
    };
    constexpr DWORD kMostUnits = UINT32_MAX / sizeof(wchar_t);
    if (UnitsFor(size) > kMostUnits) return kWrongKind;
    // The system counts in 32 bits. Wine's count wraps from 2^28 bytes on, and it would write, and
    // report as a success, no more than it has counted.
    DWORD count = 0;
    if (!encode(nullptr, &count) || count < UnitsFor(size) || count > kMostUnits) return kWrongKind;
    if (!buffer.Reserve(count * static_cast<DWORD>(sizeof(wchar_t)))) return kWrongKind;
    if (!encode(static_cast<wchar_t*>(buffer.Area()), &count)) return kWrongKind;
    *text = static_cast<const wchar_t*>(buffer.Area());
    return kSuccess;
}

}  // namespace QXJSON
