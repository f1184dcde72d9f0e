#pragma once

#include <stdint.h>

#include "JsonVariant.h"
#include "common/ResultCodes.h"

namespace QXJSON {

/// Builds a JSON document item by item, or from parsed JSON, and hands it back as text, bytes or a
/// file.
///
/// Conventions of all operations:
///
/// 1. Results. An operation returns `int`: 1 success, else 0 or a negative code of ResultCodes.h.
///    Outputs are written on success only, and a call that fails changes nothing. The checks run in
///    a fixed order and the first that fails decides: the parent's handle (-2) or path (-10), the
///    parent's existence (-2), a null key (by reference: -1), a null text (-4), a null output
///    pointer (0), the parent's kind (-3).
/// 2. Failures that are no check's, C++ exceptions and processor faults alike, answer -5 and leave
///    the generator usable. Release alone is not guarded.
/// 3. Three families of operations name the place where an item goes. By value reference
///    (`AddObjectValue...`, `AddArrayValue...`): the address of the parent as an operation of this
///    family handed it out, taken back unchecked; only 0 is refused (-2). By item handle
///    (`AddObjectItem...`, `AddArrayItem...`): a number from 1 that the generator issued. By item
///    path (`...ByPath`): the path of the parent, see IJsonParser.h; names in it compare exactly.
///    `AddObject...` adds a member under a key, `AddArray...` appends an element.
/// 4. Repeated keys. By reference, a repeated key makes a second member of the same name. By handle
///    and path, a child that already has a handle is overwritten where it stands and keeps its
///    handle; what was below it is gone, and its handles lead nowhere. A member that never had a
///    handle (one that was loaded, or added by reference) is not noticed: a second member follows.
/// 5. Keys by handle and path. The path under which a handle is remembered is made of the keys as
///    they are: a "/" or "~" inside a key is not escaped, so that such an item's handle leads
///    elsewhere or nowhere. A null key faults (-5), before the parent is looked at by handle.
///    Overwriting a child whose remembered path leads nowhere any more (something above it was
///    overwritten) writes nothing, hands out the handle and answers 1 for containers, booleans,
///    numbers and nulls; for strings, blobs, text variants and grafts it faults (-5).
/// 6. References. Those of containers, nulls, strings and blobs are the address of the new value;
///    an element that is a boolean or a number has, in its place, the address of its array plus 16
///    for each element before it, which is not to be used. Adding to a parent may move its other
///    children, which ends their references.
/// 7. Lifetime. Keys, texts and bytes are copied; the caller may free them on return. Handles live
///    until the next root creation or load or Release.
/// 8. Units. Texts are zero-terminated UTF-16. A path given to an operation must fit into 1024
///    UTF-16 units with its terminator once translated into a JSON Pointer, or the answer is -10;
///    the paths remembered for handles have no limit.
/// 9. Threads. One thread at a time for each generator; different generators are independent.
///
/// Encodings of bytes and files: 0 ASCII, everything else escaped as \uXXXX, no byte-order mark;
/// 1 UTF-16LE, mark FF FE; 2 UTF-8, mark EF BB BF; 3 UTF-16BE, mark FE FF. Marks are written to
/// files only. Numbers that are not finite are written NaN, Infinity and -Infinity but by
/// SaveToFileEx.
///
/// The order of the operations is the binary contract; new ones may only follow the last.
class IJsonGenerator {
public:
    // ---- Roots ---------------------------------------------------------------------------------

    /// Discards everything and starts with an empty object as the root; hands out its reference.
    virtual int ResetRootObjectValue(uint64_t* value) = 0;

    /// The same, and hands out the root's handle, which is always 1.
    virtual int CreateRootObject(uint32_t* handle) = 0;

    /// As ResetRootObjectValue, with an empty array.
    virtual int ResetRootArrayValue(uint64_t* value) = 0;

    /// As CreateRootObject, with an empty array.
    virtual int CreateRootArray(uint32_t* handle) = 0;

    // ---- Containers: an empty object, an empty array -------------------------------------------

