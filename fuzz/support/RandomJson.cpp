#include "RandomJson.h"

#include <set>

namespace fuzz {
namespace {

/// The Kelvin sign and the long s become ASCII letters when cases are folded by the rules of
/// Unicode; "[" and "{" differ as the cases of a letter do.
const wchar_t* const kKeys[] = {
    L"a",      L"A",      L"b",  L"B",    L"",    L"0",  L"1",   L"2",      L"10",  L"01",
    L"a1",     L"A1",     L"1x", L"ab",   L"aB",  L"AB", L"k",   L"\x212A", L"s",   L"\x017F",
    L"\x00E9", L"\x00C9", L"[",  L"{",    L"@",   L"`",  L"a/b", L"a/0",    L"0/a", L"/",
    L"~",      L"~0",     L"~1", L"a~1b", L"a~b", L" a", L"a ",  L"-1",     L"-",   L"4294967296",
};

const wchar_t* const kStems[] = {
    L"key", L"KEY", L"Key", L"customerNumber", L"CUSTOMERnumber", L"key\x00E9", L"key\x00C9"};

const wchar_t* const kTexts[] = {
    L"text",
    L"",
    L"AQID",
    L"AQI=",
    L"AQ==",
    L"AQ=",
    L"A",
    L"AQ ID\r\n",
    L"====",
    L"a longer text of forty "
    L"units or thereabouts",
    L"\"\\/\b\f\n\r\t",
    L"\x01\x1F\x7F",
    L"\x00E9",
    L"\x20AC\x65E5",
    L"\xD834\xDD1E",
    L"\xFEFF",
    L"\xD834",
    L"\xDD1E",
    L"\xDD1E\xD834 x",
    L"\xFFFF",
};

/// As they stand in JSON text.
const wchar_t* const kScalars[] = {
    L"0",
    L"1",
    L"-1",
    L"-0",
    L"0.0",
    L"-0.0",
    L"1.5",
    L"-1.5e10",
    L"1E-7",
    L"1e5",
    L"100",
    L"2147483647",
    L"2147483648",
    L"-2147483648",
    L"-2147483649",
    L"4294967295",
    L"4294967296",
    L"9223372036854775807",
    L"9223372036854775808",
    L"-9223372036854775808",
    L"-9223372036854775809",
    L"18446744073709551615",
    L"18446744073709551616",
    L"1e308",
    L"5e-324",
    L"0.1",
    L"3.4028235677973366e38",
    L"16777217",
    L"123456789012345678901234567890",
    L"true",
    L"false",
    L"null",
    L"\"\"",
    L"\"text\"",
    L"\"AQID\"",
    L"\"AQ==\"",
    L"\"A\"",
    L"\"\\u0000\"",
    L"\"a\\u0000b\"",
    L"\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"",
    L"\"\\u00e9\\u20AC\"",
    L"\"\\uD834\\uDD1E\"",
    L"\"\\uDD1E\"",
    L"\"\x00E9\x20AC\xD834\xDD1E\"",
    L"\"twenty-one units long\"",
    L"\"12345678901\"",
};

const wchar_t* const kNotFinite[] = {L"NaN", L"-NaN", L"Inf", L"-Inf", L"Infinity", L"-Infinity"};

const wchar_t* const kBlanks[] = {L"", L"", L"", L" ", L"\n", L"\t\r ", L"        "};

class Author {
public:
    Author(Choices& input, const JsonRules& documentRules) : choices(input), rules(documentRules) {}

    std::wstring Document() {
        Container(choices.Below(2) == 0, 0);
        return text;
    }

private:
    static constexpr int kDeepest = 6;

    void Value(int depth) {
        const uint32_t kind = choices.Below(8);
        if (kind == 0 && rules.acceptNan)
            text += choices.Of(kNotFinite);
        else if (kind >= 6 && depth < kDeepest)
            Container(kind == 6, depth);
        else
            text += choices.Of(kScalars);
    }

    void Container(bool isObject, int depth) {
        // Rarely more members than are looked through one by one; elements never move a search.
        const uint32_t count = choices.OneIn(12) ? 17 + choices.Below(40) : choices.Below(6);
        std::set<std::wstring> names;
        text += isObject ? L'{' : L'[';
        for (uint32_t i = 0; i < count; ++i) {
            if (i != 0) text += L',';
            text += choices.Of(kBlanks);
            if (isObject) Name(names);
            Value(depth + 1);
        }
        text += isObject ? L'}' : L']';
    }

    void Name(std::set<std::wstring>& names) {
        std::wstring name = choices.OneIn(40) ? L"a\\u0000" : RandomKey(choices);
        while (rules.uniqueNames && !names.insert(name).second) name += L'\'';
        text += L'"' + name + L"\":" + choices.Of(kBlanks);
    }

    Choices& choices;
    const JsonRules rules;
    std::wstring text;
};

}  // namespace

std::wstring RandomKey(Choices& choices) {
    const uint32_t number = choices.Below(256);
    // A few of them often, for what happens when a key comes again.
    if (number < 64) return kKeys[number % 4];
    if (number < 128) return choices.Of(kKeys);
    return choices.Of(kStems) + std::to_wstring(number % 48);
}

const wchar_t* RandomText(Choices& choices) { return choices.Of(kTexts); }

std::wstring RandomJson(Choices& choices, const JsonRules& rules) {
    return Author(choices, rules).Document();
}

}  // namespace fuzz
