#include "Settings.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

namespace record {
namespace {

constexpr uint64_t kMiB = 1 << 20;
constexpr uint64_t kLeastLimit = 2;  // MiB
constexpr uint64_t kMostLimit = uint64_t{1} << 32;
/// The length of a file's content is a number of 32 bits in a log.
constexpr uint64_t kMostOfAFile = 2048;

/// What a function of Windows writes that is given room and returns the length, or the room that it
/// wants.
template <class Fill>
std::wstring TextFrom(Fill fill) {
    std::wstring text(MAX_PATH, 0);
    for (;;) {
        const DWORD length = fill(text.data(), static_cast<DWORD>(text.size()));
        // Of an INI file, one less than the room is all that is said of too little.
        if (length + 1 < text.size()) return text.substr(0, length);
        text.resize(2 * text.size());
    }
}

class Source {
public:
    explicit Source(std::wstring ini) : ini(std::move(ini)) {}

    /// A setting; empty where it is not made.
    std::wstring Get(const wchar_t* variable, const wchar_t* key) const {
        const std::wstring set = TextFrom(
            [=](wchar_t* to, DWORD room) { return GetEnvironmentVariableW(variable, to, room); });
        if (!set.empty()) return set;
        return TextFrom([&](wchar_t* to, DWORD room) {
            return GetPrivateProfileStringW(L"record", key, L"", to, room, ini.c_str());
        });
    }
    uint64_t GetMiB(const wchar_t* variable, const wchar_t* key, uint64_t otherwise) const {
        const std::wstring text = Get(variable, key);
        wchar_t* end = nullptr;
        const uint64_t number = std::wcstoull(text.c_str(), &end, 10);
        return end != text.c_str() ? number : otherwise;
    }

private:
    std::wstring ini;
};

bool IsAbsolute(const std::wstring& name) {
    return name.size() > 1 && (name[1] == L':' || name[0] == L'\\' || name[0] == L'/');
}

std::wstring WithProcess(std::wstring name) {
    const std::wstring process = std::to_wstring(GetCurrentProcessId());
    for (size_t at = name.find(L"%p"); at != name.npos; at = name.find(L"%p", at))
        name.replace(at, 2, process);
    return name;
}

/// The name of the log. What stands for the process in it is not looked for in folders that the
/// setting does not name.
std::wstring LogName(const Source& source, const std::wstring& folder) {
    const std::wstring set = WithProcess(source.Get(L"JSON_RECORD_LOG", L"log"));
    if (!set.empty()) return IsAbsolute(set) ? set : folder + set;
    return TextFrom([](wchar_t* to, DWORD room) { return GetTempPathW(room, to); }) +
           WithProcess(L"Json_Dll-%p.jsonlog");
}

}  // namespace

Settings ReadSettings(HMODULE recorder) {
    const std::wstring file =
        TextFrom([=](wchar_t* to, DWORD room) { return GetModuleFileNameW(recorder, to, room); });
    const std::wstring folder = file.substr(0, file.find_last_of(L"\\/") + 1);
    const Source source(folder + L"Json_Dll_Record.ini");

    Settings settings;
    settings.library = source.Get(L"JSON_RECORD_LIBRARY", L"library");
    if (settings.library.empty()) settings.library = L"Json_Dll_Real.dll";
    if (!IsAbsolute(settings.library)) settings.library = folder + settings.library;
    settings.log = LogName(source, folder);
    const uint64_t limit = source.GetMiB(L"JSON_RECORD_LIMIT", L"limit", 1024);
    settings.limit = std::clamp(limit, kLeastLimit, kMostLimit) * kMiB;
    const uint64_t ofAFile = source.GetMiB(L"JSON_RECORD_FILES", L"files", 16);
    settings.fileLimit = std::min(ofAFile, kMostOfAFile) * kMiB;
    settings.hashed = source.Get(L"JSON_RECORD_TEXTS", L"texts") == L"hashed";
    return settings;
}

}  // namespace record
