#include <dirent.h>
#include <fnmatch.h>

#include <string>

#include "FileNames.h"
#include "WindowsFiles.h"
#include "WindowsHandles.h"

namespace {

struct Search {
    DIR* folder;
    std::string pattern;
};

}  // namespace

HANDLE FindFirstFileW(const wchar_t* pattern, WIN32_FIND_DATAW* found) {
    const std::wstring path = pattern;
    const size_t name = path.find_last_of(L"\\/") + 1;
    DIR* const folder = opendir(host::ToHostName(path.substr(0, name).c_str()).c_str());
    if (!folder) return INVALID_HANDLE_VALUE;
    auto* const search = new Search{
        folder, std::string(path.begin() + static_cast<std::ptrdiff_t>(name), path.end())};
    if (FindNextFileW(search, found)) return search;
    FindClose(search);
    return INVALID_HANDLE_VALUE;
}

BOOL FindNextFileW(HANDLE handle, WIN32_FIND_DATAW* found) {
    const Search& search = *static_cast<Search*>(handle);
    while (const dirent* const entry = readdir(search.folder)) {
        const std::wstring name = host::FromHostName(entry->d_name);
        if (name.size() >= MAX_PATH || fnmatch(search.pattern.c_str(), entry->d_name, 0) != 0)
            continue;
        found->cFileName[name.copy(found->cFileName, name.size())] = 0;
        return TRUE;
    }
    return FALSE;
}

BOOL FindClose(HANDLE handle) {
    auto* const search = static_cast<Search*>(handle);
    closedir(search->folder);
    delete search;
    return TRUE;
}
