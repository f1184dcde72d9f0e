#pragma once

#include <stdint.h>

#include "common/MessageCodes.h"
#include "common/values/JsonTypes.h"

namespace QXJSON {

/// How a load stands: its message code, and where it failed.
struct LoadStatus {
    int code = kNoError;
    uint64_t offset = 0;
};

/// What the loads of one family accept, and how they read.
struct TextRules {
    bool acceptNan;         ///< NaN, Inf and Infinity count as numbers
    bool acceptNanInAnsi;   ///< the same for text that was read in the ANSI code page
    size_t fileBufferSize;  ///< bytes read from a file at a time
};

// The one place where text becomes a document.
//
// The encoding is found by RapidJSON's AutoUTFInputStream: a byte-order mark, else the zero bytes
// among the first four, else UTF-8. Bytes and files that prove not to be UTF-8 are read once more
// in the system's ANSI code page. On success the document's root is replaced and the status is 0;
// on failure the root stays as it was, and the status holds RapidJSON's code and offset (in bytes;
// in UTF-16 units for ANSI text) or one of the library's own codes with offset 0. What the root is
// and which codes are replaced is each family's own affair. Attempts that fail leave an empty pool
// empty.
//
// All three throw NestingTooDeep, std::bad_alloc, and ProcessorFault for memory that cannot be
// read.

/// Loads `length` bytes at `data`. Null: kNullText.
LoadStatus LoadBytes(JsonDocument& document, const char* data, uint32_t length,
                     const TextRules& rules);

/// Loads zero-terminated UTF-16 text; it is never read in the ANSI code page. Null: kNullText.
LoadStatus LoadText(JsonDocument& document, const wchar_t* text, const TextRules& rules);

/// Loads a file, which is closed again. It is read once, from its beginning to its end, so that it
/// may be a pipe; a second attempt opens it by its name again. Null: kNullFileName; a file that
/// does not open: kNoSuchFile.
LoadStatus LoadFile(JsonDocument& document, const wchar_t* name, const TextRules& rules);

}  // namespace QXJSON
