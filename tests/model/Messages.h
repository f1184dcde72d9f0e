#pragma once

#include <string>

namespace model {

/// How many message codes there are.
constexpr int kMessageTexts = 23;

/// The English sentence of a message code.
const wchar_t* EnglishMessage(int code);

/// The message code of an English sentence; -1 when no code has it.
int CodeOfMessage(const std::wstring& text);

}  // namespace model
