#pragma once

#include <stdint.h>

#include "JsonVariant.h"
#include "common/MessageCodes.h"
#include "common/ResultCodes.h"

namespace QXJSON {

/// Loads a JSON document and lets its values be read one by one.
///
/// Conventions of all operations:
///
/// 1. Results. An operation returns `int`: 1 success, else 0 or a negative code of ResultCodes.h.
///    Outputs are written on success only. The checks run in a fixed order and the first that fails
///    decides: the place (-2 for an unknown handle or a null reference, -10 for a bad path), a null
///    key (-1), a null output pointer (0), the kind of the value (-3), a missing member or an index
///    out of range, the type asked for (-3). The few operations that return `bool` say so.
/// 2. Failures that are no check's, C++ exceptions and processor faults alike, answer -5 and leave
///    the parser usable. The operations that return `bool`, and Release, let a fault out to the
///    caller: see ExistsItemByPath.
/// 3. Naming a value. By item handle: a number from 1 that this parser issues on the first request
///    for a value and repeats on later ones; 0 is never a handle. By value reference (`...OfValue`,
///    `...Value...`): the address of the value, taken back unchecked; only 0 is refused. By item
///    path (`...ByPath`): see "Item paths" below. Some operations name a member of that value with
///    a key as well.
/// 4. Keys. The member is the first in document order whose name has the key's length and equals it
///    when ASCII letters are compared without regard to case; all other characters compare exactly.
///    ExistsMemberByPath alone compares exactly. Names in item paths compare exactly.
/// 5. Lifetime. Texts, names and bytes handed out belong to the parser. Strings and names live
/// until
///    the next load or Release; the text of an object or array until the next such text; bytes of a
///    blob until the next blob or message. Handles and references are invalid after a load, failed
///    or not: every load starts with a new document.
/// 6. Units. Texts are zero-terminated UTF-16; a string that contains U+0000 is handed out whole,
///    but its reader sees only what stands before it. Indexes count from 0, positions in item paths
///    from 1. Blob sizes are bytes.
/// 7. Threads. One thread at a time for each parser; different parsers are independent.
///
/// Item paths: "/" is the root. Otherwise each segment begins with "/" and names a member by its
/// key or an element by its position from 1, so "/list/1" is the first element of the array "list".
/// A
/// "/" inside a key is written "~/". A segment that contains a digit is looked at together with its
/// parent: where the parent does not exist, the operation faults (-5). The path as translated for
/// the document (RFC 6901 pointer, `~/` as `~1`, positions from 0) must fit into 1024 UTF-16 units
/// with its terminator; a longer one answers -10.
///
/// Item types: 0 string, 1 number, 2 boolean, 3 null, 4 object, 5 array. Value types are the same,
/// but a number reports the first that holds of: 6 fits int32, 7 uint32, 8 int64, 9 uint64, 11
/// stored as double (10 is reserved).
///
/// The order of the operations is the binary contract; new ones may only follow the last.
class IJsonParser {
public:
    // ---- Loading -------------------------------------------------------------------------------

    /// Loads `length` bytes at `text` (no terminator needed) in UTF-8, UTF-16 or UTF-32, told apart
    /// by a byte-order mark or the zero bytes among the first four; text that is not valid UTF-8 is
    /// tried again in the system's ANSI code page. NaN, Inf and Infinity count as numbers, but not
    /// in ANSI text. 1, or 0 with the reason in GetErrorMessage: null text, empty text, a syntax
    /// error, a root that is neither object nor array. -5 where the nesting is too deep for the
    /// stack of the calling thread.
    virtual int LoadJsonBytes(const char* text, uint32_t length) = 0;

    /// Loads zero-terminated UTF-16 text, with or without U+FEFF in front. Results as
    /// LoadJsonBytes; there is no second attempt in the ANSI code page.
    virtual int LoadJsonString(const wchar_t* text) = 0;

    /// Loads a file, read and closed before the call returns. Encodings and results as
    /// LoadJsonBytes; also 0 for a null name and for a file that does not open. An empty file
    /// reports "The document is empty.", where empty text reports "The string is empty.".
    virtual int LoadJsonFile(const wchar_t* fileName) = 0;

    // ---- What the last load left ---------------------------------------------------------------

