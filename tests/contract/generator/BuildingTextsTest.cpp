// Strings, blobs and variants: copied, converted, told apart.

#include <gtest/gtest.h>
#include <windows.h>

#include <wincrypt.h>

#include <optional>

#include "Base64.h"
#include "BuildScene.h"

namespace {

using namespace building;

/// Adds an item to the scene's object under "k" or to its array; the result.
int Add(Scene& scene, const Item& item, NamedBy naming, bool keyed) {
    Arguments arguments = scene.Naming(keyed ? L"object" : L"array");
    arguments.payload = item.payload;
    arguments.key = L"k";
    return AddingOperation(item.kind, naming, keyed).call(scene.Generator(), arguments).result;
}

/// The only thing in the scene's object or array.
const Value& Added(Scene& scene, bool keyed) {
    const Value& parent = At(scene.Naming(keyed ? L"object" : L"array").reference);
    return keyed ? parent.MemberBegin()->value : *parent.Begin();
}

std::wstring TextIn(const Value& value) {
    return value.IsString() ? std::wstring(value.GetString(), value.GetStringLength()) : L"no text";
}

TEST(BuildingTexts, ArriveAsTheyAre) {
    const std::wstring longText(100000, L'\x4E2D');
    for (const wchar_t* text :
         {L"", L"t", L"\x00E9\x4E2D\x212A", L"\xD83D\xDE00", L"lone \xD83D surrogate",
          L"\"\\/\b\f\n\r\t\x01\x1F\x7F\x80\x2028", L"\xFEFF\xFFFE", L"NaN", longText.c_str()}) {
        for (const Item& item : {StringItem(text), TextVariant(text)}) {
            for (const NamedBy naming : kAllNamings) {
                for (const bool keyed : {true, false}) {
                    SCOPED_TRACE(item.name + " " + NameOf(naming));
                    Scene scene;
                    EXPECT_EQ(1, Add(scene, item, naming, keyed));
                    EXPECT_TRUE(text == TextIn(Added(scene, keyed)));
                    const std::wstring written = StoredText(item, naming);
                    EXPECT_NE(std::wstring::npos, scene.Text().find(written));
                }
            }
        }
    }
}

/// The caller's texts, keys, paths and bytes are of no concern after the call.
TEST(BuildingTexts, AreCopied) {
    for (const Operation& operation : AddingOperations()) {
        SCOPED_TRACE(operation.name);
        Scene scene;
        const std::wstring parent = operation.hasKey ? L"object" : L"array";
        std::wstring key = L"a key that is long enough not to be kept in place";
        std::wstring text = L"some text";
        std::wstring path = L"/" + parent;
        uint8_t bytes[] = {1, 2, 3};
        Arguments arguments = scene.Naming(parent);
        arguments.payload = SomeItem(operation.kind).payload;
        arguments.key = key.c_str();
        arguments.path = path.c_str();
        arguments.payload.text = text.c_str();
        arguments.payload.bytes = bytes;
        if (operation.kind == Kind::kBlob) arguments.payload.word = sizeof bytes;
        if (operation.kind == Kind::kVariant)
            arguments.payload.variant = TextVariant(text.c_str()).payload.variant;
        EXPECT_EQ(1, operation.call(scene.Generator(), arguments).result);
        const std::wstring before = scene.Text();
        for (std::wstring* changed : {&key, &text, &path}) changed->assign(changed->size(), L'!');
        std::fill(std::begin(bytes), std::end(bytes), uint8_t{0xFF});
        EXPECT_EQ(before, scene.Text());
        EXPECT_EQ(std::wstring::npos, before.find(L'!'));
    }
}

TEST(BuildingTexts, OverwrittenOnesAreCopiedToo) {
    for (const Item& item : {StringItem(L""), TextVariant(L"")}) {
        Scene scene;
        EXPECT_EQ(1, Add(scene, item, NamedBy::kHandle, true));
        std::wstring text = L"second";
        Item second = item;
        second.payload.text = text.c_str();
        second.payload.variant.text = text.c_str();
        EXPECT_EQ(1, Add(scene, second, NamedBy::kHandle, true));
        text = L"!";
        EXPECT_EQ(L"second", TextIn(Added(scene, true)));
    }
}

/// Bytes as the platform writes them; nothing where it refuses them.
std::optional<std::wstring> PlatformEncode(const std::string& bytes) {
    constexpr DWORD kOneLine = CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF;
    static const auto encode =
        reinterpret_cast<decltype(CryptBinaryToStringW)*>(reinterpret_cast<void*>(
            GetProcAddress(LoadLibraryW(L"crypt32.dll"), "CryptBinaryToStringW")));
    const auto* data = reinterpret_cast<const BYTE*>(bytes.data());
    const auto size = static_cast<DWORD>(bytes.size());
    DWORD count = 0;
    if (!encode(data, size, kOneLine, nullptr, &count)) return {};
    std::wstring text(count + 1, L'\0');
    if (!encode(data, size, kOneLine, text.data(), &count)) return {};
    return std::wstring(text.c_str());
}

std::string Bytes(size_t size) {
    std::string bytes;
    while (bytes.size() < size) bytes += static_cast<char>(bytes.size() * 167 + 13);
    return bytes;
}

TEST(BuildingTexts, BlobsBecomeBase64) {
    EXPECT_EQ(L"AQID", PlatformEncode("\x01\x02\x03"));
    for (const size_t size : {1u, 2u, 3u, 4u, 47u, 48u, 49u, 64u, 190u, 191u, 192u, 193u, 1000u}) {
        const std::string bytes = Bytes(size);
        const std::wstring expected = support::EncodeBase64(bytes);
        EXPECT_EQ(expected, PlatformEncode(bytes));
        for (const NamedBy naming : kAllNamings) {
            for (const bool keyed : {true, false}) {
                SCOPED_TRACE(testing::Message() << size << " bytes " << NameOf(naming));
                Scene scene;
                EXPECT_EQ(1, Add(scene, BlobItem(bytes), naming, keyed));
                EXPECT_EQ(expected, TextIn(Added(scene, keyed)));
            }
        }
    }
}

/// No bytes at a valid address give what the platform makes of them: a text, or no text at all.
TEST(BuildingTexts, AnEmptyBlob) {
    const std::string bytes;
    const std::optional<std::wstring> text = PlatformEncode(bytes);
    for (const NamedBy naming : kAllNamings) {
        for (const bool keyed : {true, false}) {
            SCOPED_TRACE(testing::Message() << NameOf(naming) << (keyed ? ", keyed" : ""));
            Scene scene;
            const std::wstring before = scene.Text();
            EXPECT_EQ(text ? 1 : -4, Add(scene, BlobItem(bytes), naming, keyed));
            if (text)
                EXPECT_EQ(*text, TextIn(Added(scene, keyed)));
            else
                EXPECT_EQ(before, scene.Text());
        }
    }
}

/// Over a child that has a handle the text is taken without a look, so that none is a fault.
TEST(BuildingTexts, AnEmptyBlobOverAnotherItem) {
    const std::string bytes;
    const std::optional<std::wstring> text = PlatformEncode(bytes);
    for (const NamedBy naming : {NamedBy::kHandle, NamedBy::kPath}) {
        SCOPED_TRACE(NameOf(naming));
        Scene scene;
        EXPECT_EQ(1, Add(scene, StringItem(L"old"), naming, true));
        EXPECT_EQ(text ? 1 : -5, Add(scene, BlobItem(bytes), naming, true));
        EXPECT_EQ(text.value_or(L"old"), TextIn(Added(scene, true)));
    }
}

/// What a smaller blob leaves of a larger one before it is nothing.
TEST(BuildingTexts, BlobsOfAllSizesOneAfterTheOther) {
    for (const NamedBy naming : kAllNamings) {
        Scene scene;
        std::wstring expected = L"[";
        for (const size_t size : {3u, 1u << 20, 1u, 100u, (1u << 20) + 1, 2u}) {
            SCOPED_TRACE(testing::Message() << size << " bytes " << NameOf(naming));
            const std::string bytes = Bytes(size);
            EXPECT_EQ(1, Add(scene, BlobItem(bytes), naming, false));
            if (expected.size() > 1) expected += L",";
            expected += L"\"" + support::EncodeBase64(bytes) + L"\"";
            EXPECT_TRUE(expected + L"]" == TextOf(At(scene.Naming(L"array").reference)));
            EXPECT_NE(std::wstring::npos, scene.Text().find(expected));
        }
    }
}

TEST(BuildingTexts, VariantsGoWhereTheKeySays) {
    for (const NamedBy naming : kAllNamings) {
        for (const Item& item : {NumberVariant(-7), TextVariant(L"t")}) {
            for (const bool keyed : {true, false}) {
                SCOPED_TRACE(item.name + " " + NameOf(naming) + (keyed ? ", keyed" : ""));
                Scene scene;
                EXPECT_EQ(1, Add(scene, item, naming, keyed));
                EXPECT_EQ(StoredText(item, naming), TextOf(Added(scene, keyed)));
                const Operation& operation = AddingOperation(Kind::kVariant, naming, keyed);
                Arguments arguments = scene.Naming(keyed ? L"array" : L"object");
                arguments.payload = item.payload;
                arguments.key = L"k";
                EXPECT_EQ((Answer{-3}), operation.call(scene.Generator(), arguments));
            }
        }
    }
}

/// Only the part of the record that the tag names is looked at.
TEST(BuildingTexts, AVariantWithAWholeNumberIsNoPointer) {
    for (const NamedBy naming : kAllNamings) {
        SCOPED_TRACE(NameOf(naming));
        Scene scene;
        EXPECT_EQ(1, Add(scene, NumberVariant(16), naming, false));
        EXPECT_EQ(1, Add(scene, NumberVariant(0), naming, true));
        EXPECT_EQ(L"16", TextOf(Added(scene, false)));
        EXPECT_EQ(L"0", TextOf(Added(scene, true)));
    }
}

}  // namespace
