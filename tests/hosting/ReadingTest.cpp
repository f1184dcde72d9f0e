// Reading documents, by every way of naming a value.

#include <algorithm>
#include <iterator>
#include <vector>

#include "Host.h"

namespace hosts {
namespace {

// ---- Typed access ------------------------------------------------------------------------------

constexpr const wchar_t* kTypes =
    LR"({"flag":true,"int":-5,"uint":3000000000,"int64":-9007199254740993,)"
    LR"("uint64":18446744073709551615,"real":0.5,"text":"\u00C6r\u00F8","blob":"AAEC/w==",)"
    LR"("nothing":null,"object":{},"array":[]})";

// Bytes compare by what they hold.
template <class T>
T Comparable(const T& value) {
    return value;
}
std::string Comparable(const Bytes& bytes) { return Text(bytes); }

/// Reads a member of the root by all ways, one after the other.
template <class T>
void ExpectEverywhere(const Parser& parser, const std::wstring& key, int code, const T& expected) {
    SCOPED_TRACE(testing::PrintToString(key));
    const Item item = parser.Root().Get();
    const Value value = parser.RootValue().Get();
    const Result<T> results[] = {
        item.Member(key).Get().template As<T>(),  item.template MemberAs<T>(key),
        value.Member(key).Get().template As<T>(), value.template MemberAs<T>(key),
        parser.template As<T>(L"/" + key),        parser.At(L"/" + key).Get().template As<T>(),
    };
    for (const Result<T>& result : results) {
        const auto way = &result - results;
        EXPECT_EQ(code, result.Code()) << way;
        // The bytes of a blob live until the next one.
        const bool lives = !std::is_same_v<T, Bytes> || &result == std::end(results) - 1;
        if (code == 1 && lives) {
            EXPECT_EQ(Comparable(expected), Comparable(*result)) << way;
        }
    }
}

/// The keys of the document that a type can read, each with what it reads; -3 for all others.
template <class T>
void ExpectOnly(const std::vector<std::pair<std::wstring, T>>& readable) {
    const Parser parser = Loaded(kTypes);
    for (const auto& child : parser.Root().Get().Children()) {
        const std::wstring key(child.name);
        const auto found = std::find_if(readable.begin(), readable.end(),
                                        [&](const auto& row) { return row.first == key; });
        if (found != readable.end()) {
            ExpectEverywhere<T>(parser, key, 1, found->second);
        } else {
            ExpectEverywhere<T>(parser, key, -3, T());
        }
    }
}

TEST(HostReading, Booleans) { ExpectOnly<bool>({{L"flag", true}}); }
TEST(HostReading, Int32) { ExpectOnly<int32_t>({{L"int", -5}}); }
TEST(HostReading, Uint32) { ExpectOnly<uint32_t>({{L"uint", 3000000000u}}); }
TEST(HostReading, Int64) {
    ExpectOnly<int64_t>({{L"int", -5}, {L"uint", 3000000000}, {L"int64", -9007199254740993}});
}
TEST(HostReading, Uint64) {
    ExpectOnly<uint64_t>({{L"uint", 3000000000u}, {L"uint64", UINT64_MAX}});
}
TEST(HostReading, Int16) { ExpectOnly<int16_t>({{L"int", -5}}); }
TEST(HostReading, Uint8) { ExpectOnly<uint8_t>({}); }
TEST(HostReading, Long) { ExpectOnly<long>({{L"int", -5}}); }
TEST(HostReading, UnsignedLong) { ExpectOnly<unsigned long>({{L"uint", 3000000000u}}); }
TEST(HostReading, Texts) {
    ExpectOnly<std::wstring_view>({{L"text", L"\u00C6r\u00F8"}, {L"blob", L"AAEC/w=="}});
}
TEST(HostReading, Blobs) {
    using namespace std::string_literals;
    static const std::string bytes = "\x00\x01\x02\xFF"s;
    ExpectOnly<Bytes>({{L"blob", BytesOf(bytes)}});
}

/// What the raw operations say of doubles and floats, the layer says.
template <class T, class Operation>
void ExpectAsRaw(Operation operation) {
    const Parser parser = Loaded(kTypes);
    for (const auto& child : parser.Root().Get().Children()) {
        T number = 0;
        const int code = (parser.Raw().*operation)(child.value.Raw(), &number);
        ExpectEverywhere<T>(parser, std::wstring(child.name), code, number);
    }
}

TEST(HostReading, Doubles) {
    ExpectAsRaw<double>(&QXJSON::IJsonParser::GetItemDouble);
    ExpectEverywhere(Loaded(kTypes), L"real", 1, 0.5);
}
TEST(HostReading, Floats) {
    ExpectAsRaw<float>(&QXJSON::IJsonParser::GetItemFloat);
    ExpectEverywhere(Loaded(kTypes), L"real", 1, 0.5f);
}

TEST(HostReading, BothStyles) {
    const Parser parser = Loaded(LR"({"ship":"Freya","crew":4})");
    EXPECT_EQ(4, parser.As<int32_t>(L"/crew").Get());
    EXPECT_EQ(9, parser.As<int32_t>(L"/guests").Or(9));
    EXPECT_EQ(L"none", parser.As<std::wstring_view>(L"/harbour").Or(L"none"));
    if (const auto ship = parser.As<std::wstring_view>(L"/ship")) {
        EXPECT_EQ(L"Freya", *ship);
    } else {
        ADD_FAILURE() << ship.Code();
    }
    EXPECT_THROW((void)parser.As<int32_t>(L"/guests").Get(), Error);
}

// ---- Ways through a document -------------------------------------------------------------------

constexpr const wchar_t* kShip =
    LR"({"name":"Freya","crew":[{"name":"Anna"},7,null],"moored":true,"berth":{"number":3}})";

TEST(HostReading, Roots) {
    const Parser parser = Loaded(L"[1]");
    EXPECT_EQ(ValueKind::kArray, parser.Root().Get().Kind());
    EXPECT_EQ(ValueKind::kArray, parser.RootValue().Get().Kind());
    EXPECT_EQ(1u, parser.Root().Get().Raw());
    EXPECT_EQ(0, NewParser().Root().Code());
    EXPECT_EQ(0, NewParser().RootValue().Code());
}

/// The document as a loop meets it: names and kinds, by depth.
template <class Node>
std::wstring Outline(const Node& node) {
    std::wstring text = std::to_wstring(static_cast<unsigned>(node.Kind()));
    for (const auto& child : node.Children())
        text += L"(" + std::wstring(child.name) + L":" + Outline(child.value) + L")";
    return text;
}

TEST(HostReading, Loops) {
    const Parser parser = Loaded(kShip);
    const std::wstring expected =
        L"4(name:0)(crew:5(:4(name:0))(:1)(:3))(moored:2)(berth:4(number:1))";
    EXPECT_EQ(expected, Outline(parser.Root().Get()));
    EXPECT_EQ(expected, Outline(parser.RootValue().Get()));
    const auto children = parser.Root().Get().Children();
    EXPECT_EQ(4, std::distance(children.begin(), children.end()));
}

template <class Node>
void ExpectWays(const Node& root) {
    EXPECT_EQ(4u, root.Count().Get());
    EXPECT_EQ(L"crew", root.NameAt(1).Get());
    EXPECT_EQ(0, root.NameAt(4).Code());
    const Node crew = root.Member(L"CREW").Get();
    EXPECT_EQ(crew.Raw(), root.At(1).Get().Raw());
    EXPECT_EQ(L"Anna",
              crew.At(0).Get().Member(L"name").Get().template As<std::wstring_view>().Get());
    EXPECT_EQ(0, crew.At(3).Code());
    EXPECT_EQ(-3, crew.Member(L"name").Code());
    EXPECT_EQ(0, root.Member(L"guests").Code());
    EXPECT_EQ(-1, root.Member(nullptr).Code());
    EXPECT_EQ(-1, root.template MemberAs<int32_t>(L"guests").Code());
    EXPECT_TRUE(root.Has(L"Name"));
    EXPECT_FALSE(root.Has(L"guests"));
    EXPECT_FALSE(crew.Has(L"name"));
    EXPECT_EQ(-3, root.At(0).Get().Count().Code());
    const auto none = root.At(0).Get().Children();
    EXPECT_EQ(none.begin(), none.end());
    const Node unknown = *root.Member(L"guests");
    EXPECT_EQ(-2, unknown.template As<int32_t>().Code());
}

TEST(HostReading, WaysByHandleAndByReference) {
    const Parser parser = Loaded(kShip);
    ExpectWays(parser.Root().Get());
    ExpectWays(parser.RootValue().Get());
}

TEST(HostReading, TypesAreTheInterfacesOwn) {
    const Parser parser = Loaded(L"[-1,3000000000,-3000000000,18446744073709551615,0.5,\"\",{}]");
    const uint32_t expected[] = {6, 7, 8, 9, 11, 0, 4};
    uint32_t index = 0;
    for (const auto& child : parser.RootValue().Get().Children()) {
        const uint32_t type = expected[index++];
        EXPECT_EQ(type, child.value.Type());
        EXPECT_EQ(KindOf(type), child.value.Kind());
        EXPECT_EQ(child.value.Kind(), parser.Root().Get().At(index - 1).Get().Kind());
    }
}

TEST(HostReading, JsonOfContainers) {
    const Parser parser = Loaded(kShip);
    EXPECT_EQ(kShip, parser.Root().Get().Json().Get());
    EXPECT_EQ(LR"([{"name":"Anna"},7,null])", parser.At(L"/crew").Get().Json().Get());
    EXPECT_EQ(LR"({"number":3})", parser.At(L"/berth").Get().Json().Get());
    EXPECT_EQ(0, parser.At(L"/name").Get().Json().Code());
}

TEST(HostReading, Paths) {
    struct Row {
        const wchar_t* path;
        int code;  ///< of At
    };
    const Row rows[] = {
        {L"/", 1},
        {L"/crew", 1},
        {L"/crew/1/name", 1},
        {L"/berth/number", 1},
        {L"/CREW", -2},
        {L"/crew/0", -2},
        {L"/crew/4", -2},
        {L"/guests", -2},
        {L"", -2},
        {L"crew", -2},
        {nullptr, -2},
        {L"/guests/1", -5},
        {L"/guests/1/x", -5},
    };
    const Parser parser = Loaded(kShip);
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.path ? row.path : L"(null)")));
        EXPECT_EQ(row.code, parser.At(row.path).Code());
        EXPECT_EQ(row.code == 1, parser.Exists(row.path));
    }
}