    /// 1 when the last load failed, else 0.
    virtual int HasError() = 0;

    /// Where the last load failed: bytes of the input, UTF-16 units for text read in the ANSI code
    /// page, and 0 for the message codes 18 to 22 and a root that is neither object nor array.
    virtual int GetErrorOffset(uint64_t* offset) = 0;

    /// The sentence for the last load's message code, "No error." after a successful one. It lives
    /// as long as the process. Ends the lifetime of the last blob.
    virtual int GetErrorMessage(const wchar_t** text) = 0;

    // ---- From the root to values ---------------------------------------------------------------
    // All report 0 for a missing member or an index that is not below the count.

    /// Reference and value type of the root; 0 when there is no document.
    virtual int GetRootValue(uint64_t* value, uint32_t* valueType) = 0;
    /// Handle and item type of the root; 0 when there is no document.
    virtual int GetRootItem(uint32_t* handle, uint32_t* itemType) = 0;
    /// Reference and value type of an object's member.
    virtual int GetMemberValue(uint64_t value, const wchar_t* key, uint64_t* member,
                               uint32_t* valueType) = 0;
    /// Reference and value type of the member or element at `index`.
    virtual int GetChildValue(uint64_t value, uint32_t index, uint64_t* child,
                              uint32_t* valueType) = 0;
    /// Handle and item type of a member of the object at `path`.
    virtual int GetMemberItemByPath(const wchar_t* path, const wchar_t* key, uint32_t* handle,
                                    uint32_t* itemType) = 0;
    /// Handle and item type of the child at `index` of the container at `path`.
    virtual int GetChildItemByPath(const wchar_t* path, uint32_t index, uint32_t* handle,
                                   uint32_t* itemType) = 0;
    /// Handle and item type of an object's member.
    virtual int GetMemberItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                              uint32_t* itemType) = 0;
    /// Handle and item type of the member or element at `index`.
    virtual int GetChildItem(uint32_t handle, uint32_t index, uint32_t* child,
                             uint32_t* itemType) = 0;

    // ---- Names, counts, types ------------------------------------------------------------------

    /// The key of the member at `index`; 0 when the index is not below the count.
    virtual int GetMemberNameOfValue(uint64_t value, uint32_t index, const wchar_t** name) = 0;
    /// As GetMemberNameOfValue, for the object at `path`.
    virtual int GetMemberNameByPath(const wchar_t* path, uint32_t index, const wchar_t** name) = 0;
    /// As GetMemberNameOfValue, for an item.
    virtual int GetMemberName(uint32_t handle, uint32_t index, const wchar_t** name) = 0;
    /// How many members or elements a container has.
    virtual int GetChildCountOfValue(uint64_t value, uint32_t* count) = 0;
    /// As GetChildCountOfValue, for the container at `path`.
    virtual int GetChildCountByPath(const wchar_t* path, uint32_t* count) = 0;
    /// As GetChildCountOfValue, for an item.
    virtual int GetChildCount(uint32_t handle, uint32_t* count) = 0;
    /// The value type of a value.
    virtual int GetValueType(uint64_t value, uint32_t* valueType) = 0;
    /// The item type of the value at `path`.
    virtual int GetItemTypeByPath(const wchar_t* path, uint32_t* itemType) = 0;
    /// The item type of a member, which receives a handle as if by GetMemberItem; 0 when missing.
    virtual int GetMemberItemType(uint32_t handle, const wchar_t* key, uint32_t* itemType) = 0;
    /// The item type of an item.
    virtual int GetItemType(uint32_t handle, uint32_t* itemType) = 0;

    // ---- Booleans: 1 for true, 0 for false -----------------------------------------------------
    // From here to the strings, a getter by key reports -1 for a missing member.

    virtual int GetMemberBooleanOfValue(uint64_t value, const wchar_t* key, uint32_t* flag) = 0;
    virtual int GetValueBoolean(uint64_t value, uint32_t* flag) = 0;
    virtual int GetItemBooleanByPath(const wchar_t* path, uint32_t* flag) = 0;
    virtual int GetMemberBoolean(uint32_t handle, const wchar_t* key, uint32_t* flag) = 0;
    virtual int GetItemBoolean(uint32_t handle, uint32_t* flag) = 0;

