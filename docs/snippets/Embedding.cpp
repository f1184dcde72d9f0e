// How a host loads the library and owns its objects.

#include <memory>
#include <stdexcept>
#include <thread>

#include "Host.h"

namespace snippets {
namespace {

//! [load library]
/// An export of the library, which stays loaded until the process ends.
template <class Factory>
Factory* FindFactory(const char* name) {
    static const HMODULE library = LoadLibraryW(L"Json_Dll.dll");
    if (!library) throw std::runtime_error("Json_Dll.dll was not found");
    const FARPROC found = GetProcAddress(library, name);
    if (!found) throw std::runtime_error("Json_Dll.dll is of another kind");
    return reinterpret_cast<Factory*>(reinterpret_cast<void*>(found));
}
//! [load library]

//! [own object]
/// Ends an object of the library, in the only way allowed.
struct Releaser {
    template <class Interface>
    void operator()(Interface* object) const {
        object->Release();
    }
};

std::unique_ptr<QXJSON::IJsonParser, Releaser> MakeParser() {
    static auto* const create = FindFactory<QXJSON::IJsonParser*()>("CreateJsonParser");
    std::unique_ptr<QXJSON::IJsonParser, Releaser> parser(create());
    if (!parser) throw std::bad_alloc();
    return parser;
}
//! [own object]

TEST(Embedding, OwnedObject) { EXPECT_EQ(1, MakeParser()->LoadJsonString(L"[]")); }

TEST(Embedding, Threads) {
    int results[2] = {};
    //! [threads]
    // One object for each thread; nothing is shared, and nothing is locked.
    const auto work = [&](int index) { results[index] = MakeParser()->LoadJsonString(L"[1,2,3]"); };
    std::thread first(work, 0), second(work, 1);
    first.join();
    second.join();
    //! [threads]
    EXPECT_EQ(1, results[0]);
    EXPECT_EQ(1, results[1]);
}

TEST_F(Packaging, BothNames) {
    //! [both names]
    package->LoadString(L"{\"button\":\"OK\"}");  // the operation

    wchar_t button[64] = {};
    const HMODULE user = LoadLibraryW(L"user32.dll");
    const int length = LoadString(user, 800, button, 64);  // the function of Windows
    //! [both names]
    EXPECT_EQ(L"{\"button\":\"OK\"}", Json());
    EXPECT_EQ(length, static_cast<int>(std::wstring(button).size()));
    EXPECT_TRUE(FreeLibrary(user));
}

TEST_F(Parsing, Lifetimes) {
    //! [lifetimes]
    const wchar_t* text = nullptr;
    parser->LoadJsonString(L"[\"Anna\",[1],[2]]");
    parser->GetItemStringByPath(L"/1", &text);
    const wchar_t* const name = text;  // lives until the next load: no copy needed meanwhile

    parser->GetArrayJsonByPath(L"/2", &text);
    const std::wstring first = text;           // a copy: the next such text replaces it
    parser->GetArrayJsonByPath(L"/3", &text);  // [2]
    //! [lifetimes]
    EXPECT_STREQ(L"Anna", name);
    EXPECT_EQ(L"[1]", first);
    EXPECT_STREQ(L"[2]", text);
}

TEST_F(Parsing, DeepDocuments) {
    //! [deep documents]
    const std::wstring deep(1000000, L'[');
    const int result = parser->LoadJsonString(deep.c_str());    // -5: too deep for the stack
    const int afterwards = parser->LoadJsonString(L"[1,2,3]");  // 1: the parser is usable
    //! [deep documents]
    EXPECT_EQ(-5, result);
    EXPECT_EQ(1, afterwards);
}

}  // namespace
}  // namespace snippets
