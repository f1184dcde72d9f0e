// Texts on their way into the library.

#include "Host.h"

namespace hosts {
namespace {

TEST(HostTexts, PointersAndStringsAreNotCopied) {
    const std::wstring string = L"in memory of its own, for it is a long one";
    const TextArgument fromString(string);
    EXPECT_EQ(string.c_str(), static_cast<const wchar_t*>(fromString));

    const wchar_t* const pointer = L"text";
    const TextArgument fromPointer(pointer);
    EXPECT_EQ(pointer, static_cast<const wchar_t*>(fromPointer));

    const TextArgument fromNull(nullptr);
    EXPECT_EQ(nullptr, static_cast<const wchar_t*>(fromNull));
}

TEST(HostTexts, ViewsOfEveryLengthEndWhereTheyEnd) {
    const std::wstring behind(2000, L'x');
    for (const size_t length : {0, 1, 2, 62, 63, 64, 65, 127, 128, 1000}) {
        const TextArgument argument(std::wstring_view(behind).substr(1, length));
        EXPECT_EQ(std::wstring(length, L'x'), static_cast<const wchar_t*>(argument)) << length;
    }
    const TextArgument none((std::wstring_view()));
    EXPECT_STREQ(L"", none);
}

/// Every kind of text as a key and as a value, of a length that a view is copied to either place.
TEST(HostTexts, ReachTheLibraryInEveryForm) {
    for (const size_t length : {3, 63, 64, 900}) {
        SCOPED_TRACE(length);
        const std::wstring key(length, L'k');
        const std::wstring behind = key + L"and more";
        const std::wstring_view view = std::wstring_view(behind).substr(0, length);

        const Generator generator = NewGenerator();
        const Container root = generator.NewObject().Get();
        root.Add(view, view).Get();
        const std::wstring json = L"{\"" + key + L"\":\"" + key + L"\"}";
        EXPECT_EQ(json, generator.Text().Get());

        const Parser parser = Loaded(std::wstring_view(json + L"]").substr(0, json.size()));
        const Item item = parser.Root().Get();
        EXPECT_EQ(view, item.MemberAs<std::wstring_view>(view).Get());
        EXPECT_EQ(view, item.MemberAs<std::wstring_view>(key).Get());
        EXPECT_EQ(view, item.MemberAs<std::wstring_view>(key.c_str()).Get());
        EXPECT_TRUE(parser.Exists(L"/" + key));
    }
}

}  // namespace
}  // namespace hosts
