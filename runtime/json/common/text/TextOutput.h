#pragma once

#include <string_view>

#include "ByteBuffer.h"
#include "common/ValueCodes.h"
#include "common/values/JsonTypes.h"

namespace QXJSON {

/// The encodings of bytes and files, by the number that the runtime selects them with.
enum OutputEncoding : int32_t {
    kNoOutput = -1,  ///< stands for every number that selects nothing
    kAscii = kEncodingAscii,
    kUtf16Le = kEncodingUtf16Le,
    kUtf8 = kEncodingUtf8,
    kUtf16Be = kEncodingUtf16Be,
};

/// How a document is laid out.
enum class Layout {
    kCompact,        ///< no white space
    kCompactFinite,  ///< the same, but a number that is not finite ends the output
    kIndented,       ///< four spaces a level; a number that is not finite ends the output
};

// A text that ends early (a number that is not finite, a lone surrogate where the encoding has
// none) is the text written up to there.

/// Writes a value as UTF-16 text into a buffer, in place of what the buffer held; whether the text
/// is whole. The text ends with a zero that is not counted.
bool WriteText(const JsonValue& value, Layout layout, JsonTextBuffer& buffer);

/// A document as bytes of one of the encodings; the memory is used again and again.
class EncodedText {
public:
    EncodedText();

    /// Writes a value in place of what was held, without a byte-order mark. The bytes are null for
    /// a number that is no encoding.
    std::string_view Write(const JsonValue& value, Layout layout, int32_t encoding);

private:
    static constexpr size_t kCapacity = 1024;

    ByteBuffer buffer;
};

/// Writes a document to a file, in place of what the file held, after the byte-order mark of the
/// encoding; the whole operation of that name of the interfaces. False when the file cannot be
/// used. A root that is no object or array, or a number that is no encoding, leaves the file empty.
/// All memory is taken before the file is opened: where there is none (std::bad_alloc) the file is
/// what it was.
bool SaveFile(const JsonValue& root, Layout layout, const wchar_t* name, int32_t encoding);

}  // namespace QXJSON
