#pragma once

#include <stddef.h>
#include <stdint.h>

#include "IJsonPackageDelegate.h"
#include "JsonVariant.h"
#include "common/MessageCodes.h"
#include "common/ResultCodes.h"

namespace QXJSON {

/// A keyed store of JSON values: an object whose members are the keys, in the order in which they
/// were first set.
///
/// Conventions of all operations:
///
/// 1. Results. An operation returns `int`: 1 success, else 0 or a negative code of ResultCodes.h.
///    Outputs are written on success only, except where an operation says what it leaves behind.
///    The checks run in a fixed order and the first that fails decides: a null key (-1), a null
///    value (-4), a null output pointer (0), a missing key (-1 for getters), the kind of the value
///    (-3). A blob's outputs are looked at last of these.
/// 2. Failures that are no check's, C++ exceptions and processor faults alike, answer -5 and leave
///    the package usable. The operations that call the delegate (slots 0 to 6, 11, 19, 21 to 26)
///    and Release are not guarded: what the delegate throws reaches the caller.
/// 3. Keys. While the ignore-case flag is not 0 (it starts as 1), a key names the first member that
///    has its length and equals it when ASCII letters are compared without regard to case; all
///    other characters compare exactly. With the flag 0 names compare exactly. Setting a key that
///    is there replaces its value; the key keeps its place and the spelling that it was first set
///    with.
/// 4. Lifetime. Keys and values given are copied. The text of a string and the name of a key live
///    until that key is changed or removed, or the next load or Release; the text from GetText, and
///    from GetValue for an object or array, until the next call of either; bytes of GetBytes until
///    the next GetBytes; bytes of a blob until the next blob or message.
/// 5. Units. Texts are zero-terminated UTF-16. Lengths of blobs and bytes count bytes.
/// 6. Threads. One thread at a time for each package; different packages are independent.
///
/// A word on <windows.h>: it makes a macro of the name LoadString. A file that includes it before
/// this header calls the operation by the macro's name without noticing; one that includes it after
/// this header must say #undef LoadString.
///
/// Encodings of bytes and files: 0 ASCII, everything else escaped as \\uXXXX, no byte-order mark;
/// 1 UTF-16LE, mark FF FE; 2 UTF-8, mark EF BB BF; 3 UTF-16BE, mark FE FF. Marks are written to
/// files only. A number that is not finite ends the output, which keeps what was written before it.
///
/// The order of the operations is the binary contract; new ones may only follow the last. The first
/// seven are those of IJsonPackageDelegate, so that a package can serve as another one's delegate:
/// the exports go to this package's own delegate (0 where none is set), DelegateImport answers 0.
class IJsonPackage : public IJsonPackageDelegate {
public:
    /// Ends the package's life; the pointer and all that was handed out are invalid afterwards.
    /// Returns 1.
    virtual int Release() = 0;

    // ---- What the last load left ---------------------------------------------------------------

    /// 1 when the last load left a message code, else 0.
    virtual int HasError() = 0;
    /// Where the last load failed: bytes of the input, UTF-16 units for text read in the ANSI code
    /// page, and 0 for the library's own codes.
    virtual int GetErrorOffset(size_t* offset) = 0;
    /// The sentence for the last load's message code, "No error." after a successful one. It lives
    /// until the next blob or message.
    virtual int GetErrorMessage(const wchar_t** text) = 0;

    /// Stores the delegate, which the package does not own; null for none. Returns 1.
    virtual int SetDelegate(IJsonPackageDelegate* delegate) = 0;

    // ---- Loading -------------------------------------------------------------------------------
    // A load replaces the whole package, failed or not; only the ignore-case flag stays. NaN and
    // the infinities are refused. 1 for text whose root is an object or array, else 0. An array
    // leaves an empty package and message code 22, although the result is 1; so does any other
    // root, with 0.

    /// Loads zero-terminated UTF-16 text. Message code 18 for null, 21 for empty text.
    virtual int LoadString(const wchar_t* text) = 0;
    /// Loads a file in UTF-8, UTF-16 or UTF-32, told apart by a byte-order mark or the zero bytes
    /// among the first four, or in the system's ANSI code page. Message code 19 for a null name, 20
    /// for a file that does not open, 21 for an empty one.
    virtual int LoadFile(const wchar_t* fileName) = 0;

    // ---- Keys ----------------------------------------------------------------------------------

    /// How many keys there are.
    virtual int GetKeyCount(uint32_t* count) = 0;
    /// The key at `index`, from 0; 0 when the index is not below the count.
    virtual int GetKeyName(uint32_t index, const wchar_t** name) = 0;
    /// 1, and true in `found`, when the key is there; 0, and false, when it is not.
    virtual int ContainsKey(const wchar_t* key, bool* found) = 0;
    /// Removes all keys.
    virtual int RemoveAll() = 0;

    // ---- Values as text ------------------------------------------------------------------------

