#include "FailingFiles.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <iterator>

namespace support {
namespace {

constexpr const char* kNames[] = {"open", "read", "seek", "tell", "write", "close"};
constexpr size_t kFunctions = std::size(kNames);

struct State {
    int calls[kFunctions] = {};
    int first[kFunctions] = {};  // the first call that fails, from 1; 0: none
    int count = 0;               // how many calls in a row fail
    bool lacksOne = false;       // reads that fail lack one item, not half
    std::wstring mode;
    size_t cut = 0;
};
State g_state;

size_t IndexOf(FileFunction function) { return static_cast<size_t>(function); }

bool FailsNow(FileFunction function) {
    const int call = ++g_state.calls[IndexOf(function)];
    const int first = g_state.first[IndexOf(function)];
    return first > 0 && call >= first && call - first < g_state.count;
}

errno_t Open(std::FILE** file, const wchar_t* name, const wchar_t* mode) {
    g_state.mode = mode;
    if (!FailsNow(FileFunction::kOpen)) return _wfopen_s(file, name, mode);
    *file = nullptr;
    return EACCES;
}

size_t Read(void* buffer, size_t size, size_t count, std::FILE* file) {
    if (!FailsNow(FileFunction::kRead)) return std::fread(buffer, size, count, file);
    if (g_state.lacksOne) {
        const size_t found = std::fread(buffer, size, count, file);
        return found > 0 ? found - 1 : 0;
    }
    const size_t read = std::fread(buffer, size, count / 2, file);
    g_state.cut = static_cast<size_t>(std::ftell(file));
    return read;
}

int Seek(std::FILE* file, long offset, int origin) {
    return FailsNow(FileFunction::kSeek) ? -1 : std::fseek(file, offset, origin);
}

long Tell(std::FILE* file) { return FailsNow(FileFunction::kTell) ? -1 : std::ftell(file); }

size_t Write(const void* data, size_t size, size_t count, std::FILE* file) {
    return std::fwrite(data, size, FailsNow(FileFunction::kWrite) ? count / 2 : count, file);
}

int Close(std::FILE* file) {
    const int result = std::fclose(file);
    return FailsNow(FileFunction::kClose) ? EOF : result;
}

}  // namespace

const char* NameOf(FileFunction function) { return kNames[IndexOf(function)]; }

FailingFiles::FailingFiles()
    : open(JsonDll(), "_wfopen_s", &Open),
      read(JsonDll(), "fread", &Read),
      seek(JsonDll(), "fseek", &Seek),
      tell(JsonDll(), "ftell", &Tell),
      write(JsonDll(), "fwrite", &Write),
      close(JsonDll(), "fclose", &Close) {
    for (const ImportPatch* patch : {&open, &read, &seek, &tell, &write, &close})
        EXPECT_TRUE(patch->Found());
    Stop();
}

void FailingFiles::Fail(FileFunction function, int first, int count) {
    Stop();
    g_state.first[IndexOf(function)] = first;
    g_state.count = count;
}

void FailingFiles::ReadOneLess(int first) {
    Fail(FileFunction::kRead, first);
    g_state.lacksOne = true;
}

void FailingFiles::Stop() { g_state = State(); }

bool FailingFiles::Happened(FileFunction function) const {
    const int first = g_state.first[IndexOf(function)];
    return first > 0 && g_state.calls[IndexOf(function)] >= first;
}

int FailingFiles::Calls(FileFunction function) const { return g_state.calls[IndexOf(function)]; }

const std::wstring& FailingFiles::Mode() const { return g_state.mode; }

size_t FailingFiles::Cut() const { return g_state.cut; }

}  // namespace support
