// jsontool: inspects, checks and changes JSON documents from the command line.

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <exception>
#include <vector>

#include "Command.h"
#include "Failure.h"
#include "Progress.h"
#include "Text.h"

// Arguments are taken as they are: MinGW's start-up code must not expand wildcards.
extern "C" {
int _dowildcard = 0;
}

namespace {

using namespace tool;

/// Makes a console show UTF-8 while the program runs, and leaves it as it was.
class ConsoleInUtf8 {
public:
    ConsoleInUtf8()
        : codePage(GetConsoleOutputCP()), isConsole(GetConsoleMode(Output(), &mode) != 0) {
        SetConsoleOutputCP(CP_UTF8);
    }
    ~ConsoleInUtf8() {
        SetConsoleOutputCP(codePage);
        if (isConsole) SetConsoleMode(Output(), mode);
    }
    ConsoleInUtf8(const ConsoleInUtf8&) = delete;
    ConsoleInUtf8& operator=(const ConsoleInUtf8&) = delete;

private:
    static HANDLE Output() { return GetStdHandle(STD_OUTPUT_HANDLE); }

    UINT codePage;
    DWORD mode = 0;
    bool isConsole;
};

void Complain(const std::string& message) {
    ClearProgress();
    std::fflush(stdout);
    std::fprintf(stderr, "jsontool: %s\n", message.c_str());
}

/// The arguments without the program's name.
std::vector<std::string> Arguments(int count, wchar_t** arguments) {
    std::vector<std::string> inUtf8;
    for (int i = 1; i < count; ++i) inUtf8.push_back(ToUtf8(arguments[i]));
    return inUtf8;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    // A console gets whole characters, not the bytes of one in pieces.
    std::setvbuf(stdout, nullptr, _IOFBF, 64 * 1024);
    const ConsoleInUtf8 console;
    try {
        return RunProgram(Arguments(count, arguments));
    } catch (const Misuse& misuse) {
        Complain(ToUtf8(misuse.message));
        return kMisuse;
    } catch (const Failure& failure) {
        Complain(ToUtf8(failure.message));
    } catch (const std::exception& failure) {
        Complain(failure.what());
    }
    return kBad;
}