TEST(HostReading, ClassesOfNumbers) {
    const Parser parser = Loaded(L"[1,0.5,NaN,Infinity,-Infinity]");
    const NumberClass expected[] = {NumberClass::kFinite, NumberClass::kFinite,
                                    NumberClass::kNotANumber, NumberClass::kInfinity,
                                    NumberClass::kMinusInfinity};
    uint32_t index = 0;
    for (const auto& child : parser.Root().Get().Children())
        EXPECT_EQ(expected[index++], child.value.Class().Get());
    EXPECT_EQ(-3, parser.Root().Get().Class().Code());
}

TEST(HostReading, IteratorsAreThoseOfTheStandardLibrary) {
    const Parser parser = Loaded(kShip);
    const auto children = parser.Root().Get().Children();
    auto at = children.begin();
    EXPECT_EQ(L"name", at->name);
    EXPECT_EQ(L"name", (*at++).name);
    EXPECT_EQ(L"crew", at->name);
    EXPECT_EQ(ValueKind::kArray, at->value.Kind());
    EXPECT_EQ(L"moored", (++at)->name);
    const auto isObject = [](const auto& child) {
        return child.value.Kind() == ValueKind::kObject;
    };
    const auto found = std::find_if(children.begin(), children.end(), isObject);
    ASSERT_NE(children.end(), found);
    EXPECT_EQ(L"berth", found->name);
    using Traits = std::iterator_traits<decltype(found)>;
    static_assert(std::is_same_v<Traits::pointer, decltype(found.operator->())>);
}

TEST(HostReading, ALoopOverWhatIsGoneThrows) {
    const Parser parser = Loaded(kShip);
    const auto children = parser.Root().Get().Children();
    parser.Load(L"[]").Get();
    EXPECT_THROW((void)*children.begin(), Error);
}

}  // namespace
}  // namespace hosts
