#pragma once

#include <stdint.h>

#include "JsonVariant.h"
#include "common/MessageCodes.h"
#include "common/ResultCodes.h"
#include "common/ValueCodes.h"

/// \file
/// The parser: loading JSON and reading it.

namespace QXJSON {

/// Loads a JSON document and reads its values one by one.
///
/// Conventions of all operations:
///
/// 1. Results. An operation returns `int`: 1 for success, otherwise 0 or a negative code of
///    ResultCodes.h. The results of an operation are listed in the order of its checks, and the
///    first that applies is returned. "Null output" stands for any output pointer that is null.
///    Outputs are written only on success. The few operations that return `bool` say so.
/// 2. Other failures. A failure outside these checks, be it a C++ exception or a processor fault,
///    returns -5 and leaves the parser usable. -5 is listed only where it is to be expected. The
///    operations that return `bool`, and Release(), let exceptions and faults through to the
///    caller: see ExistsItemByPath().
/// 3. Naming a value. By item handle: a number from 1 that this parser issues on the first request
///    for a value and returns again on later ones; 0 is never a handle. By value reference: the
///    address of the value, used unchecked; only 0 is refused. By item path, in the operations
///    whose names end in ByPath: see "Item paths" below. Some operations take the key of a member
///    of that value as well.
/// 4. Keys. A key names the first member, in document order, whose name has the same length and
///    equals it when ASCII letters are compared without regard to case; all other characters
///    compare exactly. ExistsMemberByPath() and names in item paths compare exactly throughout.
/// 5. Lifetime. Texts, names and bytes that an operation returns belong to the parser. Strings and
///    names live until the next load or Release(); the text of an object or array until the next
///    such text; the bytes of a blob until the next blob or message; and none of them longer than
///    until the next load. Handles and references are invalid after a load, even a failed one:
///    every load starts with a new document.
/// 6. Units. Texts are zero-terminated UTF-16; a string that contains U+0000 is returned whole, but
///    whoever looks for the terminator sees only what comes before it. Indexes count from 0,
///    positions in item paths from 1. Blob sizes are bytes.
/// 7. Threads. Use each parser from one thread at a time; different parsers are independent.
///
/// \par Item paths
/// "/" is the root. Otherwise each segment begins with "/" and names a member by its key or an
/// element by its position from 1, so "/list/1" is the first element of the array "list". A "/"
/// inside a key is written "~/", and a "~" inside a key "~0". What a segment with a digit means
/// depends on its parent: where the parent does not exist, the operation faults (-5). The path as
/// translated for the document (a JSON Pointer of RFC 6901, "~/" as "~1", positions from 0) must
/// fit into 1024 UTF-16 units with its terminator; a longer one returns -10.
///
/// \par Types
/// JsonItemType: 0 string, 1 number, 2 boolean, 3 null, 4 object, 5 array. JsonValueType is the
/// same, except that a number reports the first of these that applies: 6 fits int32, 7 fits uint32,
/// 8 fits int64, 9 fits uint64, 11 stored as double (10 is reserved).
///
/// The order of the operations is the binary contract; new ones may only follow the last.
class IJsonParser {
public:
    // ---------------------------------------------------------------------------------------------
    /// \name Loading
    /// Every load, even a failed one, replaces the document and ends all that was returned before.
    /// The old document ends first: a text that this parser returned is gone before its load reads
    /// it, as the text to be loaded or as the name of a file. Copy such a text, or load it with
    /// another parser.
    /// \{

    /// Loads JSON in UTF-8, UTF-16 or UTF-32, recognised by a byte-order mark or else by the zero
    /// bytes among the first four. Where a string is not valid UTF-8, the whole text is tried again
    /// in the system's ANSI code page. The literals NaN, Inf and Infinity, with or without "-", are
    /// accepted as numbers, but not in ANSI text.
    /// \param[in] text the bytes; no terminator is needed, and they are not used after the call
    /// \param[in] length their count; a zero character ends the text earlier, and nothing after it
    ///     need be readable
    /// \return 1; 0 with the reason in GetErrorMessage(): null text, empty text, a syntax error, or
    ///     a root that is neither object nor array; -5 where the nesting is too deep for the stack
    ///     of the calling thread
    virtual int LoadJsonBytes(const char* text, uint32_t length) = 0;

