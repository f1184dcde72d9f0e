#pragma once

#include <stddef.h>
#include <stdint.h>

#include "IJsonPackageDelegate.h"
#include "JsonVariant.h"
#include "common/MessageCodes.h"
#include "common/ResultCodes.h"
#include "common/ValueCodes.h"

// The name of an operation here, and a macro of <windows.h>, which is back after this header.
#pragma push_macro("LoadString")
#undef LoadString

/// \file
/// The package: a keyed store of JSON values.

namespace QXJSON {

/// A keyed store of JSON values: an object whose members are the keys, in the order in which they
/// were first set.
///
/// Conventions of all operations:
///
/// 1. Results. An operation returns `int`: 1 for success, otherwise 0 or a negative code of
///    ResultCodes.h. The results of an operation are listed in the order of its checks, and the
///    first that applies is returned. "Null output" stands for any output pointer that is null.
///    Outputs are written only on success, unless an operation says what it leaves.
/// 2. Other failures. A failure outside these checks, be it a C++ exception or a processor fault,
///    returns -5 and leaves the package usable. -5 is listed only where it is to be expected.
///    SetDelegate(), the operations that call the delegate (DelegateExport0() to DelegateImport(),
///    SetValueFromDelegate0() to SetValueFromDelegate5(), GetValueToDelegate()) and Release() are
///    not guarded: what the delegate throws reaches the caller.
/// 3. Keys. While the ignore-case flag is not 0 (it starts as 1), a key names the first member that
///    has its length and equals it when ASCII letters are compared without regard to case; all
///    other characters compare exactly. With the flag 0, names compare exactly. Setting an existing
///    key replaces its value; the key keeps its place and the spelling that it was first set with.
/// 4. Lifetime. Keys and values passed in are copied. The text of a string and the name of a key
///    live until that key is changed or removed; the text from GetText(), and from GetValue() for
///    an object or array, until the next call of either; bytes of GetBytes() until the next
///    GetBytes(); bytes of a blob and messages until the next blob, set or read, or message; and
///    none of them longer than until the next load or Release().
/// 5. Units. Texts are zero-terminated UTF-16. Lengths of blobs and bytes count bytes.
/// 6. Threads. Use each package from one thread at a time; different packages are independent.
///
/// \par The name LoadString
/// <windows.h> defines a macro of this name. In a file that includes it, before or after this
/// header, a call of LoadString() becomes one of LoadStringW() or LoadStringA(), which are here for
/// that reason. A class of the host's own that overrides the operation has to `#undef LoadString`
/// first.
///
/// \par Encodings of bytes and files
/// 0 ASCII, everything else escaped as \\uXXXX, no byte-order mark; 1 UTF-16LE, mark FF FE;
/// 2 UTF-8, mark EF BB BF; 3 UTF-16BE, mark FE FF. Marks are written to files only.
///
/// \par What JSON or the encoding cannot represent
/// A number that is not finite ends every output; a surrogate without its other half ends the
/// output of bytes and files. An output that ends early still returns 1: text and bytes are
/// returned up to that point, and a file keeps the whole blocks of 260 bytes before it.
///
/// The order of the operations is the binary contract; new ones may only follow the last. The first
/// seven are those of IJsonPackageDelegate, so that a package can serve as another one's delegate:
/// the exports call this package's own delegate (0 where none is set), and DelegateImport() returns
/// 0.
class IJsonPackage : public IJsonPackageDelegate {
public:
    // ---------------------------------------------------------------------------------------------
    /// \name End of life
    /// \{

    /// Ends the package's life; the pointer and all that it returned are invalid afterwards. The
    /// delegate is not touched. Not guarded.
    /// \return 1
    virtual int Release() = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name What the last load left
    /// An array as the root is an error here, although its load returns 1.
    /// \{

    /// Reports whether the last load left a message code.
    /// \return 1 when it did, otherwise 0, also after a load that returned -5
    virtual int HasError() = 0;

