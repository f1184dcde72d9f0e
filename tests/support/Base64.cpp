#include "Base64.h"

#include <windows.h>

#include <wincrypt.h>

#include <vector>

namespace support {
namespace {

/// crypt32 is looked up here so that the test program need not be linked with it.
auto Decoder() {
    using Function = decltype(CryptStringToBinaryW);
    static const auto decoder = reinterpret_cast<Function*>(reinterpret_cast<void*>(
        GetProcAddress(LoadLibraryW(L"crypt32.dll"), "CryptStringToBinaryW")));
    return decoder;
}

}  // namespace

std::optional<std::string> PlatformDecode(const wchar_t* text) {
    const auto length = static_cast<DWORD>(lstrlenW(text));
    DWORD size = 0;
    if (!Decoder()(text, length, CRYPT_STRING_BASE64, nullptr, &size, nullptr, nullptr)) return {};
    std::vector<BYTE> bytes(size + 1);
    if (!Decoder()(text, length, CRYPT_STRING_BASE64, bytes.data(), &size, nullptr, nullptr))
        return {};
    return std::string(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
}

std::wstring EncodeBase64(const std::string& bytes) {
    constexpr wchar_t kDigits[] =
        L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::wstring text;
    for (size_t i = 0; i < bytes.size(); i += 3) {
        unsigned group = 0;
        for (size_t k = i; k < i + 3; ++k)
            group = group << 8 | (k < bytes.size() ? static_cast<unsigned char>(bytes[k]) : 0u);
        for (unsigned k = 0; k < 4; ++k) {
            const bool padding = i + k > bytes.size();
            text += padding ? L'=' : kDigits[group >> (18 - 6 * k) & 63];
        }
    }
    return text;
}

}  // namespace support