    virtual int AddObjectValueObject(uint64_t parent, const wchar_t* key, uint64_t* value) = 0;
    virtual int AddArrayValueObject(uint64_t parent, uint64_t* value) = 0;
    virtual int AddObjectItemObjectByPath(const wchar_t* path, const wchar_t* key,
                                          uint32_t* handle) = 0;
    virtual int AddArrayItemObjectByPath(const wchar_t* path, uint32_t* handle) = 0;
    virtual int AddObjectItemObject(int32_t parent, const wchar_t* key, uint32_t* handle) = 0;
    virtual int AddArrayItemObject(int32_t parent, uint32_t* handle) = 0;

    virtual int AddObjectValueArray(uint64_t parent, const wchar_t* key, uint64_t* value) = 0;
    virtual int AddArrayValueArray(uint64_t parent, uint64_t* value) = 0;
    virtual int AddObjectItemArrayByPath(const wchar_t* path, const wchar_t* key,
                                         uint32_t* handle) = 0;
    virtual int AddArrayItemArrayByPath(const wchar_t* path, uint32_t* handle) = 0;
    virtual int AddObjectItemArray(int32_t parent, const wchar_t* key, uint32_t* handle) = 0;
    virtual int AddArrayItemArray(int32_t parent, uint32_t* handle) = 0;

    // ---- Booleans: any flag but 0 is true ------------------------------------------------------

    virtual int AddObjectValueBoolean(uint64_t parent, const wchar_t* key, uint32_t flag,
                                      uint64_t* value) = 0;
    virtual int AddArrayValueBoolean(uint64_t parent, uint32_t flag, uint64_t* value) = 0;
    virtual int AddObjectItemBooleanByPath(const wchar_t* path, const wchar_t* key, uint32_t flag,
                                           uint32_t* handle) = 0;
    virtual int AddArrayItemBooleanByPath(const wchar_t* path, uint32_t flag, uint32_t* handle) = 0;
    virtual int AddObjectItemBoolean(int32_t parent, const wchar_t* key, uint32_t flag,
                                     uint32_t* handle) = 0;
    virtual int AddArrayItemBoolean(int32_t parent, uint32_t flag, uint32_t* handle) = 0;

    // ---- Numbers -------------------------------------------------------------------------------
    // A float keeps its exact value: 0.1f is written as the double it is. By reference and by
    // handle, a double or float without a fraction from -2^63 to 2^63 is stored as a 64-bit
    // integer, and so written without ".0" (2^63 itself wraps to -2^63); by path it stays a double.

    virtual int AddObjectValueDouble(uint64_t parent, const wchar_t* key, double number,
                                     uint64_t* value) = 0;
    virtual int AddArrayValueDouble(uint64_t parent, double number, uint64_t* value) = 0;
    virtual int AddObjectValueFloat(uint64_t parent, const wchar_t* key, float number,
                                    uint64_t* value) = 0;
    virtual int AddArrayValueFloat(uint64_t parent, float number, uint64_t* value) = 0;
    virtual int AddObjectValueUInt64(uint64_t parent, const wchar_t* key, uint64_t number,
                                     uint64_t* value) = 0;
    virtual int AddArrayValueUInt64(uint64_t parent, uint64_t number, uint64_t* value) = 0;
    virtual int AddObjectValueInt64(uint64_t parent, const wchar_t* key, int64_t number,
                                    uint64_t* value) = 0;
    virtual int AddArrayValueInt64(uint64_t parent, int64_t number, uint64_t* value) = 0;
    virtual int AddObjectValueUInt(uint64_t parent, const wchar_t* key, uint32_t number,
                                   uint64_t* value) = 0;
    virtual int AddArrayValueUInt(uint64_t parent, uint32_t number, uint64_t* value) = 0;
    virtual int AddObjectValueInt(uint64_t parent, const wchar_t* key, int32_t number,
                                  uint64_t* value) = 0;
    virtual int AddArrayValueInt(uint64_t parent, int32_t number, uint64_t* value) = 0;

