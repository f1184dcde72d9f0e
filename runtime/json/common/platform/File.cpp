#include "File.h"

#include <windows.h>
// shlwapi.h needs the types of windows.h before it.
#include <shlwapi.h>

#include <cwchar>

#include "FaultGuard.h"
#include "common/text/TextLength.h"

namespace QXJSON {
namespace {

/// Opens a file through the system and closes it again; whether that went well.
bool Opens(const wchar_t* name, DWORD access, DWORD disposition) {
    const HANDLE file = CreateFileW(name, access, FILE_SHARE_READ, nullptr, disposition,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
}

}  // namespace

File OpenFile(const wchar_t* name, const wchar_t* mode) {
    std::FILE* file = nullptr;
    // The C runtime takes a null name for a programming error and may end the process. A name that
    // cannot be read is to fault here and not inside, where a lock of the runtime would stay taken.
    size_t length = 0;
    RethrowFaults([&] { length = name ? std::wcslen(name) : 0; });
    if (length == 0) return nullptr;
    if (_wfopen_s(&file, name, mode) != 0) return nullptr;
    return File(file);
}

bool CanWriteFile(const wchar_t* name) {
    if (LengthOf(name) == 0) return false;
    if (PathFileExistsW(name)) return Opens(name, GENERIC_READ, OPEN_EXISTING);
    if (!Opens(name, GENERIC_WRITE, CREATE_ALWAYS)) return false;
    DeleteFileW(name);
    return true;
}

}  // namespace QXJSON
