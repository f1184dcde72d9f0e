#pragma once

#include <stdint.h>

#include "common/messages/MessageBuffer.h"

namespace QXJSON {

/// Decodes zero-terminated base64 text into the buffer; `data` and `size` (in bytes) receive the
/// result, which lives until the buffer's next use. kPlainFailure when a pointer is null,
/// kWrongKind when the text is no base64 or there is no memory.
int DecodeBase64(MessageBuffer& buffer, const wchar_t* text, const uint8_t** data, uint32_t* size);

/// Encodes `size` bytes into the buffer as one line of zero-terminated base64 text. kPlainFailure
/// when a pointer is null, kWrongKind when the text would not fit into a buffer (from 1,610,612,734
/// bytes on), the platform cannot encode so many bytes, or there is no memory.
int EncodeBase64(MessageBuffer& buffer, const uint8_t* data, uint32_t size, const wchar_t** text);

}  // namespace QXJSON
