#pragma once

#include <string>

#include "BuildDocument.h"

namespace fuzz {

/// The document of a text that was written, with the doubles that were written. RapidJSON's reader
/// by default, and with it the library's loads, may miss their last digit.
building::Document ParseExactly(const std::wstring& text);

/// What plain RapidJSON makes of well-formed text and writes again.
std::wstring ReadExactly(const std::wstring& text);
std::wstring ReadByDefault(const std::wstring& text);

}  // namespace fuzz