    /// Loads JSON from UTF-16 text, with or without a leading U+FEFF. As LoadJsonBytes(), but there
    /// is no second attempt in the ANSI code page.
    /// \param[in] text zero-terminated text; it is not used after the call
    /// \return as LoadJsonBytes()
    virtual int LoadJsonString(const wchar_t* text) = 0;

    /// Loads a JSON file, which is read and closed before the call returns. Encodings as for
    /// LoadJsonBytes(). A named pipe loads as well, unless its text is in the ANSI code page. An
    /// empty file reports "The document is empty.", where empty text reports "The string is
    /// empty.".
    /// \param[in] fileName zero-terminated name of the file
    /// \return as LoadJsonBytes(); also 0 for a null name and for a file that does not open
    virtual int LoadJsonFile(const wchar_t* fileName) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name What the last load left
    /// \{

    /// Reports whether the last load left a message code.
    /// \return 1 when it did, otherwise 0, also after a load that returned -5
    virtual int HasError() = 0;

    /// Reports where the last load failed.
    /// \param[out] offset receives the position: bytes of the input, or UTF-16 units for text read
    ///     in the ANSI code page; 0 for the message codes 18 to 22 and a root that is neither
    ///     object nor array
    /// \return 1; 0 null output
    virtual int GetErrorOffset(uint64_t* offset) = 0;

    /// Gets the sentence for the last load's message code; "No error." after a successful one. Ends
    /// the lifetime of the last blob.
    /// \param[out] text receives the sentence, which lives as long as the process
    /// \return 1; 0 null output, or no memory
    virtual int GetErrorMessage(const wchar_t** text) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name From the root to values
    /// A missing member returns 0 here.
    /// \{

    /// Gets the root's reference.
    /// \param[out] value receives the reference
    /// \param[out] valueType receives the value type
    /// \return 1; 0 no object or array is loaded, or null output
    virtual int GetRootValue(uint64_t* value, uint32_t* valueType) = 0;

    /// Gets the root's handle.
    /// \param[out] handle receives the handle
    /// \param[out] itemType receives the item type
    /// \return 1; 0 no object or array is loaded, or null output
    virtual int GetRootItem(uint32_t* handle, uint32_t* itemType) = 0;

    /// Gets the reference of a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] member receives the member's reference
    /// \param[out] valueType receives its value type
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     0 no such member
    virtual int GetMemberValue(uint64_t value, const wchar_t* key, uint64_t* member,
                               uint32_t* valueType) = 0;

    /// Gets the reference of the member or element at a position of a container named by reference.
    /// \param[in] value reference of the object or array
    /// \param[in] index position of the child, from 0, in document order
    /// \param[out] child receives the child's reference
    /// \param[out] valueType receives its value type
    /// \return 1; -2 null reference, 0 null output, -3 the value is not an object or array, 0 index
    ///     not below the count
    virtual int GetChildValue(uint64_t value, uint32_t index, uint64_t* child,
                              uint32_t* valueType) = 0;

    /// Gets the handle of a member of an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[out] handle receives the member's handle
    /// \param[out] itemType receives its item type
    /// \return 1; -10 bad path, -1 null key, 0 null output, -3 the value is not an object, 0 no
    ///     such member
    virtual int GetMemberItemByPath(const wchar_t* path, const wchar_t* key, uint32_t* handle,
                                    uint32_t* itemType) = 0;

    /// Gets the handle of the member or element at a position of a container named by path.
    /// \param[in] path item path of the object or array
    /// \param[in] index position of the child, from 0, in document order
    /// \param[out] handle receives the child's handle
    /// \param[out] itemType receives its item type
    /// \return 1; -10 bad path, 0 null output, -3 the value is not an object or array, 0 index not
    ///     below the count
    virtual int GetChildItemByPath(const wchar_t* path, uint32_t index, uint32_t* handle,
                                   uint32_t* itemType) = 0;

    /// Gets the handle of a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] member receives the member's handle
    /// \param[out] itemType receives its item type
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     0 no such member
    virtual int GetMemberItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                              uint32_t* itemType) = 0;

    /// Gets the handle of the member or element at a position of a container named by handle.
    /// \param[in] handle handle of the object or array
    /// \param[in] index position of the child, from 0, in document order
    /// \param[out] child receives the child's handle
    /// \param[out] itemType receives its item type
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not an object or array, 0 index
    ///     not below the count
    virtual int GetChildItem(uint32_t handle, uint32_t index, uint32_t* child,
                             uint32_t* itemType) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Names, counts, types
    /// \{

