#pragma once

#include <cstdint>
#include <ostream>
#include <string>

namespace support {

/// What the load of a file leaves to be seen, in any family. A generator has neither code nor
/// offset.
struct FileOutcome {
    int result = 0;
    int code = 0;
    uint64_t offset = 0;
    std::wstring text = {};
};

bool operator==(const FileOutcome& a, const FileOutcome& b);
std::ostream& operator<<(std::ostream& out, const FileOutcome& outcome);

/// One way in which a file gets into an object: a new object loads the file, and must work on
/// afterwards.
struct FileLoad {
    const char* name;
    FileOutcome (*load)(const wchar_t* fileName);
    bool tells;  ///< has a code and an offset
};

/// The loads of the three families, and a graft.
extern const FileLoad kFileLoads[4];

}  // namespace support