    /// Reports where the last load failed.
    /// \param[out] offset receives the position: bytes of the input, or UTF-16 units for text read
    ///     in the ANSI code page; 0 for the message codes 18 to 22
    /// \return 1; 0 null output
    virtual int GetErrorOffset(size_t* offset) = 0;

    /// Gets the sentence for the last load's message code; "No error." after a successful one. Ends
    /// the lifetime of the last blob.
    /// \param[out] text receives the sentence, which lives until the next blob, message, load or
    ///     Release()
    /// \return 1; 0 null output, or no memory
    virtual int GetErrorMessage(const wchar_t** text) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name The delegate
    /// \{

    /// Stores the delegate. It survives loads. Not guarded.
    /// \param[in] delegate the delegate, which the package does not own and may call until another
    ///     is stored; null for none
    /// \return 1
    virtual int SetDelegate(IJsonPackageDelegate* delegate) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Loading
    /// A load, even a failed one, replaces the whole package; only the ignore-case flag and the
    /// delegate stay. A failed load leaves an empty package. NaN and the infinities are refused.
    /// The old content ends first: a text that this package returned is gone before its load reads
    /// it, as the text to be loaded or as the name of a file. Copy such a text, or load it with
    /// another package.
    /// \{

    /// Replaces the package with the JSON object of a text. Message code 18 for null, 21 for empty
    /// or blank text.
    /// \param[in] text zero-terminated UTF-16 text; it is not used after the call
    /// \return 1 for an object, and for an array although it leaves an empty package and message
    ///     code 22; 0 for text that does not parse, and for any other root, which leaves message
    ///     code 22; -5 where the nesting is too deep for the stack
    virtual int LoadString(const wchar_t* text) = 0;

    /// LoadString(), as a file that includes <windows.h> calls it. Not an operation of its own.
    /// \param[in] text as LoadString()
    /// \return as LoadString()
    int LoadStringW(const wchar_t* text) { return LoadString(text); }
    /// The same where UNICODE is not defined; the text is UTF-16 all the same.
    /// \param[in] text as LoadString()
    /// \return as LoadString()
    int LoadStringA(const wchar_t* text) { return LoadString(text); }

    /// Replaces the package with the JSON object of a file in UTF-8, UTF-16 or UTF-32, recognised
    /// by a byte-order mark or else by the zero bytes among the first four, or in the system's ANSI
    /// code page. Message code 19 for a null name, 20 for a file that does not open, 21 for an
    /// empty or blank one.
    /// \param[in] fileName zero-terminated name of the file
    /// \return as LoadString(); also 0 for a null name and a file that does not open
    virtual int LoadFile(const wchar_t* fileName) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Keys
    /// \{

    /// Counts the keys.
    /// \param[out] count receives the count
    /// \return 1; 0 null output
    virtual int GetKeyCount(uint32_t* count) = 0;

    /// Gets the key at a position.
    /// \param[in] index the position, from 0
    /// \param[out] name receives the key, which lives until it is changed or removed
    /// \return 1; 0 null output, or index not below the count
    virtual int GetKeyName(uint32_t index, const wchar_t** name) = 0;

    /// Reports whether a key exists.
    /// \param[in] key the key
    /// \param[out] found receives true when it does, and false in every other case
    /// \return 1 when it does; -1 null key, 0 null output, 0 no such key
    virtual int ContainsKey(const wchar_t* key, bool* found) = 0;

    /// Removes all keys.
    /// \return 1
    virtual int RemoveAll() = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Values as text, values through the delegate
    /// \{

    /// Gets a string's characters, or the compact JSON of an object or array.
    /// \param[in] key the key
    /// \param[out] text receives the text, or "" with every failure; that of a string lives until
    ///     its key is changed or removed, that of an object or array until the next GetValue() of
    ///     one or GetText()
    /// \return 1; -1 null key, 0 null output, -1 no such key, -3 the value is neither a string nor
    ///     an object nor an array; -5 where the nesting is too deep for the stack
    virtual int GetValue(const wchar_t* key, const wchar_t** text) = 0;

