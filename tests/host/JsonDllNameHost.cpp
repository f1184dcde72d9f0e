// The module under test in the host build: the one beside the program.
#include "JsonDll.h"

namespace support {

std::wstring JsonDllName() { return L"Json_Dll.dll"; }

}  // namespace support
