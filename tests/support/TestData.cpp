#include "TestData.h"

#include <windows.h>

#include <cstdlib>

#include "TempFile.h"

namespace support {

std::vector<TestDocument> DocumentsIn(const std::wstring& subfolder) {
    const wchar_t* folder = _wgetenv(L"JSON_TEST_DATA");
    if (folder == nullptr) return {};
    const std::wstring path = std::wstring(folder) + L"\\" + subfolder + L"\\";
    WIN32_FIND_DATAW found = {};
    HANDLE search = FindFirstFileW((path + L"*.json").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return {};
    std::vector<TestDocument> documents;
    do {
        const std::wstring name = found.cFileName;
        documents.push_back({name, ReadFileBytes(path + name)});
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return documents;
}

std::string LargeDocument() {
    std::string rows = "{\"rows\":[";
    for (int i = 0; i < 8000; ++i)
        rows += (i == 0 ? "{\"id\":" : ",{\"id\":") + std::to_string(i) + ",\"at\":[-65.61361" +
                std::to_string(i) + "999977,43.4200],\"text\":\"\xE2\x82\xAC \xF0\x9D\x84\x9E\\n" +
                std::string(static_cast<size_t>(i % 50), 'x') + "\",\"on\":[true,null,{}]}";
    return rows + "]}";
}

}  // namespace support
