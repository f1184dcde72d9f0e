#pragma once

#include "common/MessageCodes.h"

namespace QXJSON {

/// The languages of the catalogue; every number that is not listed means English.
enum MessageLanguage : int {
    kEnglish = 0,
    kJapanese = 1,
    kDanish = 2,
    kDutch = 3,
    kFrench = 4,
    kGerman = 5,
    kItalian = 6,
    kNorwegian = 7,
    kSpanish = 8,
    kSwedish = 9,
};

/// How many languages the catalogue has; their numbers are dense from 0.
constexpr int kLanguageCount = 10;

/// The texts of one language, by message code.
using MessageTable = const wchar_t* const[kMessageCount];

/// The table of a language; the English one for an unknown number.
const MessageTable& MessagesOf(int language);

/// The text of a message code in the process's language, or "" for a code outside the table. It
/// lives as long as the process. The language is fixed by the first request.
const wchar_t* LookUpMessage(int code);

}  // namespace QXJSON
