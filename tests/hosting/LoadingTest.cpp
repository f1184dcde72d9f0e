// Loading, and what is known when it fails.

#include "Host.h"
#include "TempFile.h"

namespace hosts {
namespace {

using support::TempFile;

/// One load by each of a parser's ways; all of them start from the same UTF-8 text.
struct Route {
    const char* name;
    Result<void> (*load)(const Parser&, const std::string& text);
    unsigned unit;  ///< how many bytes of the input a character of ASCII takes
};

const Route kRoutes[] = {
    {"text",
     [](const Parser& parser, const std::string& text) {
         return parser.Load(std::wstring(text.begin(), text.end()));
     },
     2},
    {"bytes",
     [](const Parser& parser, const std::string& text) {
         return parser.LoadBytes(text.data(), text.size());
     },
     1},
    {"file",
     [](const Parser& parser, const std::string& text) {
         return parser.LoadFile(TempFile(text).Name());
     },
     1},
};

TEST(HostLoading, FailuresWithOffsetAndMessage) {
    struct Row {
        const char* text;
        int code;
        uint64_t offset;  ///< in characters
        const wchar_t* message;
    };
    const Row rows[] = {
        {"{\"a\": [1, 2]}", 1, 0, L"No error."},
        {"[1, 2,]", 0, 7, L"Invalid value."},
        {"{\"a\" 1}", 0, 6, L"Missing a colon after a name of object member."},
        {"[1] [2]", 0, 5, L"The root must not be followed by other values."},
        {"12345", 0, 0, L"Invalid value."},
    };
    for (const Route& route : kRoutes)
        for (const Row& row : rows) {
            SCOPED_TRACE(std::string(route.name) + ": " + row.text);
            const Parser parser = NewParser();
            const Result<void> result = route.load(parser, row.text);
            EXPECT_EQ(row.code, result.Code());
            EXPECT_EQ(row.code == 1, static_cast<bool>(result));
            EXPECT_EQ(row.offset * route.unit, parser.Failure().offset);
            EXPECT_EQ(row.message, parser.Failure().message);
            if (!result) {
                EXPECT_THROW(result.Get(), Error);
                EXPECT_EQ(0, parser.Root().Code());
                EXPECT_EQ(0, parser.RootValue().Code());
            }
        }
}

TEST(HostLoading, NothingToLoad) {
    const Parser parser = NewParser();
    EXPECT_EQ(0, parser.Load(nullptr).Code());
    EXPECT_EQ(L"The pointer to the json text is null.", parser.Failure().message);
    EXPECT_EQ(0, parser.LoadBytes(nullptr, 0).Code());
    EXPECT_EQ(L"The pointer to the json text is null.", parser.Failure().message);
    EXPECT_EQ(0, parser.LoadFile(nullptr).Code());
    EXPECT_EQ(L"The pointer to the file name is null.", parser.Failure().message);
    EXPECT_EQ(0, parser.LoadFile(L"no such file.json").Code());
    EXPECT_EQ(L"The file name does not exist.", parser.Failure().message);
    EXPECT_EQ(0, parser.Load(L"").Code());
    EXPECT_EQ(L"The string is empty.", parser.Failure().message);
}

TEST(HostLoading, MoreBytesThanAnOperationTakesAreRefusedUnseen) {
    const Parser parser = Loaded(L"[1]");
    EXPECT_EQ(0, parser.LoadBytes("[]", size_t{UINT32_MAX} + 3).Code());
    EXPECT_EQ(1u, parser.Root().Get().Count().Get());
}

TEST(HostLoading, EveryEncodingOfInput) {
    using namespace std::string_literals;
    const std::string inputs[] = {
        "[\"\xC3\xA9\"]",
        "\xEF\xBB\xBF[\"\xC3\xA9\"]",
        "[\0\"\0\xE9\0\"\0]\0"s,
        "\xFE\xFF\0[\0\"\0\xE9\0\"\0]"s,
        "[\"\xE9\"]",
    };
    for (const std::string& input : inputs) {
        SCOPED_TRACE(testing::PrintToString(input));
        const Parser parser = NewParser();
        ASSERT_TRUE(parser.LoadBytes(input.data(), input.size()));
        EXPECT_EQ(L"\u00E9", parser.As<std::wstring_view>(L"/1").Get());
    }
}

/// Behind the prefix a file may have the name of a device; without it a load would wait for what
/// the device sends.
TEST(HostLoading, FilesWithNamesOfDevices) {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    for (const wchar_t* device : {L"AUX", L"com1.json", L"NUL"}) {
        const std::wstring name = std::wstring(L"\\\\?\\") + folder + device;
        const Generator generator = NewGenerator();
        generator.Load(L"[1]").Get();
        EXPECT_TRUE(generator.Save(name, Encoding::kUtf8)) << testing::PrintToString(device);
        EXPECT_TRUE(NewParser().LoadFile(name)) << testing::PrintToString(device);
        EXPECT_TRUE(DeleteFileW(name.c_str()));
    }
}

TEST(HostLoading, GeneratorsSayNoMoreThanTheirCodes) {
    const Generator generator = NewGenerator();
    EXPECT_EQ(1u, generator.Load(L"{\"a\":[]}").Get().Raw());
    EXPECT_EQ(0, generator.Load(L"{\"a\":").Code());
    EXPECT_EQ(-3, generator.Load(L"5").Code());
    EXPECT_EQ(-3, generator.LoadFile(L"no such file.json").Code());
    const TempFile file("[true]");
    EXPECT_EQ(1u, generator.LoadFile(file.Name()).Get().Raw());
    EXPECT_EQ(L"[true]", generator.Text().Get());
}

}  // namespace
}  // namespace hosts