    // Special numbers. The selector: 0 the integer 0, 1 NaN, 2 Infinity, 3 -Infinity. Any other
    // selector adds nothing and answers 0, once the parent was found.

    virtual int AddObjectItemSpecialNumberByPath(const wchar_t* path, const wchar_t* key,
                                                 uint32_t selector, uint32_t* handle) = 0;
    virtual int AddArrayItemSpecialNumberByPath(const wchar_t* path, uint32_t selector,
                                                uint32_t* handle) = 0;
    virtual int AddObjectItemSpecialNumber(int32_t parent, const wchar_t* key, uint32_t selector,
                                           uint32_t* handle) = 0;
    virtual int AddArrayItemSpecialNumber(int32_t parent, uint32_t selector, uint32_t* handle) = 0;

    virtual int AddObjectItemDoubleByPath(const wchar_t* path, const wchar_t* key, double number,
                                          uint32_t* handle) = 0;
    virtual int AddArrayItemDoubleByPath(const wchar_t* path, double number, uint32_t* handle) = 0;
    virtual int AddObjectItemFloatByPath(const wchar_t* path, const wchar_t* key, float number,
                                         uint32_t* handle) = 0;
    virtual int AddArrayItemFloatByPath(const wchar_t* path, float number, uint32_t* handle) = 0;
    virtual int AddObjectItemUInt64ByPath(const wchar_t* path, const wchar_t* key, uint64_t number,
                                          uint32_t* handle) = 0;
    virtual int AddArrayItemUInt64ByPath(const wchar_t* path, uint64_t number,
                                         uint32_t* handle) = 0;
    virtual int AddObjectItemInt64ByPath(const wchar_t* path, const wchar_t* key, int64_t number,
                                         uint32_t* handle) = 0;
    virtual int AddArrayItemInt64ByPath(const wchar_t* path, int64_t number, uint32_t* handle) = 0;
    virtual int AddObjectItemUIntByPath(const wchar_t* path, const wchar_t* key, uint32_t number,
                                        uint32_t* handle) = 0;
    virtual int AddArrayItemUIntByPath(const wchar_t* path, uint32_t number, uint32_t* handle) = 0;
    virtual int AddObjectItemIntByPath(const wchar_t* path, const wchar_t* key, int32_t number,
                                       uint32_t* handle) = 0;
    virtual int AddArrayItemIntByPath(const wchar_t* path, int32_t number, uint32_t* handle) = 0;
    virtual int AddObjectItemDouble(int32_t parent, const wchar_t* key, double number,
                                    uint32_t* handle) = 0;
    virtual int AddArrayItemDouble(int32_t parent, double number, uint32_t* handle) = 0;
    virtual int AddObjectItemFloat(int32_t parent, const wchar_t* key, float number,
                                   uint32_t* handle) = 0;
    virtual int AddArrayItemFloat(int32_t parent, float number, uint32_t* handle) = 0;
    virtual int AddObjectItemUInt64(int32_t parent, const wchar_t* key, uint64_t number,
                                    uint32_t* handle) = 0;
    virtual int AddArrayItemUInt64(int32_t parent, uint64_t number, uint32_t* handle) = 0;
    virtual int AddObjectItemInt64(int32_t parent, const wchar_t* key, int64_t number,
                                   uint32_t* handle) = 0;
    virtual int AddArrayItemInt64(int32_t parent, int64_t number, uint32_t* handle) = 0;
    virtual int AddObjectItemUInt(int32_t parent, const wchar_t* key, uint32_t number,
                                  uint32_t* handle) = 0;
    virtual int AddArrayItemUInt(int32_t parent, uint32_t number, uint32_t* handle) = 0;
    virtual int AddObjectItemInt(int32_t parent, const wchar_t* key, int32_t number,
                                 uint32_t* handle) = 0;
    virtual int AddArrayItemInt(int32_t parent, int32_t number, uint32_t* handle) = 0;

