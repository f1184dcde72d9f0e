// What a host does with results.

#include <memory>
#include <set>

#include "Host.h"

namespace hosts {
namespace {

using namespace std::string_literals;

constexpr int kCodes[] = {QXJSON::kSuccess, QXJSON::kPlainFailure,   QXJSON::kNoMember,
                          QXJSON::kNoValue, QXJSON::kWrongKind,      QXJSON::kNoText,
                          QXJSON::kBadPath, QXJSON::kEscapedFailure, 77};

TEST(HostResults, EveryCodeHasWordsOfItsOwn) {
    std::set<std::string> words;
    for (const int code : kCodes) {
        const std::string text = Describe(code);
        EXPECT_FALSE(text.empty()) << code;
        EXPECT_TRUE(words.insert(text).second) << code << ": " << text;
    }
    EXPECT_STREQ(Describe(77), Describe(-77));
}

TEST(HostResults, SuccessLeadsToTheValueInEveryStyle) {
    Result<std::wstring> result(QXJSON::kSuccess, L"value");
    const Result<std::wstring>& constant = result;
    EXPECT_TRUE(result);
    EXPECT_EQ(1, result.Code());
    EXPECT_EQ(L"value", *result);
    EXPECT_EQ(L"value", *constant);
    EXPECT_EQ(5u, result->size());
    EXPECT_EQ(5u, constant->size());
    EXPECT_EQ(L"value", constant.Get());
    EXPECT_EQ(L"value", result.Or(L"other"));
    EXPECT_EQ(L"value", std::move(result).Get());
}

TEST(HostResults, EveryOtherCodeIsAFailureInEveryStyle) {
    for (const int code : kCodes) {
        if (code == QXJSON::kSuccess) continue;
        SCOPED_TRACE(code);
        const Result<int32_t> value(code, 5);
        EXPECT_FALSE(value);
        EXPECT_EQ(code, value.Code());
        EXPECT_EQ(7, value.Or(7));
        const Result<void> nothing(code);
        EXPECT_FALSE(nothing);
        EXPECT_EQ(code, nothing.Code());
        const Result<int32_t> bare(code);
        EXPECT_EQ(code, bare.Code());

        const auto thrown = [](const auto& get) {
            try {
                get();
            } catch (const Error& error) {
                return std::to_string(error.Code()) + ": " + error.what();
            }
            return "nothing"s;
        };
        const std::string expected = std::to_string(code) + ": " + Describe(code);
        EXPECT_EQ(expected, thrown([&] { (void)value.Get(); }));
        EXPECT_EQ(expected, thrown([&] { (void)Result<int32_t>(code, 5).Get(); }));
        EXPECT_EQ(expected, thrown([&] { nothing.Get(); }));
    }
}

/// Whether a result of T takes a U in its place.
template <class T, class U, class = void>
constexpr bool kTakes = false;
template <class T, class U>
constexpr bool
    kTakes<T, U, std::void_t<decltype(std::declval<const Result<T>&>().Or(std::declval<U>()))>> =
        true;

TEST(HostResults, ViewsTakeNoStringThatIsAboutToEnd) {
    using View = std::wstring_view;
    static_assert(!kTakes<View, std::wstring> && !kTakes<View, const std::wstring>);
    static_assert(kTakes<View, std::wstring&> && kTakes<View, const std::wstring&>);
    static_assert(kTakes<View, const wchar_t*> && kTakes<View, View>);
    static_assert(kTakes<std::wstring, std::wstring>);
    const std::wstring lasting = L"lasting";
    EXPECT_EQ(lasting, Result<View>(0).Or(lasting));
}

TEST(HostResults, SuccessWithoutValue) {
    const Result<void> result(QXJSON::kSuccess);
    EXPECT_TRUE(result);
    EXPECT_NO_THROW(result.Get());
}

TEST(HostResults, ValuesThatOnlyMove) {
    Result<std::unique_ptr<int>> result(QXJSON::kSuccess, std::make_unique<int>(3));
    const std::unique_ptr<int> taken = std::move(result).Get();
    EXPECT_EQ(3, *taken);
}

}  // namespace
}  // namespace hosts
