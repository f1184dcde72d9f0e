#pragma once

#include <rapidjson/document.h>
#include <stdint.h>

#include <string>

#include "Selectors.h"

namespace support {

/// Documents of RapidJSON as it is, and what its own writers make of them: what the generator's
/// outputs are compared with.
using ReferenceDocument = rapidjson::GenericDocument<rapidjson::UTF16<>>;

/// Well-formed JSON text as a document, with NaN and the infinities as numbers.
ReferenceDocument ReferenceParse(const std::wstring& json);

/// An array of one string, which may hold what no JSON text can.
ReferenceDocument ReferenceArrayOf(const std::wstring& text);

/// The document as compact UTF-16 text.
std::wstring ReferenceText(const ReferenceDocument& document);

/// The document as compact text in an encoding, without mark. Where the writer gives up, what it
/// has written until then.
std::string ReferenceBytes(const ReferenceDocument& document, int32_t selector);

/// What a file holds after the document was written to it through a buffer of 260 bytes, behind the
/// mark of its encoding. Only the indenting writer takes exception to NaN and the infinities. Where
/// a writer gives up, what is still in the buffer is lost.
std::string ReferenceFile(const ReferenceDocument& document, int32_t selector, bool indented);

}  // namespace support
