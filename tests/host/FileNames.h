#pragma once

#include <string>

namespace host {

/// A file name of Windows as one of this system: UTF-8, with slashes. Empty for a name that no file
/// can have.
std::string ToHostName(const wchar_t* name);

/// UTF-8 as UTF-16.
std::wstring FromHostName(const char* name);

}  // namespace host