    /// Sets a key to the JSON text that the delegate's DelegateExport5() makes from an object, as
    /// SetValue() does with JSON. Not guarded.
    /// \param[in] key the key
    /// \param[in] object the runtime's object, passed on
    /// \param[in] a passed on
    /// \return the export's result where that is not 1, and 0 where no delegate is set; otherwise
    ///     that of SetValue()
    virtual int SetValueFromDelegate5(const wchar_t* key, void* object, uint32_t a) = 0;

    /// Sets a key to a text as it is, or to the object or array that the text holds as JSON. NaN
    /// and the infinities are refused in JSON.
    /// \param[in] key the key
    /// \param[in] value zero-terminated text, copied
    /// \param[in] valueIsJson whether the text is JSON to be parsed
    /// \return 1; -1 null key, -4 null text, 0 JSON that does not parse, or whose root is neither
    ///     an object nor an array; -5 where the nesting is too deep for the stack
    virtual int SetValue(const wchar_t* key, const wchar_t* value, bool valueIsJson) = 0;

    /// Sets a key to the JSON text that the delegate's DelegateExport0() makes from an object, as
    /// SetValue() does with JSON. Not guarded.
    /// \param[in] key the key
    /// \param[in] object the runtime's object, passed on
    /// \param[in] a,b,c,d,e,f passed on
    /// \return the export's result where that is not 1, and 0 where no delegate is set; otherwise
    ///     that of SetValue()
    virtual int SetValueFromDelegate0(const wchar_t* key, void* object, uint16_t a, uint32_t b,
                                      uint32_t c, uint32_t d, uint32_t e, uint8_t f) = 0;

    /// Sets a key to the JSON text that the delegate's DelegateExport1() makes from an object, as
    /// SetValue() does with JSON. Not guarded.
    /// \param[in] key the key
    /// \param[in] object the runtime's object, passed on
    /// \param[in] a,b,c,d,e passed on
    /// \return the export's result where that is not 1, and 0 where no delegate is set; otherwise
    ///     that of SetValue()
    virtual int SetValueFromDelegate1(const wchar_t* key, void* object, uint8_t a, uint8_t b,
                                      uint8_t c, uint8_t d, uint8_t e) = 0;

    /// Sets a key to the JSON text that the delegate's DelegateExport2() makes from an object, as
    /// SetValue() does with JSON. Not guarded.
    /// \param[in] key the key
    /// \param[in] object the runtime's object, passed on
    /// \param[in] a,b,c passed on
    /// \return the export's result where that is not 1, and 0 where no delegate is set; otherwise
    ///     that of SetValue()
    virtual int SetValueFromDelegate2(const wchar_t* key, void* object, uint16_t a, uint8_t b,
                                      uint8_t c) = 0;

    /// Sets a key to the JSON text that the delegate's DelegateExport3() makes from an object, as
    /// SetValue() does with JSON. Not guarded.
    /// \param[in] key the key
    /// \param[in] object the runtime's object, passed on
    /// \param[in] a,b passed on
    /// \return the export's result where that is not 1, and 0 where no delegate is set; otherwise
    ///     that of SetValue()
    virtual int SetValueFromDelegate3(const wchar_t* key, void* object, uint8_t a, uint8_t b) = 0;

    /// Sets a key to the JSON text that the delegate's DelegateExport4() makes from an object, as
    /// SetValue() does with JSON. Not guarded.
    /// \param[in] key the key
    /// \param[in] object the runtime's object, passed on
    /// \param[in] a passed on
    /// \return the export's result where that is not 1, and 0 where no delegate is set; otherwise
    ///     that of SetValue()
    virtual int SetValueFromDelegate4(const wchar_t* key, void* object, uint8_t a) = 0;