    /// Gets the key of the member at a position of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] index position of the member, from 0, in document order
    /// \param[out] name receives the key, which lives until the next load or Release()
    /// \return 1; -2 null reference, 0 null output, -3 the value is not an object, 0 index not
    ///     below the count
    virtual int GetMemberNameOfValue(uint64_t value, uint32_t index, const wchar_t** name) = 0;

    /// Gets the key of the member at a position of an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] index position of the member, from 0, in document order
    /// \param[out] name receives the key, which lives until the next load or Release()
    /// \return 1; -10 bad path, 0 null output, -3 the value is not an object, 0 index not below the
    ///     count
    virtual int GetMemberNameByPath(const wchar_t* path, uint32_t index, const wchar_t** name) = 0;

    /// Gets the key of the member at a position of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] index position of the member, from 0, in document order
    /// \param[out] name receives the key, which lives until the next load or Release()
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not an object, 0 index not
    ///     below the count
    virtual int GetMemberName(uint32_t handle, uint32_t index, const wchar_t** name) = 0;

    /// Counts the members or elements of a container named by reference.
    /// \param[in] value reference of the object or array
    /// \param[out] count receives the count
    /// \return 1; -2 null reference, 0 null output, -3 the value is not an object or array
    virtual int GetChildCountOfValue(uint64_t value, uint32_t* count) = 0;

    /// Counts the members or elements of a container named by path.
    /// \param[in] path item path of the object or array
    /// \param[out] count receives the count
    /// \return 1; -10 bad path, 0 null output, -3 the value is not an object or array
    virtual int GetChildCountByPath(const wchar_t* path, uint32_t* count) = 0;

    /// Counts the members or elements of a container named by handle.
    /// \param[in] handle handle of the object or array
    /// \param[out] count receives the count
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not an object or array
    virtual int GetChildCount(uint32_t handle, uint32_t* count) = 0;

    /// Gets the value type of a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] valueType receives the value type
    /// \return 1; -2 null reference, 0 null output
    virtual int GetValueType(uint64_t value, uint32_t* valueType) = 0;

    /// Gets the item type of a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] itemType receives the item type
    /// \return 1; -10 bad path, 0 null output
    virtual int GetItemTypeByPath(const wchar_t* path, uint32_t* itemType) = 0;