    /// A string's characters, or the compact JSON of an object or array; every other kind answers
    /// -3. Every failure leaves "" in `text`.
    virtual int GetValue(const wchar_t* key, const wchar_t** text) = 0;
    /// Sets a key to what the delegate's export 5 makes of the object, as SetValue does with JSON.
    /// The result of the export where that is not 1; 0 where no delegate is set.
    virtual int SetValueFromDelegate5(const wchar_t* key, void* object, uint32_t a) = 0;
    /// Sets a key to a text as it is or, when `valueIsJson`, to the object or array that the text
    /// is the JSON of; 0 when it is none.
    virtual int SetValue(const wchar_t* key, const wchar_t* value, bool valueIsJson) = 0;
    /// As SetValueFromDelegate5, with export 0.
    virtual int SetValueFromDelegate0(const wchar_t* key, void* object, uint16_t a, uint32_t b,
                                      uint32_t c, uint32_t d, uint32_t e, uint8_t f) = 0;
    /// As SetValueFromDelegate5, with export 1.
    virtual int SetValueFromDelegate1(const wchar_t* key, void* object, uint8_t a, uint8_t b,
                                      uint8_t c, uint8_t d, uint8_t e) = 0;
    /// As SetValueFromDelegate5, with export 2.
    virtual int SetValueFromDelegate2(const wchar_t* key, void* object, uint16_t a, uint8_t b,
                                      uint8_t c) = 0;
    /// As SetValueFromDelegate5, with export 3.
    virtual int SetValueFromDelegate3(const wchar_t* key, void* object, uint8_t a, uint8_t b) = 0;
    /// As SetValueFromDelegate5, with export 4.
    virtual int SetValueFromDelegate4(const wchar_t* key, void* object, uint8_t a) = 0;
    /// Gives the text of GetValue to the delegate's import and returns its result. The result of
    /// GetValue where that is not 1, or where no delegate is set.
    virtual int GetValueToDelegate(const wchar_t* key, void* object, uint8_t a, uint64_t b,
                                   uint16_t c, uint32_t d, uint32_t e) = 0;
    /// Removes a key; the keys behind it move up by one. 0 when it is not there.
    virtual int RemoveKey(const wchar_t* key) = 0;

    // ---- Output --------------------------------------------------------------------------------

    /// The whole package as compact UTF-16 text.
    virtual int GetText(const wchar_t** text) = 0;
    /// The whole package as compact text in an encoding: the bytes and their count, without mark or
    /// terminator. An unknown encoding answers 1 with a null pointer and the length untouched.
    virtual int GetBytes(const void** data, size_t* length, int32_t encoding) = 0;
    /// Writes the package to a file as compact text, in place of what the file held, behind the
    /// mark of its encoding. 0 for a null or empty name and a file that cannot be used: one that
    /// exists must open for reading, else one must be creatable, and it must open for writing. 1 in
    /// every other case; an unknown encoding leaves the file empty.
    virtual int SaveToFile(const wchar_t* fileName, int32_t encoding) = 0;

    /// Stores the ignore-case flag.
    virtual int SetIgnoreCase(uint32_t flag) = 0;
    /// The ignore-case flag as it was stored.
    virtual int GetIgnoreCase(uint32_t* flag) = 0;

    // ---- Values by type ------------------------------------------------------------------------

    /// The characters of a string.
    virtual int GetValueString(const wchar_t* key, const wchar_t** text) = 0;
    /// Sets a key to a text.
    virtual int SetValueString(const wchar_t* key, const wchar_t* text) = 0;
    /// Any number, converted to double.
    virtual int GetValueNumber(const wchar_t* key, double* number) = 0;
    /// Sets a key to a number, as a 64-bit integer when it has no fraction and lies within -2^63 to
    /// 2^63 (2^63 itself wraps to -2^63), else as a double.
    virtual int SetValueNumber(const wchar_t* key, double number) = 0;
    /// A boolean.
    virtual int GetValueBoolean(const wchar_t* key, bool* flag) = 0;
    /// Sets a key to a boolean.
    virtual int SetValueBoolean(const wchar_t* key, bool flag) = 0;
    /// A string as a variant with its text.
    virtual int GetValueVariant(const wchar_t* key, JsonVariant* variant) = 0;
    /// As SetValueString with a variant's text; -3 for a null text and any other tag.
    virtual int SetValueVariant(const wchar_t* key, const JsonVariant* variant) = 0;
    /// GetValueVariant once more; hosts use either slot.
    virtual int GetValueVariantAlias(const wchar_t* key, JsonVariant* variant) = 0;
    /// SetValueVariant once more; hosts use either slot.
    virtual int SetValueVariantAlias(const wchar_t* key, const JsonVariant* variant) = 0;
    /// A string as a variant with its text, or a number that fits int64 as one with the number; -3
    /// for everything else.
    virtual int GetValueVariantEx(const wchar_t* key, JsonVariant* variant) = 0;
    /// As SetValueString with a variant's text, or as SetValueNumber with its number converted to
    /// double; -3 for a null text and any other tag.
    virtual int SetValueVariantEx(const wchar_t* key, const JsonVariant* variant) = 0;
    /// The bytes whose base64 the string is; -3 when it is none.
    virtual int GetValueBlob(const wchar_t* key, const void** data, uint32_t* length) = 0;
    /// Sets a key to the base64 of some bytes; -4 when there are none.
    virtual int SetValueBlob(const wchar_t* key, const uint8_t* data, uint32_t length) = 0;

    /// The kind of a value: 0 string, 1 number, 2 boolean, 3 null, 4 object, 5 array.
    virtual int GetValueType(const wchar_t* key, uint32_t* itemType) = 0;

protected:
    ~IJsonPackage() = default;
};

}  // namespace QXJSON