    // ---- Blobs: `length` bytes, stored as a string that holds their base64 ---------------------
    // A null pointer to the bytes adds nothing and answers 0, before anything else is looked at.

    virtual int AddObjectValueBlob(uint64_t parent, const wchar_t* key, const uint8_t* data,
                                   uint32_t length, uint64_t* value) = 0;
    virtual int AddArrayValueBlob(uint64_t parent, const uint8_t* data, uint32_t length,
                                  uint64_t* value) = 0;
    virtual int AddObjectItemBlobByPath(const wchar_t* path, const wchar_t* key,
                                        const uint8_t* data, uint32_t length, uint32_t* handle) = 0;
    virtual int AddArrayItemBlobByPath(const wchar_t* path, const uint8_t* data, uint32_t length,
                                       uint32_t* handle) = 0;
    virtual int AddObjectItemBlob(int32_t parent, const wchar_t* key, const uint8_t* data,
                                  uint32_t length, uint32_t* handle) = 0;
    virtual int AddArrayItemBlob(int32_t parent, const uint8_t* data, uint32_t length,
                                 uint32_t* handle) = 0;

    // ---- Strings: zero-terminated text, copied -------------------------------------------------
    // A null text answers -4 where the parent exists; under a key that already has a handle it
    // faults (-5).

    virtual int AddObjectValueString(uint64_t parent, const wchar_t* key, const wchar_t* text,
                                     uint64_t* value) = 0;
    virtual int AddArrayValueString(uint64_t parent, const wchar_t* text, uint64_t* value) = 0;
    virtual int AddObjectItemStringByPath(const wchar_t* path, const wchar_t* key,
                                          const wchar_t* text, uint32_t* handle) = 0;
    virtual int AddArrayItemStringByPath(const wchar_t* path, const wchar_t* text,
                                         uint32_t* handle) = 0;
    virtual int AddObjectItemString(int32_t parent, const wchar_t* key, const wchar_t* text,
                                    uint32_t* handle) = 0;
    virtual int AddArrayItemString(int32_t parent, const wchar_t* text, uint32_t* handle) = 0;

    // ---- Nulls ---------------------------------------------------------------------------------

    virtual int AddObjectValueNull(uint64_t parent, const wchar_t* key, uint64_t* value) = 0;
    virtual int AddArrayValueNull(uint64_t parent, uint64_t* value) = 0;
    virtual int AddObjectItemNullByPath(const wchar_t* path, const wchar_t* key,
                                        uint32_t* handle) = 0;
    virtual int AddArrayItemNullByPath(const wchar_t* path, uint32_t* handle) = 0;
    virtual int AddObjectItemNull(int32_t parent, const wchar_t* key, uint32_t* handle) = 0;
    virtual int AddArrayItemNull(int32_t parent, uint32_t* handle) = 0;

    // ---- Variants ------------------------------------------------------------------------------
    // As the Int64 or String operation of the same family and place: under `key`, or appended where
    // the key is null. A tag other than 20 and 16384 adds nothing and answers 0, before anything
    // else.

    virtual int AddValueVariant(uint64_t parent, const wchar_t* key, JsonVariant variant,
                                uint64_t* value) = 0;
    virtual int AddItemVariantByPath(const wchar_t* path, const wchar_t* key, JsonVariant variant,
                                     uint32_t* handle) = 0;
    virtual int AddItemVariant(int32_t parent, const wchar_t* key, JsonVariant variant,
                               uint32_t* handle) = 0;

    // ---- Output --------------------------------------------------------------------------------

    /// Writes the document to a file as compact text, in place of what the file held, behind the
    /// mark of its encoding. 0 for a null or empty name and a file that cannot be used: one that
    /// exists must open for reading, else one must be creatable, and it must open for writing. 1 in
    /// every other case, with the file left empty where the root is no object or array or the
    /// encoding is unknown. -5 where the nesting is too deep for the stack.
    virtual int SaveToFile(const wchar_t* fileName, int32_t encoding) = 0;

