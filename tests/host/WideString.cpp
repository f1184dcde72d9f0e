// std::wstring with units of 16 bits. The C++ runtime library holds the one with 32 under the same
// names, and the headers leave it to the library.

#include <string>

template class std::basic_string<wchar_t>;