    // ---- Numbers -------------------------------------------------------------------------------
    // Double and Float take any number and convert it (to double, then to float); the integer
    // getters take a number that was read as an integer and fits their width. 5.0 is no integer.

    virtual int GetMemberDoubleOfValue(uint64_t value, const wchar_t* key, double* number) = 0;
    virtual int GetValueDouble(uint64_t value, double* number) = 0;
    virtual int GetMemberFloatOfValue(uint64_t value, const wchar_t* key, float* number) = 0;
    virtual int GetValueFloat(uint64_t value, float* number) = 0;
    virtual int GetMemberUInt64OfValue(uint64_t value, const wchar_t* key, uint64_t* number) = 0;
    virtual int GetValueUInt64(uint64_t value, uint64_t* number) = 0;
    virtual int GetMemberInt64OfValue(uint64_t value, const wchar_t* key, int64_t* number) = 0;
    virtual int GetValueInt64(uint64_t value, int64_t* number) = 0;
    virtual int GetMemberUIntOfValue(uint64_t value, const wchar_t* key, uint32_t* number) = 0;
    virtual int GetValueUInt(uint64_t value, uint32_t* number) = 0;
    virtual int GetMemberIntOfValue(uint64_t value, const wchar_t* key, int32_t* number) = 0;
    virtual int GetValueInt(uint64_t value, int32_t* number) = 0;
    virtual int GetItemDoubleByPath(const wchar_t* path, double* number) = 0;
    virtual int GetItemFloatByPath(const wchar_t* path, float* number) = 0;
    virtual int GetItemUInt64ByPath(const wchar_t* path, uint64_t* number) = 0;
    virtual int GetItemInt64ByPath(const wchar_t* path, int64_t* number) = 0;
    virtual int GetItemUIntByPath(const wchar_t* path, uint32_t* number) = 0;
    virtual int GetItemIntByPath(const wchar_t* path, int32_t* number) = 0;
    virtual int GetMemberDouble(uint32_t handle, const wchar_t* key, double* number) = 0;
    virtual int GetItemDouble(uint32_t handle, double* number) = 0;
    virtual int GetMemberFloat(uint32_t handle, const wchar_t* key, float* number) = 0;
    virtual int GetItemFloat(uint32_t handle, float* number) = 0;
    virtual int GetMemberUInt64(uint32_t handle, const wchar_t* key, uint64_t* number) = 0;
    virtual int GetItemUInt64(uint32_t handle, uint64_t* number) = 0;
    virtual int GetMemberInt64(uint32_t handle, const wchar_t* key, int64_t* number) = 0;
    virtual int GetItemInt64(uint32_t handle, int64_t* number) = 0;
    virtual int GetMemberUInt(uint32_t handle, const wchar_t* key, uint32_t* number) = 0;
    virtual int GetItemUInt(uint32_t handle, uint32_t* number) = 0;
    virtual int GetMemberInt(uint32_t handle, const wchar_t* key, int32_t* number) = 0;
    virtual int GetItemInt(uint32_t handle, int32_t* number) = 0;

    // ---- Blobs: a string that holds base64, decoded --------------------------------------------
    // Results of the string getter of the same name, then 0 for a null output pointer, and -3 when
    // the text is no base64. `data`
    // receives the bytes, `size` their count.

    virtual int GetMemberBlobOfValue(uint64_t value, const wchar_t* key, const uint8_t** data,
                                     uint32_t* size) = 0;
    virtual int GetValueBlob(uint64_t value, const uint8_t** data, uint32_t* size) = 0;
    virtual int GetItemBlobByPath(const wchar_t* path, const uint8_t** data, uint32_t* size) = 0;
    virtual int GetMemberBlob(uint32_t handle, const wchar_t* key, const uint8_t** data,
                              uint32_t* size) = 0;
    virtual int GetItemBlob(uint32_t handle, const uint8_t** data, uint32_t* size) = 0;

    // ---- Strings: the characters inside the document -------------------------------------------

    virtual int GetMemberStringOfValue(uint64_t value, const wchar_t* key,
                                       const wchar_t** text) = 0;
    virtual int GetValueString(uint64_t value, const wchar_t** text) = 0;
    virtual int GetItemStringByPath(const wchar_t* path, const wchar_t** text) = 0;
    virtual int GetMemberString(uint32_t handle, const wchar_t* key, const wchar_t** text) = 0;
    virtual int GetItemString(uint32_t handle, const wchar_t** text) = 0;