    /// Passes the text that GetValue() gets for a key to the delegate's DelegateImport(). Not
    /// guarded.
    /// \param[in] key the key
    /// \param[in] object the runtime's object, passed on
    /// \param[in] a,b,c,d,e passed on
    /// \return GetValue()'s result where that is not 1, or where no delegate is set; otherwise the
    ///     import's
    virtual int GetValueToDelegate(const wchar_t* key, void* object, uint8_t a, uint64_t b,
                                   uint16_t c, uint32_t d, uint32_t e) = 0;

    /// Removes a key; the keys after it move up by one.
    /// \param[in] key the key
    /// \return 1; -1 null key, 0 no such key
    virtual int RemoveKey(const wchar_t* key) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Output
    /// Packages are written at any depth.
    /// \{

    /// Writes the whole package as compact UTF-16 text.
    /// \param[out] text receives the text, which lives until the next call, GetValue() of an object
    ///     or array, load or Release()
    /// \return 1; 0 null output
    virtual int GetText(const wchar_t** text) = 0;

    /// Writes the whole package as compact text in an encoding, without byte-order mark.
    /// \param[out] data receives the bytes, without terminator, which live until the next call,
    ///     load or Release(); null for an unknown encoding and with -5
    /// \param[out] length receives the count of bytes; untouched where the data is null
    /// \param[in] encoding a JsonOutputEncoding, 0 to 3
    /// \return 1, also for an unknown encoding; 0 null output
    virtual int GetBytes(const void** data, size_t* length, int32_t encoding) = 0;

    /// Writes the package to a file as compact text, after the byte-order mark of its encoding.
    /// What the file held is replaced.
    /// \param[in] fileName zero-terminated name of the file
    /// \param[in] encoding a JsonOutputEncoding, 0 to 3; any other leaves the file empty
    /// \return 1, also when the text could not be written to its end; 0 for a name that is null,
    ///     empty or not readable, and for a file that cannot be used: an existing one must open for
    ///     reading, a new one must be creatable, and either must open for writing. A lack of memory
    ///     (-5) leaves the file as it was
    virtual int SaveToFile(const wchar_t* fileName, int32_t encoding) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name The ignore-case flag
    /// \{

    /// Stores the ignore-case flag. It survives loads.
    /// \param[in] flag 0 to compare keys exactly, anything else to ignore the case of ASCII letters
    /// \return 1
    virtual int SetIgnoreCase(uint32_t flag) = 0;

    /// Gets the ignore-case flag as it was stored.
    /// \param[out] flag receives the flag
    /// \return 1; 0 null output
    virtual int GetIgnoreCase(uint32_t* flag) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Values by type
    /// \{

    /// Reads a string.
    /// \param[in] key the key
    /// \param[out] text receives the characters, which live until the key is changed or removed
    /// \return 1; -1 null key, 0 null output, -1 no such key, -3 the value is not a string
    virtual int GetValueString(const wchar_t* key, const wchar_t** text) = 0;

    /// Sets a key to a string.
    /// \param[in] key the key
    /// \param[in] text zero-terminated text, copied
    /// \return 1; -1 null key, -4 null text
    virtual int SetValueString(const wchar_t* key, const wchar_t* text) = 0;

    /// Reads any number as double.
    /// \param[in] key the key
    /// \param[out] number receives the number
    /// \return 1; -1 null key, 0 null output, -1 no such key, -3 the value is not a number
    virtual int GetValueNumber(const wchar_t* key, double* number) = 0;

    /// Sets a key to a number: a 64-bit integer when it has no fraction and lies within -2^63 to
    /// 2^63 (2^63 itself wraps to -2^63), otherwise a double.
    /// \param[in] key the key
    /// \param[in] number the number; NaN and the infinities are accepted too
    /// \return 1; -1 null key
    virtual int SetValueNumber(const wchar_t* key, double number) = 0;

