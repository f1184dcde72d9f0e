#pragma once

#include <cstdio>
#include <memory>

namespace QXJSON {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// An open file of the C runtime, closed at the end of its life.
using File = std::unique_ptr<std::FILE, FileCloser>;

/// Opens a file; null when the name is null or the file does not open.
File OpenFile(const wchar_t* name, const wchar_t* mode);

/// Whether a file of that name can be used as the target of an output; not for a name that is null,
/// empty or not readable up to its end. An existing file must open for reading (it is not tried for
/// writing); where none exists, one must be creatable, and is deleted again.
bool CanWriteFile(const wchar_t* name);

}  // namespace QXJSON