    // ---- Objects and arrays by their kind ------------------------------------------------------
    // As GetMemberValue, GetMemberItem and GetItemByPath with the item type; 0, and no handle
    // issued, when the value found is not of the kind in the name.

    virtual int GetMemberObjectValue(uint64_t value, const wchar_t* key, uint64_t* member,
                                     uint32_t* valueType) = 0;
    virtual int GetObjectItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) = 0;
    virtual int GetMemberObjectItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                                    uint32_t* itemType) = 0;
    virtual int GetMemberArrayValue(uint64_t value, const wchar_t* key, uint64_t* member,
                                    uint32_t* valueType) = 0;
    virtual int GetArrayItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) = 0;
    virtual int GetMemberArrayItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                                   uint32_t* itemType) = 0;
    /// The handle of the value at `path`. A path that fails answers -2 here, not -10.
    virtual int GetItemByPath(const wchar_t* path, uint32_t* handle) = 0;

    // ---- The JSON text of an object or array ---------------------------------------------------
    // Compact; numbers that are not finite are written NaN, Infinity and -Infinity. 0 when the
    // value is not of the kind in the name (or, by key, the item is no object or has no such
    // member). An unknown handle faults: -5, not -2. -5 as well where the nesting is too deep for
    // the stack.

    virtual int GetObjectJsonByPath(const wchar_t* path, const wchar_t** text) = 0;
    virtual int GetObjectJson(uint32_t handle, const wchar_t** text) = 0;
    virtual int GetMemberObjectJson(uint32_t handle, const wchar_t* key, const wchar_t** text) = 0;
    virtual int GetArrayJsonByPath(const wchar_t* path, const wchar_t** text) = 0;
    virtual int GetArrayJson(uint32_t handle, const wchar_t** text) = 0;
    virtual int GetMemberArrayJson(uint32_t handle, const wchar_t* key, const wchar_t** text) = 0;

    // ---- Number classes: 0 finite, 1 NaN, 2 Infinity, 3 -Infinity ------------------------------

    /// The class of the number at `path`.
    virtual int GetNumberClassByPath(const wchar_t* path, uint32_t* numberClass) = 0;
    /// The class of a member; a missing member answers -2.
    virtual int GetMemberNumberClass(uint32_t handle, const wchar_t* key,
                                     uint32_t* numberClass) = 0;
    /// The class of an item.
    virtual int GetNumberClass(uint32_t handle, uint32_t* numberClass) = 0;

    // ---- Existence -----------------------------------------------------------------------------
    // These return bool and are not guarded. A processor fault inside reaches the caller as the
    // exception that it is: an access violation that a structured exception handler of the caller
    // can catch. It happens for a bad pointer, and for a path with a segment that contains a digit
    // below a parent that does not exist ("/missing/1"). The parser stays usable.

    /// Whether the path is well-formed and a value exists at it.
    virtual bool ExistsItemByPath(const wchar_t* path) = 0;
    /// Whether GetMemberItem would succeed; the member receives a handle as there.
    virtual bool ExistsMember(uint32_t handle, const wchar_t* key) = 0;
    /// Whether the value at `path` is an object with a member named exactly `key`: the case of
    /// letters counts here, unlike everywhere else.
    virtual bool ExistsMemberByPath(const wchar_t* path, const wchar_t* key) = 0;

    // ---- Variants ------------------------------------------------------------------------------

    /// The member (null key: the value itself) as text if it is a string, else as a signed 64-bit
    /// integer; when it is neither, the result of that integer getter.
    virtual int GetVariantOfValue(uint64_t value, const wchar_t* key, JsonVariant* variant) = 0;
    /// As GetVariantOfValue, for an item.
    virtual int GetItemVariant(uint32_t handle, const wchar_t* key, JsonVariant* variant) = 0;

    /// Ends the parser's life; the pointer and all that was handed out are invalid afterwards.
    /// Returns 1. Not guarded.
    virtual int Release() = 0;

protected:
    ~IJsonParser() = default;
};

}  // namespace QXJSON
