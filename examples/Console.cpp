#include "Console.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace host {

void Print(const wchar_t* format, ...) {
    wchar_t text[2048];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vswprintf(text, std::size(text), format, arguments);
    va_end(arguments);
    if (length < 0) return;
    char bytes[3 * std::size(text)];
    const int count =
        WideCharToMultiByte(CP_UTF8, 0, text, length, bytes, sizeof bytes, nullptr, nullptr);
    std::fwrite(bytes, 1, static_cast<size_t>(count), stdout);
}

std::wstring Quoted(const std::wstring& text) {
    constexpr size_t kLongest = 60;
    std::wstring line = L"\"";
    for (const wchar_t c : text.substr(0, kLongest)) line += c < L' ' ? L' ' : c;
    return line + (text.size() > kLongest ? L"...\"" : L"\"");
}

std::wstring TemporaryName(const std::wstring& name) {
    return (std::filesystem::temp_directory_path() / name).wstring();
}

std::string ReadBytes(const std::wstring& name) {
    std::ifstream file(std::filesystem::path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace host