    /// Reads a boolean.
    /// \param[in] key the key
    /// \param[out] flag receives its value
    /// \return 1; -1 null key, 0 null output, -1 no such key, -3 the value is not a boolean
    virtual int GetValueBoolean(const wchar_t* key, bool* flag) = 0;

    /// Sets a key to a boolean.
    /// \param[in] key the key
    /// \param[in] flag the value
    /// \return 1; -1 null key
    virtual int SetValueBoolean(const wchar_t* key, bool flag) = 0;

    /// Reads a string as a variant.
    /// \param[in] key the key
    /// \param[out] variant receives tag 16384 and the text, which lives until the key is changed or
    ///     removed
    /// \return 1; -1 null key, 0 null output, -1 no such key, -3 the value is not a string
    virtual int GetValueVariant(const wchar_t* key, JsonVariant* variant) = 0;

    /// Sets a key to a variant's text.
    /// \param[in] key the key
    /// \param[in] variant tag 16384 with the text, which is copied
    /// \return 1; -3 null variant, other tag or null text, -1 null key
    virtual int SetValueVariant(const wchar_t* key, const JsonVariant* variant) = 0;

    /// The same operation as GetValueVariant(); hosts use either slot.
    /// \param[in] key the key
    /// \param[out] variant receives tag 16384 and the text, which lives until the key is changed or
    ///     removed
    /// \return as GetValueVariant()
    virtual int GetValueVariantAlias(const wchar_t* key, JsonVariant* variant) = 0;

    /// The same operation as SetValueVariant(); hosts use either slot.
    /// \param[in] key the key
    /// \param[in] variant tag 16384 with the text, which is copied
    /// \return as SetValueVariant()
    virtual int SetValueVariantAlias(const wchar_t* key, const JsonVariant* variant) = 0;

    /// Reads a string, or an integer that fits int64, as a variant.
    /// \param[in] key the key
    /// \param[out] variant receives tag 16384 and the text, which lives until the key is changed or
    ///     removed, or tag 20 and the number
    /// \return 1; -1 null key, 0 null output, -1 no such key, -3 the value is neither
    virtual int GetValueVariantEx(const wchar_t* key, JsonVariant* variant) = 0;

    /// Sets a key to a variant's text or number. The number is set as by SetValueNumber(), as a
    /// double, and keeps no more than 53 bits.
    /// \param[in] key the key
    /// \param[in] variant tag 16384 with the text, which is copied, or tag 20 with the number
    /// \return 1; -3 null variant, other tag or null text, -1 null key
    virtual int SetValueVariantEx(const wchar_t* key, const JsonVariant* variant) = 0;

    /// Reads bytes from a string that holds their base64.
    /// \param[in] key the key
    /// \param[out] data receives the bytes, which live until the next blob, set or read, message,
    ///     load or Release()
    /// \param[out] length receives their count
    /// \return 1; -1 null key, -1 no such key, -3 the value is not a string, 0 null output, -3 the
    ///     string is not base64
    virtual int GetValueBlob(const wchar_t* key, const void** data, uint32_t* length) = 0;

    /// Sets a key to a string that holds the base64 of bytes, in one line.
    /// \param[in] key the key
    /// \param[in] data the bytes
    /// \param[in] length their count
    /// \return 1; -1 null key, -4 null data or length 0, -3 bytes that the system cannot encode as
    ///     base64
    virtual int SetValueBlob(const wchar_t* key, const uint8_t* data, uint32_t length) = 0;

    /// Gets the item type of a value: 0 string, 1 number, 2 boolean, 3 null, 4 object, 5 array.
    /// \param[in] key the key
    /// \param[out] itemType receives the item type
    /// \return 1; -1 null key, 0 null output, -1 no such key
    virtual int GetValueType(const wchar_t* key, uint32_t* itemType) = 0;

    /// \}

protected:
    /// A package is ended by Release() alone.
    ~IJsonPackage() = default;
};

}  // namespace QXJSON

#pragma pop_macro("LoadString")