    /// Gets the item type of a member of an object named by handle. The member receives a handle,
    /// as from GetMemberItem().
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] itemType receives the item type
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     0 no such member
    virtual int GetMemberItemType(uint32_t handle, const wchar_t* key, uint32_t* itemType) = 0;

    /// Gets the item type of a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] itemType receives the item type
    /// \return 1; -2 unknown handle, 0 null output
    virtual int GetItemType(uint32_t handle, uint32_t* itemType) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Booleans
    /// From here to the strings, a getter by key returns -1 for a missing member.
    /// \{

    /// Reads a boolean from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] flag receives 1 for true, 0 for false
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not a boolean
    virtual int GetMemberBooleanOfValue(uint64_t value, const wchar_t* key, uint32_t* flag) = 0;

    /// Reads a boolean from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] flag receives 1 for true, 0 for false
    /// \return 1; -2 null reference, 0 null output, -3 the value is not a boolean
    virtual int GetValueBoolean(uint64_t value, uint32_t* flag) = 0;

    /// Reads a boolean from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] flag receives 1 for true, 0 for false
    /// \return 1; -10 bad path, 0 null output, -3 the value is not a boolean
    virtual int GetItemBooleanByPath(const wchar_t* path, uint32_t* flag) = 0;

    /// Reads a boolean from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] flag receives 1 for true, 0 for false
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not a boolean
    virtual int GetMemberBoolean(uint32_t handle, const wchar_t* key, uint32_t* flag) = 0;

    /// Reads a boolean from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] flag receives 1 for true, 0 for false
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not a boolean
    virtual int GetItemBoolean(uint32_t handle, uint32_t* flag) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Numbers
    /// Double and float getters accept any number and convert it (to double, then to float).
    /// Integer getters accept a number that was read as an integer and fits their width: 5.0 is not
    /// an integer.
    /// \{

    /// Reads a number as double from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not a number
    virtual int GetMemberDoubleOfValue(uint64_t value, const wchar_t* key, double* number) = 0;

    /// Reads a number as double from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, 0 null output, -3 the value is not a number
    virtual int GetValueDouble(uint64_t value, double* number) = 0;

    /// Reads a number as float from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not a number
    virtual int GetMemberFloatOfValue(uint64_t value, const wchar_t* key, float* number) = 0;

    /// Reads a number as float from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, 0 null output, -3 the value is not a number
    virtual int GetValueFloat(uint64_t value, float* number) = 0;

    /// Reads an unsigned 64-bit integer from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not an integer that fits uint64
    virtual int GetMemberUInt64OfValue(uint64_t value, const wchar_t* key, uint64_t* number) = 0;

    /// Reads an unsigned 64-bit integer from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, 0 null output, -3 the value is not an integer that fits uint64
    virtual int GetValueUInt64(uint64_t value, uint64_t* number) = 0;

    /// Reads a signed 64-bit integer from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not an integer that fits int64
    virtual int GetMemberInt64OfValue(uint64_t value, const wchar_t* key, int64_t* number) = 0;

    /// Reads a signed 64-bit integer from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, 0 null output, -3 the value is not an integer that fits int64
    virtual int GetValueInt64(uint64_t value, int64_t* number) = 0;

    /// Reads an unsigned 32-bit integer from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not an integer that fits uint32
    virtual int GetMemberUIntOfValue(uint64_t value, const wchar_t* key, uint32_t* number) = 0;

    /// Reads an unsigned 32-bit integer from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, 0 null output, -3 the value is not an integer that fits uint32
    virtual int GetValueUInt(uint64_t value, uint32_t* number) = 0;

    /// Reads a signed 32-bit integer from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not an integer that fits int32
    virtual int GetMemberIntOfValue(uint64_t value, const wchar_t* key, int32_t* number) = 0;

    /// Reads a signed 32-bit integer from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] number receives the number
    /// \return 1; -2 null reference, 0 null output, -3 the value is not an integer that fits int32
    virtual int GetValueInt(uint64_t value, int32_t* number) = 0;

    /// Reads a number as double from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] number receives the number
    /// \return 1; -10 bad path, 0 null output, -3 the value is not a number
    virtual int GetItemDoubleByPath(const wchar_t* path, double* number) = 0;

    /// Reads a number as float from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] number receives the number
    /// \return 1; -10 bad path, 0 null output, -3 the value is not a number
    virtual int GetItemFloatByPath(const wchar_t* path, float* number) = 0;

    /// Reads an unsigned 64-bit integer from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] number receives the number
    /// \return 1; -10 bad path, 0 null output, -3 the value is not an integer that fits uint64
    virtual int GetItemUInt64ByPath(const wchar_t* path, uint64_t* number) = 0;

    /// Reads a signed 64-bit integer from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] number receives the number
    /// \return 1; -10 bad path, 0 null output, -3 the value is not an integer that fits int64
    virtual int GetItemInt64ByPath(const wchar_t* path, int64_t* number) = 0;

    /// Reads an unsigned 32-bit integer from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] number receives the number
    /// \return 1; -10 bad path, 0 null output, -3 the value is not an integer that fits uint32
    virtual int GetItemUIntByPath(const wchar_t* path, uint32_t* number) = 0;

    /// Reads a signed 32-bit integer from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] number receives the number
    /// \return 1; -10 bad path, 0 null output, -3 the value is not an integer that fits int32
    virtual int GetItemIntByPath(const wchar_t* path, int32_t* number) = 0;

    /// Reads a number as double from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not a number
    virtual int GetMemberDouble(uint32_t handle, const wchar_t* key, double* number) = 0;

    /// Reads a number as double from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not a number
    virtual int GetItemDouble(uint32_t handle, double* number) = 0;

    /// Reads a number as float from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not a number
    virtual int GetMemberFloat(uint32_t handle, const wchar_t* key, float* number) = 0;

    /// Reads a number as float from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not a number
    virtual int GetItemFloat(uint32_t handle, float* number) = 0;

    /// Reads an unsigned 64-bit integer from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not an integer that fits uint64
    virtual int GetMemberUInt64(uint32_t handle, const wchar_t* key, uint64_t* number) = 0;

    /// Reads an unsigned 64-bit integer from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not an integer that fits uint64
    virtual int GetItemUInt64(uint32_t handle, uint64_t* number) = 0;

    /// Reads a signed 64-bit integer from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not an integer that fits int64
    virtual int GetMemberInt64(uint32_t handle, const wchar_t* key, int64_t* number) = 0;

    /// Reads a signed 64-bit integer from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not an integer that fits int64
    virtual int GetItemInt64(uint32_t handle, int64_t* number) = 0;

    /// Reads an unsigned 32-bit integer from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not an integer that fits uint32
    virtual int GetMemberUInt(uint32_t handle, const wchar_t* key, uint32_t* number) = 0;

    /// Reads an unsigned 32-bit integer from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not an integer that fits uint32
    virtual int GetItemUInt(uint32_t handle, uint32_t* number) = 0;

    /// Reads a signed 32-bit integer from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not an integer that fits int32
    virtual int GetMemberInt(uint32_t handle, const wchar_t* key, int32_t* number) = 0;

    /// Reads a signed 32-bit integer from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] number receives the number
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not an integer that fits int32
    virtual int GetItemInt(uint32_t handle, int32_t* number) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Blobs
    /// A blob is a string that holds base64; these getters return its bytes. They first run the
    /// checks of the string getter of the same name, and only then look at their own outputs and
    /// decode the text.
    /// \{

    /// Reads bytes from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] data receives the bytes, which live until the next blob, message or load
    /// \param[out] size receives their count
    /// \return 1; -2 null reference, -1 null key, -3 the value is not an object, -1 no such member,
    ///     -3 the member is not a string, 0 null output, -3 the string is not base64
    virtual int GetMemberBlobOfValue(uint64_t value, const wchar_t* key, const uint8_t** data,
                                     uint32_t* size) = 0;

    /// Reads bytes from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] data receives the bytes, which live until the next blob, message or load
    /// \param[out] size receives their count
    /// \return 1; -2 null reference, -3 the value is not a string, 0 null output, -3 the string is
    ///     not base64
    virtual int GetValueBlob(uint64_t value, const uint8_t** data, uint32_t* size) = 0;

    /// Reads bytes from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] data receives the bytes, which live until the next blob, message or load
    /// \param[out] size receives their count
    /// \return 1; -10 bad path, -3 the value is not a string, 0 null output, -3 the string is not
    ///     base64
    virtual int GetItemBlobByPath(const wchar_t* path, const uint8_t** data, uint32_t* size) = 0;

    /// Reads bytes from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] data receives the bytes, which live until the next blob, message or load
    /// \param[out] size receives their count
    /// \return 1; -2 unknown handle, -1 null key, -3 the value is not an object, -1 no such member,
    ///     -3 the member is not a string, 0 null output, -3 the string is not base64
    virtual int GetMemberBlob(uint32_t handle, const wchar_t* key, const uint8_t** data,
                              uint32_t* size) = 0;

    /// Reads bytes from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] data receives the bytes, which live until the next blob, message or load
    /// \param[out] size receives their count
    /// \return 1; -2 unknown handle, -3 the value is not a string, 0 null output, -3 the string is
    ///     not base64
    virtual int GetItemBlob(uint32_t handle, const uint8_t** data, uint32_t* size) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Strings
    /// The characters inside the document, zero-terminated.
    /// \{

    /// Reads a string from a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] text receives the characters, which live until the next load or Release()
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not a string
    virtual int GetMemberStringOfValue(uint64_t value, const wchar_t* key,
                                       const wchar_t** text) = 0;

    /// Reads a string from a value named by reference.
    /// \param[in] value reference of the value
    /// \param[out] text receives the characters, which live until the next load or Release()
    /// \return 1; -2 null reference, 0 null output, -3 the value is not a string
    virtual int GetValueString(uint64_t value, const wchar_t** text) = 0;

    /// Reads a string from a value named by path.
    /// \param[in] path item path of the value
    /// \param[out] text receives the characters, which live until the next load or Release()
    /// \return 1; -10 bad path, 0 null output, -3 the value is not a string
    virtual int GetItemStringByPath(const wchar_t* path, const wchar_t** text) = 0;

    /// Reads a string from a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] text receives the characters, which live until the next load or Release()
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -1 no such member, -3 the member is not a string
    virtual int GetMemberString(uint32_t handle, const wchar_t* key, const wchar_t** text) = 0;

    /// Reads a string from a value named by handle.
    /// \param[in] handle handle of the value
    /// \param[out] text receives the characters, which live until the next load or Release()
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not a string
    virtual int GetItemString(uint32_t handle, const wchar_t** text) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Objects and arrays by their kind
    /// No handle is issued where the value is not of the kind that the operation is named after.
    /// \{

    /// Gets the reference of an object that is a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] member receives the member's reference
    /// \param[out] valueType receives its value type
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     0 no such member, or the member is not an object
    virtual int GetMemberObjectValue(uint64_t value, const wchar_t* key, uint64_t* member,
                                     uint32_t* valueType) = 0;

    /// Gets the handle of an object named by path.
    /// \param[in] path item path of the value
    /// \param[out] handle receives the handle
    /// \param[out] itemType receives the item type
    /// \return 1; -10 bad path, 0 null output, or the value is not an object
    virtual int GetObjectItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) = 0;

    /// Gets the handle of an object that is a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] member receives the member's handle
    /// \param[out] itemType receives its item type
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     0 no such member, or the member is not an object
    virtual int GetMemberObjectItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                                    uint32_t* itemType) = 0;

    /// Gets the reference of an array that is a member of an object named by reference.
    /// \param[in] value reference of the object
    /// \param[in] key key of the member
    /// \param[out] member receives the member's reference
    /// \param[out] valueType receives its value type
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the value is not an object,
    ///     0 no such member, or the member is not an array
    virtual int GetMemberArrayValue(uint64_t value, const wchar_t* key, uint64_t* member,
                                    uint32_t* valueType) = 0;

    /// Gets the handle of an array named by path.
    /// \param[in] path item path of the value
    /// \param[out] handle receives the handle
    /// \param[out] itemType receives the item type
    /// \return 1; -10 bad path, 0 null output, or the value is not an array
    virtual int GetArrayItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) = 0;

    /// Gets the handle of an array that is a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] member receives the member's handle
    /// \param[out] itemType receives its item type
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     0 no such member, or the member is not an array
    virtual int GetMemberArrayItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                                   uint32_t* itemType) = 0;

    /// Gets the handle of a value named by path. A path that fails returns -2 here, not -10.
    /// \param[in] path item path of the value
    /// \param[out] handle receives the handle
    /// \return 1; -2 bad path, 0 null output
    virtual int GetItemByPath(const wchar_t* path, uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name The JSON text of an object or array
    /// Compact UTF-16 text, at any depth. Numbers that are not finite are written as NaN, Infinity
    /// and -Infinity. An unknown handle faults here, so it returns -5 and not -2.
    /// \{

    /// Writes the JSON text of an object named by path.
    /// \param[in] path item path of the object
    /// \param[out] text receives the text, which lives until the next such text, load or Release()
    /// \return 1; -10 bad path, 0 null output, or the value is not an object
    virtual int GetObjectJsonByPath(const wchar_t* path, const wchar_t** text) = 0;

    /// Writes the JSON text of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[out] text receives the text, which lives until the next such text, load or Release()
    /// \return 1; -5 unknown handle, 0 null output, or the value is not an object
    virtual int GetObjectJson(uint32_t handle, const wchar_t** text) = 0;

    /// Writes the JSON text of an object that is a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] text receives the text, which lives until the next such text, load or Release()
    /// \return 1; -5 unknown handle, 0 null key or output, the value is not an object, no such
    ///     member, or the member is not an object
    virtual int GetMemberObjectJson(uint32_t handle, const wchar_t* key, const wchar_t** text) = 0;

    /// Writes the JSON text of an array named by path.
    /// \param[in] path item path of the array
    /// \param[out] text receives the text, which lives until the next such text, load or Release()
    /// \return 1; -10 bad path, 0 null output, or the value is not an array
    virtual int GetArrayJsonByPath(const wchar_t* path, const wchar_t** text) = 0;

    /// Writes the JSON text of an array named by handle.
    /// \param[in] handle handle of the array
    /// \param[out] text receives the text, which lives until the next such text, load or Release()
    /// \return 1; -5 unknown handle, 0 null output, or the value is not an array
    virtual int GetArrayJson(uint32_t handle, const wchar_t** text) = 0;

    /// Writes the JSON text of an array that is a member of an object named by handle.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] text receives the text, which lives until the next such text, load or Release()
    /// \return 1; -5 unknown handle, 0 null key or output, the value is not an object, no such
    ///     member, or the member is not an array
    virtual int GetMemberArrayJson(uint32_t handle, const wchar_t* key, const wchar_t** text) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Number classes
    /// 0 an integer or a finite double, 1 NaN, 2 Infinity, 3 -Infinity; JsonNumberClass has names.
    /// \{

    /// Gets the class of a number named by path.
    /// \param[in] path item path of the number
    /// \param[out] numberClass receives the class
    /// \return 1; -10 bad path, 0 null output, -3 the value is not a number
    virtual int GetNumberClassByPath(const wchar_t* path, uint32_t* numberClass) = 0;

    /// Gets the class of a number that is a member of an object named by handle. A missing member
    /// returns -2 here.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \param[out] numberClass receives the class
    /// \return 1; -2 unknown handle, -1 null key, 0 null output, -3 the value is not an object,
    ///     -2 no such member, -3 the member is not a number
    virtual int GetMemberNumberClass(uint32_t handle, const wchar_t* key,
                                     uint32_t* numberClass) = 0;

    /// Gets the class of a number named by handle.
    /// \param[in] handle handle of the number
    /// \param[out] numberClass receives the class
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not a number
    virtual int GetNumberClass(uint32_t handle, uint32_t* numberClass) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Existence
    /// These return bool and are not guarded. A processor fault inside one reaches the caller as it
    /// is: an access violation, which a structured exception handler of the caller can catch. A bad
    /// pointer causes one, and so does a path with a digit in a segment whose parent does not exist
    /// ("/missing/1"). The parser stays usable.
    /// \{

    /// Reports whether a path is well-formed and a value exists at it. Not guarded.
    /// \param[in] path the item path
    /// \return true when one does; false also for a null path
    virtual bool ExistsItemByPath(const wchar_t* path) = 0;

    /// Reports whether an object named by handle has a member. The member receives a handle, as
    /// from GetMemberItem(). Not guarded.
    /// \param[in] handle handle of the object
    /// \param[in] key key of the member
    /// \return true when it has; false also for an unknown handle, a value that is not an object,
    ///     and a null key
    virtual bool ExistsMember(uint32_t handle, const wchar_t* key) = 0;

    /// Reports whether the value named by path is an object with a member of exactly this name: the
    /// case of letters counts here, unlike in ExistsMember(). Not guarded.
    /// \param[in] path item path of the object
    /// \param[in] key exact key of the member
    /// \return true when it is; false also for a path that fails and a null key
    virtual bool ExistsMemberByPath(const wchar_t* path, const wchar_t* key) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Variants
    /// \{

    /// Reads a string, or else a signed 64-bit integer, from a member of an object named by
    /// reference, or from the value itself.
    /// \param[in] value reference of the object, or of the value where the key is null
    /// \param[in] key key of the member; null for the value itself
    /// \param[out] variant receives the text (tag 16384), which lives as a string does, or the
    ///     number (tag 20)
    /// \return 1; -2 null reference, 0 null output, -3 the value is not an object (with a key),
    ///     -1 no such member (with a key), -3 neither a string nor an integer that fits int64
    virtual int GetVariantOfValue(uint64_t value, const wchar_t* key, JsonVariant* variant) = 0;

    /// Reads a string, or else a signed 64-bit integer, from a member of an object named by handle,
    /// or from the value itself.
    /// \param[in] handle handle of the object, or of the value where the key is null
    /// \param[in] key key of the member; null for the value itself
    /// \param[out] variant receives the text (tag 16384), which lives as a string does, or the
    ///     number (tag 20)
    /// \return 1; -2 unknown handle, 0 null output, -3 the value is not an object (with a key),
    ///     -1 no such member (with a key), -3 neither a string nor an integer that fits int64
    virtual int GetItemVariant(uint32_t handle, const wchar_t* key, JsonVariant* variant) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name End of life
    /// \{

    /// Ends the parser's life; the pointer and all that the parser returned are invalid afterwards.
    /// Not guarded.
    /// \return 1
    virtual int Release() = 0;

    /// \}

protected:
    /// A parser is ended by Release() alone.
    ~IJsonParser() = default;
};

}  // namespace QXJSON
