// The keyed store.

#include "Host.h"
#include "TempFile.h"

namespace hosts {
namespace {

using support::TempFile;

constexpr uint8_t kBlob[] = {0, 1, 2, 255};

/// A package with a value of every type that one can be set to.
Package Filled() {
    Package package = NewPackage();
    const std::wstring text = L"Bl\u00E5vand";
    package.Set(L"Flag", true).Get();
    package.Set(L"Number", 18.5).Get();
    package.Set(L"Whole", 4).Get();
    package.Set(L"String", text).Get();
    package.Set(L"View", std::wstring_view(text).substr(0, 2)).Get();
    package.Set(L"Pointer", text.c_str()).Get();
    package.Set(L"Literal", L"x").Get();
    package.Set(L"Blob", Bytes{kBlob, sizeof kBlob}).Get();
    package.SetJson(L"Object", L"{ \"a\": 1 }").Get();
    package.SetJson(L"Array", L"[ 1, null ]").Get();
    return package;
}

constexpr const wchar_t* kFilled =
    L"{\"Flag\":true,\"Number\":18.5,\"Whole\":4,\"String\":\"Bl\u00E5vand\",\"View\":\"Bl\","
    L"\"Pointer\":\"Bl\u00E5vand\",\"Literal\":\"x\",\"Blob\":\"AAEC/w==\",\"Object\":{\"a\":1},"
    L"\"Array\":[1,null]}";

TEST(HostPackages, SetAndRead) {
    const Package package = Filled();
    EXPECT_EQ(kFilled, package.Text().Get());
    EXPECT_TRUE(package.As<bool>(L"Flag").Get());
    EXPECT_EQ(18.5, package.As<double>(L"number").Get());
    EXPECT_EQ(4.0, package.As<double>(L"Whole").Get());
    EXPECT_EQ(L"Bl\u00E5vand", package.As<std::wstring_view>(L"String").Get());
    EXPECT_EQ(L"Bl",
              package.As<std::wstring_view>(std::wstring_view(L"Viewed").substr(0, 4)).Get());
    EXPECT_EQ(std::string(std::begin(kBlob), std::end(kBlob)),
              Text(package.As<Bytes>(L"Blob").Get()));
    EXPECT_EQ(L"x", package.Text(L"Literal").Get());
    EXPECT_EQ(L"{\"a\":1}", package.Text(L"Object").Get());
    EXPECT_EQ(L"[1,null]", package.Text(L"Array").Get());
    EXPECT_EQ(5.0, package.As<double>(L"nothing").Or(5.0));
}

/// Whether a package takes a T for the value of a key.
template <class T, class = void>
constexpr bool kTakes = false;
template <class T>
constexpr bool
    kTakes<T, std::void_t<decltype(std::declval<const Package&>().Set(L"", std::declval<T>()))>> =
        true;

TEST(HostPackages, CharactersAreNoNumbers) {
    static_assert(!kTakes<char> && !kTakes<wchar_t> && !kTakes<char16_t> && !kTakes<char32_t>);
    static_assert(kTakes<unsigned char> && kTakes<short> && kTakes<DWORD> && kTakes<float>);
    const Package package = NewPackage();
    package.Set(L"byte", uint8_t{65}).Get();
    package.Set(L"long", DWORD{4000000000}).Get();
    EXPECT_EQ(L"{\"byte\":65,\"long\":4000000000}", package.Text().Get());
}

TEST(HostPackages, Kinds) {
    struct Row {
        const wchar_t* key;
        ValueKind kind;
    };
    const Row rows[] = {
        {L"s", ValueKind::kString}, {L"n", ValueKind::kNumber}, {L"b", ValueKind::kBoolean},
        {L"z", ValueKind::kNull},   {L"o", ValueKind::kObject}, {L"a", ValueKind::kArray},
    };
    const Package package = NewPackage();
    package.Load(LR"({"s":"","n":0,"b":false,"z":null,"o":{},"a":[]})").Get();
    for (const Row& row : rows)
        EXPECT_EQ(row.kind, package.Kind(row.key).Get()) << testing::PrintToString(row.key);
    EXPECT_EQ(-1, package.Kind(L"x").Code());
}

TEST(HostPackages, Keys) {
    const Package package = NewPackage();
    EXPECT_EQ(0u, package.Count().Get());
    package.Set(L"Name", 1).Get();
    package.Set(L"Other", 2).Get();
    package.Set(L"NAME", 3).Get();
    EXPECT_EQ(2u, package.Count().Get());
    EXPECT_EQ(L"Name", package.NameAt(0).Get());
    EXPECT_EQ(L"Other", package.NameAt(1).Get());
    EXPECT_EQ(0, package.NameAt(2).Code());
    EXPECT_TRUE(package.Contains(L"name"));

    package.IgnoreCase(false).Get();
    EXPECT_FALSE(package.Contains(L"name"));
    EXPECT_EQ(-1, package.As<double>(L"name").Code());
    package.IgnoreCase(true).Get();
    EXPECT_EQ(3.0, package.As<double>(L"name").Get());

    EXPECT_TRUE(package.Remove(L"name"));
    EXPECT_EQ(0, package.Remove(L"name").Code());
    EXPECT_EQ(L"{\"Other\":2}", package.Text().Get());
    EXPECT_TRUE(package.Clear());
    EXPECT_EQ(L"{}", package.Text().Get());
}

TEST(HostPackages, Loads) {
    struct Row {
        const char* text;
        int code;
        uint64_t offset;  ///< of the file, in bytes
        const wchar_t* message;
    };
    const Row rows[] = {
        {"{\"a\":1}", 1, 0, L"No error."},
        {"{\"a\":}", 0, 6, L"Invalid value."},
        {"[1]", 1, 0, L"Failed to load the JSON data because its root node is not an object"},
        {"", 0, 0, L"The string is empty."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const std::string text = row.text;
        const TempFile file(text);
        const Package package = NewPackage();
        const bool error = row.code != 1 || row.message[0] != L'N';

        EXPECT_EQ(row.code, package.Load(std::wstring(text.begin(), text.end())).Code());
        EXPECT_EQ(error, package.HasError());
        EXPECT_EQ(row.message, package.Failure().message);
        EXPECT_EQ(2 * row.offset, package.Failure().offset);
        EXPECT_EQ(row.code, package.LoadFile(file.Name()).Code());
        EXPECT_EQ(error, package.HasError());
        EXPECT_EQ(row.message, package.Failure().message);
        EXPECT_EQ(row.offset, package.Failure().offset);
    }
    EXPECT_EQ(0, NewPackage().LoadFile(L"no such file.json").Code());
}

TEST(HostPackages, Outputs) {
    using namespace std::string_literals;
    const Package package = NewPackage();
    package.Set(L"a", L"\u00E9").Get();
    EXPECT_EQ("{\"a\":\"\\u00E9\"}", Text(package.Encoded(Encoding::kAscii).Get()));
    EXPECT_EQ("{\"a\":\"\xC3\xA9\"}", Text(package.Encoded(Encoding::kUtf8).Get()));
    EXPECT_EQ("{\0\"\0a\0\"\0:\0\"\0\xE9\0\"\0}\0"s,
              Text(package.Encoded(Encoding::kUtf16Le).Get()));
    EXPECT_EQ("\0{\0\"\0a\0\"\0:\0\"\0\xE9\0\"\0}"s,
              Text(package.Encoded(Encoding::kUtf16Be).Get()));
    const TempFile file;
    EXPECT_TRUE(package.Save(file.Name(), Encoding::kUtf8));
    EXPECT_EQ("\xEF\xBB\xBF{\"a\":\"\xC3\xA9\"}", file.Bytes());
    EXPECT_EQ(0, package.Save(L"no such folder\\x.json", Encoding::kUtf8).Code());
}

TEST(HostPackages, Failures) {
    const Package package = Filled();
    const wchar_t* const none = nullptr;
    EXPECT_EQ(-1, package.Set(none, 1).Code());
    EXPECT_EQ(-4, package.Set(L"key", none).Code());
    EXPECT_EQ(-4, package.Set(L"key", Bytes()).Code());
    EXPECT_EQ(0, package.Set(L"key", Bytes{kBlob, size_t{UINT32_MAX} + 1}).Code());
    EXPECT_EQ(0, package.SetJson(L"key", L"{").Code());
    EXPECT_EQ(0, package.SetJson(L"key", L"[NaN]").Code());
    EXPECT_EQ(-3, package.As<bool>(L"String").Code());
    EXPECT_EQ(-3, package.As<double>(L"Flag").Code());
    EXPECT_EQ(-3, package.As<std::wstring_view>(L"Flag").Code());
    EXPECT_EQ(-3, package.As<Bytes>(L"String").Code());
    EXPECT_EQ(-3, package.Text(L"Number").Code());
    EXPECT_EQ(-1, package.Text(L"nothing").Code());
    EXPECT_THROW((void)package.As<bool>(L"nothing").Get(), Error);
    EXPECT_EQ(kFilled, package.Text().Get());
}

}  // namespace
}  // namespace hosts
