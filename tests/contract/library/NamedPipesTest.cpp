// Files that give their bytes once and in their order: a named pipe loads as a file with the same
// bytes does. Only what is to be read a second time, in the ANSI code page, keeps its first error.

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <thread>

#include "Encode.h"
#include "FileLoads.h"
#include "TempFile.h"

namespace {

using support::FileLoad;
using support::FileOutcome;
using support::kFileLoads;
using support::TempFile;

/// A named pipe whose reader gets some bytes and then the end.
class NamedPipe {
public:
    explicit NamedPipe(const std::string& content)
        : name(NewName()),
          pipe(CreateNamedPipeW(name.c_str(), PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE, 1, kBuffer, 0,
                                0, nullptr)),
          writer([this, content] { Write(content); }) {}
    ~NamedPipe() {
        // For the writer, where nobody has come to read.
        CloseHandle(CreateFileW(Name(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        writer.join();
    }
    NamedPipe(const NamedPipe&) = delete;
    NamedPipe& operator=(const NamedPipe&) = delete;

    const wchar_t* Name() const { return name.c_str(); }

private:
    static constexpr DWORD kBuffer = 4096;

    static std::wstring NewName() {
        static int count = 0;
        return L"\\\\.\\pipe\\json_dll_test_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
               std::to_wstring(++count);
    }

    void Write(const std::string& content) const {
        ConnectNamedPipe(pipe, nullptr);
        DWORD written = 0;
        WriteFile(pipe, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        FlushFileBuffers(pipe);  // until the reader has it all, or is gone
        CloseHandle(pipe);
    }

    std::wstring name;
    HANDLE pipe;
    std::thread writer;
};

FileOutcome OfPipe(const FileLoad& load, const std::string& bytes) {
    const NamedPipe pipe(bytes);
    return load.load(pipe.Name());
}

FileOutcome OfFile(const FileLoad& load, const std::string& bytes) {
    const TempFile file(bytes);
    return load.load(file.Name());
}

/// Longer than all buffers on the way.
std::wstring Long() {
    std::wstring text = L"{\"a\":[0";
    for (int i = 0; i < 3000; ++i) text += L",\"caf\xE9 \x65E5\xD834\xDD1E\"," + std::to_wstring(i);
    return text + L"]}";
}

const std::wstring kTexts[] = {
    L"{}",
    L"{\"a\":[1,2.5,\"\xE9\x20AC\",{\"b\":null}]}",
    L"[1,2]",
    L"",
    L"  \n ",
    L"12",
    L"{\"a\":[1,}",
    L"{\"a\":\"\xE9",
    L"{\"a\":1} 2",
    L"{\"a\":\"\\uD800\"}",
    Long(),
    Long() + L",",
    Long().substr(0, 5000),
    Long().substr(0, 20000) + L"\x01" + Long(),
};

void ExpectAsFile(const FileLoad& load, const std::string& bytes) {
    EXPECT_EQ(OfFile(load, bytes), OfPipe(load, bytes)) << load.name;
}

/// The parser loads everything; the others, which have less to tell, take turns.
TEST(NamedPipes, LoadAsFilesDo) {
    size_t turn = 0;
    for (const support::Encoding encoding : support::kAllEncodings)
        for (const bool mark : {false, true})
            for (const std::wstring& text : kTexts) {
                SCOPED_TRACE(testing::Message()
                             << NameOf(encoding) << (mark ? " with a mark: " : ": ")
                             << testing::PrintToString(text.substr(0, 40)));
                const std::string bytes = support::Encode(text, encoding, mark);
                ExpectAsFile(kFileLoads[0], bytes);
                ExpectAsFile(kFileLoads[1 + turn++ % 3], bytes);
            }
}

/// The test above would pass as well if neither could be read.
TEST(NamedPipes, LoadWell) {
    for (const support::Encoding encoding : support::kAllEncodings)
        for (const FileLoad& load : kFileLoads)
            EXPECT_EQ(1, OfPipe(load, support::Encode(Long(), encoding)).result);
}

/// A second attempt opens the name again, where nothing is to be had any more.
TEST(NamedPipes, AnsiTextKeepsItsFirstError) {
    const std::string small = "{\"some text and \xE9.\":1}";
    const std::string large = "{\"" + std::string(100'000, 'x') + "\xE9.\":1}";
    for (const FileLoad& load : kFileLoads)
        for (const std::string& bytes : {small, large}) {
            SCOPED_TRACE(load.name);
            EXPECT_EQ(1, OfFile(load, bytes).result);
            const FileOutcome outcome = OfPipe(load, bytes);
            EXPECT_NE(1, outcome.result);
            if (!load.tells) continue;
            EXPECT_EQ(12, outcome.code);
            EXPECT_EQ(bytes.find('\xE9') + 1, outcome.offset);
        }
}

}  // namespace
