#pragma once

#include <climits>
#include <string>

#include "ImportPatch.h"
#include "JsonDll.h"

namespace support {

/// The functions of the C runtime that the library reads and writes files with.
enum class FileFunction { kOpen, kRead, kSeek, kTell, kWrite, kClose };

const char* NameOf(FileFunction function);

/// Lets the library's file functions fail on demand, and counts their calls, for the life of the
/// object. There may be only one at a time. Without a request, they work. A read that fails gets
/// half of what was asked for, a write that fails writes half.
class FailingFiles {
public:
    FailingFiles();

    /// Of the calls of one function from now on, the `first`-th (counted from 1) and the
    /// `count - 1` that follow fail. The counts of all begin again.
    void Fail(FileFunction function, int first, int count = INT_MAX);
    /// The same of reads from the `first`-th on, each of which lacks no more than the last item of
    /// those that it found.
    void ReadOneLess(int first);
    /// From now on all work. The counts begin again.
    void Stop();
    /// Whether a call of the function has failed since the last call of Fail.
    bool Happened(FileFunction function) const;
    int Calls(FileFunction function) const;
    /// In which mode a file was opened last.
    const std::wstring& Mode() const;
    /// Where in the file the last read ended that failed.
    size_t Cut() const;

private:
    ImportPatch open, read, seek, tell, write, close;
};

}  // namespace support
