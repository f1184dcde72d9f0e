// The messages of every language.

#include "common/messages/MessageCatalogue.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

#include "Messages.h"

namespace {

using namespace QXJSON;

static_assert(model::kMessageTexts == kMessageCount);

TEST(MessageCatalogue, English) {
    for (int code = 0; code < kMessageCount; ++code) {
        EXPECT_STREQ(model::EnglishMessage(code), MessagesOf(kEnglish)[code]) << "code " << code;
        EXPECT_STREQ(model::EnglishMessage(code), LookUpMessage(code)) << "code " << code;
    }
}

TEST(MessageCatalogue, EveryLanguageHasEveryText) {
    for (int language = 0; language < kLanguageCount; ++language) {
        const MessageTable& texts = MessagesOf(language);
        for (int code = 0; code < kMessageCount; ++code) {
            SCOPED_TRACE(testing::Message() << "language " << language << ", code " << code);
            ASSERT_NE(nullptr, texts[code]);
            EXPECT_NE(L'\0', texts[code][0]);
            if (language == kEnglish) continue;
            EXPECT_STRNE(model::EnglishMessage(code), texts[code]) << "is not translated";
        }
    }
}

/// Every sentence has its full stop, in whatever script, but the last one has none.
TEST(MessageCatalogue, FullStops) {
    for (int language = 0; language < kLanguageCount; ++language) {
        for (int code = 0; code < kMessageCount; ++code) {
            const std::wstring_view text = MessagesOf(language)[code];
            const wchar_t stop = language == kJapanese ? L'\x3002' : L'.';
            EXPECT_EQ(code != kRootNotObject, text.back() == stop)
                << "language " << language << ", code " << code;
        }
    }
}

/// Two codes of one language never share a sentence.
TEST(MessageCatalogue, TextsDiffer) {
    for (int language = 0; language < kLanguageCount; ++language) {
        const MessageTable& texts = MessagesOf(language);
        for (int code = 0; code < kMessageCount; ++code)
            for (int other = 0; other < code; ++other)
                EXPECT_STRNE(texts[other], texts[code])
                    << "language " << language << ", codes " << other << " and " << code;
    }
}

/// The number of each language, by a text that no other language shares.
TEST(MessageCatalogue, NumbersOfLanguages) {
    struct Row {
        int language;
        int code;
        const wchar_t* begin;
    };
    const Row rows[] = {
        {0, 21, L"The string is empty."},
        {1, 13, L"Double"},
        {1, 18, L"json"},
        {2, 21, L"Strengen er tom."},
        {2, 0, L"Ingen fejl."},
        {3, 0, L"Geen fout."},
        {4, 0, L"Il n'y a pas d'erreur."},
        {5, 21, L"Die Zeichenfolge ist leer."},
        {6, 0, L"Nessun errore."},
        {7, 0, L"Ingen feil."},
        {8, 0, L"No hay ning\x00FAn error."},
        {9, 0, L"Inget fel."},
    };
    for (const Row& row : rows) {
        const std::wstring text = MessagesOf(row.language)[row.code];
        EXPECT_EQ(0u, text.find(row.begin)) << "language " << row.language << ", code " << row.code;
    }
}

/// Some sentences of each language to the letter: they are what a host shows to its users.
TEST(MessageCatalogue, SamplesOfTranslations) {
    struct Row {
        int language;
        int code;
        const wchar_t* text;
    };
    const Row rows[] = {
        {kJapanese, 8, L"文字列内の \\u の後の 16 進数が正しくありません。"},
        {kJapanese, 12, L"文字列のエンコードが無効です。"},
        {kJapanese, 16, L"Handler のエラーにより解析を中止しました。"},
        {kJapanese, 18, L"json テキストへのポインターが null です。"},
        {kDanish, 8, L"Ugyldigt hexadecimalt ciffer efter \\u i strengen."},
        {kDanish, 16, L"Fortolkningen blev afbrudt på grund af en fejl i handleren."},
        {kDutch, 17, L"Niet-gespecificeerde syntaxisfout."},
        {kDutch, 20, L"Het bestand bestaat niet."},
        {kFrench, 8, L"Chiffre hexadécimal incorrect après \\u dans la chaîne."},
        {kFrench, 20, L"Le fichier n'existe pas."},
        {kGerman, 2, L"Auf das Stammelement dürfen keine weiteren Werte folgen."},
        {kGerman, 19, L"Der Zeiger auf den Dateinamen ist NULL."},
        {kItalian, 8, L"Cifra esadecimale non valida dopo \\u nella stringa."},
        {kItalian, 18, L"Il puntatore al testo JSON è null."},
        {kNorwegian, 2, L"Roten skal ikke etterfølges av andre verdier."},
        {kNorwegian, 20, L"Filen finnes ikke."},
        {kSpanish, 8, L"Dígito hexadecimal incorrecto después de \\u en la cadena."},
        {kSpanish, 20, L"El archivo no existe."},
        {kSwedish, 8, L"Felaktig hexadecimal siffra efter \\u i strängen."},
        {kSwedish, 18, L"Pekaren till JSON-texten är null."},
    };
    for (const Row& row : rows)
        EXPECT_STREQ(row.text, MessagesOf(row.language)[row.code])
            << "language " << row.language << ", code " << row.code;
}

/// What a sentence names is spelled as it is in JSON, in every language.
TEST(MessageCatalogue, WhatSentencesName) {
    struct Row {
        int code;
        const wchar_t* name;
    };
    const Row rows[] = {
        {kMissingCommaOrBrace, L"'}'"},
        {kMissingCommaOrBracket, L"']'"},
        {kInvalidHexEscape, L"\\u"},
        {kRootNotObject, L"JSON"},
    };
    for (int language = 0; language < kLanguageCount; ++language) {
        for (const Row& row : rows) {
            const std::wstring_view text = MessagesOf(language)[row.code];
            EXPECT_NE(std::wstring_view::npos, text.find(row.name))
                << "language " << language << ", code " << row.code;
        }
    }
}

TEST(MessageCatalogue, UnknownLanguagesAreEnglish) {
    for (const int language : {-1, kLanguageCount, kLanguageCount + 1, 1000, INT_MAX, INT_MIN})
        EXPECT_EQ(&MessagesOf(kEnglish), &MessagesOf(language)) << language;
}

TEST(MessageCatalogue, CodesOutsideTheTableHaveNoText) {
    for (const int code : {-1, -5, kMessageCount, kMessageCount + 1, 1000, INT_MAX, INT_MIN})
        EXPECT_STREQ(L"", LookUpMessage(code)) << code;
}

}  // namespace
