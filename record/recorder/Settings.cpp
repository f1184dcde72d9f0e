#include "Settings.h"

#include <cwchar>
#include <cwctype>

namespace record {
namespace {

constexpr uint64_t kMiB = 1 << 20;
constexpr uint64_t kLeastLimit = 2;  // MiB
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
        const uint64_t number = std::wcstoull(Get(variable, key).c_str(), nullptr, 10);
        return number > 0 ? number : otherwise;
    }

private:
    std::wstring ini;
};

bool IsAbsolute(const std::wstring& name) {
    return name.size() > 1 && (name[1] == L':' || name[0] == L'\\' || name[0] == L'/');
}

std::wstring WithProcess(std::wstring name) {
    const size_t at = name.find(L"%p");
    if (at != name.npos) name.replace(at, 2, std::to_wstring(GetCurrentProcessId()));
    return name;
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
    settings.log = source.Get(L"JSON_RECORD_LOG", L"log");
    if (settings.log.empty()) {
        settings.log = TextFrom([](wchar_t* to, DWORD room) { return GetTempPathW(room, to); }) +
                       L"Json_Dll-%p.jsonlog";
    }
    if (!IsAbsolute(settings.log)) settings.log = folder + settings.log;
    settings.log = WithProcess(settings.log);
    settings.limit = source.GetMiB(L"JSON_RECORD_LIMIT", L"limit", 1024);
    if (settings.limit < kLeastLimit) settings.limit = kLeastLimit;
    settings.limit *= kMiB;
    settings.fileLimit = source.GetMiB(L"JSON_RECORD_FILES", L"files", 16);
    if (settings.fileLimit > kMostOfAFile) settings.fileLimit = kMostOfAFile;
    settings.fileLimit *= kMiB;
    settings.hashed = source.Get(L"JSON_RECORD_TEXTS", L"texts") == L"hashed";
    return settings;
}

}  // namespace record
