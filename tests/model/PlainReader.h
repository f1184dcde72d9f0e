#pragma once

#include <cstddef>
#include <string>

#include "BuildDocument.h"

namespace model {

using building::Document;
using building::Value;

/// How a family loads: which numbers RapidJSON accepts, and in blocks of which size it reads files.
struct LoadRules {
    bool acceptsNan;      ///< NaN and the infinities are numbers
    bool acceptsAnsiNan;  ///< also in the second attempt, in the ANSI code page
    size_t fileBlock;
};

inline constexpr LoadRules kParserLoads = {true, false, 1024};
inline constexpr LoadRules kGeneratorLoads = {true, true, 2048};
inline constexpr LoadRules kPackageLoads = {false, false, 1024};

/// A source as plain RapidJSON reads it: with its recursive reader and its own detection of
/// encodings. Bytes and files that were read as UTF-8 and are not UTF-8 get a second attempt in the
/// ANSI code page. The error, if there is one, is in the document. The source must not be nested
/// deeper than the stack of the test allows.
Document ReadBytes(const LoadRules& rules, const std::string& bytes);
/// The text ends at its first U+0000, and has no second attempt.
Document ReadText(const LoadRules& rules, const std::wstring& text);
/// The document is null, without an error, where the file does not open.
Document ReadFile(const LoadRules& rules, const wchar_t* name);

/// Well-formed JSON text as a document, with NaN and the infinities as numbers. RapidJSON by
/// default, and so the library, may miss the last digit of a double.
Document Parse(const std::wstring& json);
/// The same with every double as it was written.
Document ParseExactly(const std::wstring& json);

/// Bytes as UTF-16 by the system's active ANSI code page.
std::wstring FromAnsi(const std::string& bytes);

}  // namespace model
