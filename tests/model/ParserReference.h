#pragma once

#include <string>

#include "LoadOutcome.h"

namespace model {

/// What the parser's loads must do: read the source as plain RapidJSON does (PlainReader.h), and
/// apply the parser's few rules about the root and the codes.
support::LoadOutcome ReferenceLoadBytes(const std::string& bytes);
support::LoadOutcome ReferenceLoadText(const std::wstring& text);
support::LoadOutcome ReferenceLoadFile(const wchar_t* fileName);

}  // namespace model
