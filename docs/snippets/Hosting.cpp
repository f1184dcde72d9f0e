// The examples of the C++ layer for hosts.

//! [whole host]
#include "Json_Dll.hpp"

std::wstring NameOfSecond(const wchar_t* json) {
    using namespace QXJSON::hosting;

    const Library library;  // Json_Dll.dll, as LoadLibrary finds it
    const Parser parser = library.NewParser().Get();
    parser.Load(json).Get();
    return std::wstring(parser.As<std::wstring_view>(L"/crew/2/name").Or(L"nobody"));
}
//! [whole host]

#include "Host.h"
#include "TempFile.h"

namespace snippets {
namespace {

using namespace QXJSON::hosting;

class Hosting : public testing::Test {
protected:
    Parser Loaded(const wchar_t* json) const {
        Parser parser = library.NewParser().Get();
        parser.Load(json).Get();
        return parser;
    }

    const Library library;
};

TEST_F(Hosting, WholeHost) {
    EXPECT_EQ(L"Bo", NameOfSecond(LR"({"crew":[{"name":"Anna"},{"name":"Bo"}]})"));
    EXPECT_EQ(L"nobody", NameOfSecond(LR"({"crew":[{"name":"Anna"}]})"));
    EXPECT_THROW(NameOfSecond(L"{"), Error);
}

TEST_F(Hosting, LibraryVersion) {
    //! [library version]
    const auto version = QXJSON::hosting::LibraryVersion();  // of the loaded Json_Dll.dll
    const bool recent = version && version->Offers({1, 0, 0});
    //! [library version]
    EXPECT_TRUE(recent);
}

TEST_F(Hosting, Styles) {
    const Parser parser = Loaded(LR"({"ship":"Freya","crew":4})");
    std::wstring report;
    //! [three styles]
    if (const auto ship = parser.As<std::wstring_view>(L"/ship"))  // check the result,
        report = *ship;

    const int32_t guests = parser.As<int32_t>(L"/guests").Or(0);  // name a substitute,

    int code = 0;
    try {
        const int32_t crew = parser.As<int32_t>(L"/ship").Get();  // or have failures thrown
        report += std::to_wstring(crew);
    } catch (const Error& error) {
        code = error.Code();  // -3: the value is of another kind
    }
    //! [three styles]
    EXPECT_EQ(L"Freya", report);
    EXPECT_EQ(0, guests);
    EXPECT_EQ(-3, code);
}

TEST_F(Hosting, LoadFailure) {
    const Parser parser = library.NewParser().Get();
    std::wstring report;
    //! [load failure]
    const std::string bytes = "[1, 2,]";
    if (!parser.LoadBytes(bytes.data(), bytes.size())) {
        const auto failure = parser.Failure();
        report = std::to_wstring(failure.offset) + L": " + std::wstring(failure.message);
    }
    //! [load failure]
    EXPECT_EQ(L"7: Invalid value.", report);
}

TEST_F(Hosting, Loop) {
    const Parser parser = Loaded(LR"({"Anna":12,"Bo":30,"Cy":"?"})");
    std::wstring list;
    int64_t sum = 0;
    //! [loop]
    for (const auto& [name, value] : parser.RootValue().Get().Children()) {
        if (value.Kind() != ValueKind::kNumber) continue;
        list += name;
        sum += value.As<int64_t>().Get();
    }
    //! [loop]
    EXPECT_EQ(L"AnnaBo", list);
    EXPECT_EQ(42, sum);
}

TEST_F(Hosting, Build) {
    const support::TempFile file;
    const wchar_t* const fileName = file.Name();
    //! [build]
    const Generator generator = library.NewGenerator().Get();
    const Container root = generator.NewObject().Get();
    root.Add(L"ship", L"Freya").Get();
    root.Add(L"length", 18.5).Get();
    root.AddJson(L"berth", LR"({"number":3})").Get();
    const Container crew = root.AddArray(L"crew").Get();
    for (const std::wstring_view name : {L"Anna", L"Bo"})
        crew.AppendObject().Get().Add(L"name", name).Get();

    const bool saved = static_cast<bool>(generator.Save(fileName, Encoding::kUtf8));
    //! [build]
    EXPECT_TRUE(saved);
    EXPECT_EQ(
        LR"({"ship":"Freya","length":18.5,"berth":{"number":3},"crew":[{"name":"Anna"},{"name":"Bo"}]})",
        generator.Text().Get());
}

TEST_F(Hosting, Store) {
    //! [store]
    const Package package = library.NewPackage().Get();
    package.Set(L"Vessel", L"Freya").Get();
    package.Set(L"Moored", true).Get();
    package.SetJson(L"Ports", LR"(["Kiel","Skagen"])").Get();

    const bool moored = package.As<bool>(L"moored").Or(false);
    //! [store]
    EXPECT_TRUE(moored);
    EXPECT_EQ(LR"({"Vessel":"Freya","Moored":true,"Ports":["Kiel","Skagen"]})",
              package.Text().Get());
}

TEST_F(Hosting, Raw) {
    const Parser parser = Loaded(LR"({"licence":77})");
    //! [raw]
    QXJSON::JsonVariant variant = {};
    const Item root = parser.Root().Get();
    const int result = parser->GetItemVariant(root.Raw(), L"licence", &variant);
    //! [raw]
    EXPECT_EQ(1, result);
    EXPECT_EQ(77, variant.number);
}

}  // namespace
}  // namespace snippets
