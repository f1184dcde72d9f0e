#pragma once

#include <string>

namespace tool {

/// Ends a command: what is wrong with the data, in words for its user.
struct Failure {
    std::wstring message;
};

/// Ends the program: what is wrong with the call, or with how the program was installed.
struct Misuse {
    std::wstring message;
};

}  // namespace tool