    /// The same, indented by four spaces a level. `style` must be 0 or 1, which mean the same; with
    /// any other the file is left empty and the result is 1. A number that is not finite ends the
    /// output: the file keeps the whole blocks of 260 bytes written before it, and the result is 1.
    virtual int SaveToFileEx(const wchar_t* fileName, int32_t encoding, int32_t style) = 0;

    /// Hands out the document as compact UTF-16 text, "" where the root is no object or array. The
    /// text lives until the next call of this operation.
    virtual int GetJsonString(const wchar_t** text) = 0;

    /// Hands out the document as compact text in an encoding: the bytes and their count, without
    /// mark or terminator. 0 where the root is no object or array. An unknown encoding answers 1
    /// with a null pointer and the length untouched. The bytes live until the next call of this
    /// operation.
    virtual int GetJsonBytes(const uint8_t** data, uint64_t* length, int32_t encoding) = 0;

    /// Ends the generator's life; the pointer and all that was handed out are invalid afterwards.
    /// Returns
    /// 1. Not guarded.
    virtual int Release() = 0;

    // ---- Parsed JSON ---------------------------------------------------------------------------
    // Text is zero-terminated UTF-16; files are in UTF-8, UTF-16 or UTF-32, told apart by a
    // byte-order mark or the zero bytes among the first four, or in the system's ANSI code page.
    // NaN, Inf and Infinity count as numbers. The root must be an object or array. A call that
    // fails changes nothing.

    /// Replaces the document by a file's; the root has the handle 1 and all earlier handles end. -3
    /// for a null name, a file that does not open or parse, and a root that is neither object nor
    /// array.
    virtual int LoadJsonFile(const wchar_t* fileName, uint32_t* handle) = 0;

    // Grafts of a file: a copy of its root becomes a member or element. 0 where the parent is of
    // the wrong kind (the file is then not opened); -3 as for LoadJsonFile.

    virtual int AddObjectItemJsonFileByPath(const wchar_t* path, const wchar_t* key,
                                            const wchar_t* fileName, uint32_t* handle) = 0;
    virtual int AddArrayItemJsonFileByPath(const wchar_t* path, const wchar_t* fileName,
                                           uint32_t* handle) = 0;
    virtual int AddObjectItemJsonFile(int32_t parent, const wchar_t* key, const wchar_t* fileName,
                                      uint32_t* handle) = 0;
    virtual int AddArrayItemJsonFile(int32_t parent, const wchar_t* fileName, uint32_t* handle) = 0;

    /// As LoadJsonFile, from text: 0 for text that does not parse, null included; -3 for a root
    /// that is neither object nor array.
    virtual int LoadJsonString(const wchar_t* text, uint32_t* handle) = 0;

    // Grafts of text. 0 where the parent is of the wrong kind or the text does not parse; -3 for a
    // root that is neither object nor array. By path the parent's kind is looked at before the text
    // is parsed, by handle after that.

    virtual int AddObjectItemJsonStringByPath(const wchar_t* path, const wchar_t* key,
                                              const wchar_t* text, uint32_t* handle) = 0;
    virtual int AddArrayItemJsonStringByPath(const wchar_t* path, const wchar_t* text,
                                             uint32_t* handle) = 0;
    virtual int AddObjectItemJsonString(int32_t parent, const wchar_t* key, const wchar_t* text,
                                        uint32_t* handle) = 0;
    virtual int AddArrayItemJsonString(int32_t parent, const wchar_t* text, uint32_t* handle) = 0;

    // ---- Handles and paths ---------------------------------------------------------------------

    /// Writes the item path of an item, zero-terminated, into a buffer with room for 1024 UTF-16
    /// units. A path that needs more writes nothing and answers 0.
    virtual int GetItemPath(int32_t handle, wchar_t* path) = 0;

    /// The handle of the item at `path`, issued on the first request.
    virtual int GetItemHandleByPath(const wchar_t* path, uint32_t* handle) = 0;

protected:
    ~IJsonGenerator() = default;
};

}  // namespace QXJSON
