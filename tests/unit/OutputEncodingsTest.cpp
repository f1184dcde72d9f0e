// Strings in each encoding, against RapidJSON's writer: what is plain and what is not, at every
// place in strings of every length.

#include "common/text/OutputEncodings.h"

#include <gtest/gtest.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>

namespace {

using namespace QXJSON;

using Source = rapidjson::UTF16<wchar_t>;

/// What RapidJSON writes, without the quotation mark in front; with the one behind if it is whole.
template <class Target>
std::basic_string<typename Target::Ch> Expected(const std::wstring& text) {
    rapidjson::GenericStringBuffer<Target> buffer;
    rapidjson::Writer<decltype(buffer), Source, Target> writer(buffer);
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    return {buffer.GetString() + 1, buffer.GetSize() / sizeof(typename Target::Ch) - 1};
}

template <class Encoding, class Unit = typename Encoding::Unit>
std::basic_string<Unit> Written(const std::wstring& text) {
    const size_t room = text.size() * kLongestCharacter;
    std::basic_string<Unit> units(room + 1, Unit{'?'});
    Unit* to = units.data();
    const bool whole = PutText<Encoding>(text.data(), text.data() + text.size(), to);
    EXPECT_EQ(Unit{'?'}, units[room]) << "more was touched than there is room for";
    units.resize(static_cast<size_t>(to - units.data()));
    return whole ? units + Unit{'"'} : units;
}

void Expect(const std::wstring& text) {
    ASSERT_EQ(Expected<rapidjson::UTF8<>>(text), Written<EncodedUtf8>(text));
    // A lone surrogate ends all but one of these; the writer of UTF-16 knows no lone ones.
    ASSERT_EQ(Expected<rapidjson::ASCII<>>(text), Written<EscapedAscii>(text));
}

/// For text without lone surrogates.
void ExpectAll(const std::wstring& text) {
    Expect(text);
    const std::wstring expected = Expected<Source>(text);
    ASSERT_EQ(expected, Written<CopiedUtf16>(text));
    ASSERT_EQ(expected, Written<CheckedUtf16>(text));
}

/// A unit at each place, alone and twice, among plain ones.
template <class Check>
void AtEachPlace(const std::wstring& special, Check&& check) {
    for (size_t length = 0; length < 28; ++length)
        for (size_t at = 0; at <= length; ++at) {
            std::wstring text(length, L'x');
            text.insert(at, special);
            check(text);
            if (testing::Test::HasFatalFailure()) return;
            check(text + L"yz" + special);
        }
}

TEST(PutText, SpecialUnitsAtEachPlace) {
    for (const std::wstring& special :
         {std::wstring(1, L'\0'), std::wstring(L"\""), std::wstring(L"\\"), std::wstring(L"\x1F"),
          std::wstring(L"\n\t"), std::wstring(L"\x7F"), std::wstring(L"\x80"),
          std::wstring(L"\x7FF"), std::wstring(L"\x800"), std::wstring(L"\xD7FF\xE000"),
          std::wstring(L"\xFFFF"), std::wstring(L"\xD800\xDC00"), std::wstring(L"\xDBFF\xDFFF"),
          std::wstring(L"\x20AC\xD834\xDD1E\xE9")})
        AtEachPlace(special, ExpectAll);
}

TEST(PutText, EveryUnit) {
    for (unsigned unit = 0; unit < 0x10000; ++unit)
        if (!IsSurrogate(static_cast<wchar_t>(unit)))
            ExpectAll(L"ab" + std::wstring(1, static_cast<wchar_t>(unit)) + L"cdefghi");
}

TEST(PutText, LoneSurrogatesAtEachPlace) {
    for (const wchar_t* special : {L"\xD800", L"\xDBFF", L"\xDC00", L"\xDFFF", L"\xDC00\xD800",
                                   L"\xD800\xD800", L"\x20AC\xD800", L"\xD834\xDD1E\xDD1E"})
        AtEachPlace(special, [](const std::wstring& text) {
            Expect(text);
            const size_t lone = Written<EncodedUtf8>(text).size();
            ASSERT_LE(lone, 3 * text.size());
            const std::wstring checked = Written<CheckedUtf16>(text);
            ASSERT_LT(checked.size(), text.size());
            ASSERT_EQ(text.substr(0, checked.size()), checked);
            ASSERT_EQ(text + L'"', Written<CopiedUtf16>(text));
        });
}

}  // namespace
