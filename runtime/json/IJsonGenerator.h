#pragma once

#include <stdint.h>

#include "JsonVariant.h"
#include "common/ResultCodes.h"
#include "common/ValueCodes.h"

/// \file
/// The generator: building JSON and writing it out.

namespace QXJSON {

/// Builds a JSON document item by item, or from parsed JSON, and returns it as text, bytes or a
/// file.
///
/// Conventions of all operations:
///
/// 1. Results. An operation returns `int`: 1 for success, otherwise 0 or a negative code of
///    ResultCodes.h. The results of an operation are listed in the order of its checks, and the
///    first that applies is returned. "Null output" stands for any output pointer that is null.
///    Outputs are written only on success, and a call that fails changes nothing, unless an
///    operation says what it leaves.
/// 2. Other failures. A failure outside these checks, be it a C++ exception or a processor fault,
///    returns -5 and leaves the generator usable. -5 is listed only where it is to be expected.
///    Only Release() is not guarded.
/// 3. Three families of operations name the place where an item goes. By value reference
///    (`AddObjectValue...`, `AddArrayValue...`): the address of the parent as an operation of this
///    family returned it, used unchecked; only 0 is refused. By item handle (`AddObjectItem...`,
///    `AddArrayItem...`): a number from 1 that the generator issued. By item path (`...ByPath`):
///    the path of the parent, see "Item paths" of IJsonParser; names in it compare exactly.
///    `AddObject...` adds a member under a key, `AddArray...` appends an element.
/// 4. Repeated keys. By reference, a repeated key makes a second member of the same name. By handle
///    and path, a child that already has a handle is overwritten in place and keeps its handle;
///    what was below it is gone, and the handles of that lead nowhere. A member that never had a
///    handle (one that was loaded, or added by reference) is not noticed: a second member is added.
///    An element appended at a position whose path already has a handle gets that handle.
/// 5. Checks when overwriting. Where the child has a handle, only these checks follow that of the
///    key: an unknown selector returns 0, a null text faults (-5), a null output returns 0. The
///    parent's existence and kind are not checked (except by grafts). Where the child's remembered
///    path no longer leads anywhere, because something above it was overwritten, containers,
///    booleans, numbers and nulls write nothing, output the handle and return 1; strings, blobs,
///    text variants and grafts fault (-5).
/// 6. Keys by handle and path. The path remembered for a handle is made of the keys as they are: a
///    "/" or "~" inside a key is not escaped, so the handle of such an item leads elsewhere or
///    nowhere. A null key faults (-5).
/// 7. References. The reference of a container, null, string or blob is the address of the new
///    value, and so is that of a boolean or number that is a member. For an element that is a
///    boolean or number, the output is instead the address of its array plus 16 for each element
///    before it, which must not be used as a reference. Adding to a parent may move its other
///    children, which invalidates their references.
/// 8. Lifetime. Keys, texts and bytes are copied; the caller may free them on return. Handles live
///    until the next root creation, successful load or Release().
/// 9. Units. Texts are zero-terminated UTF-16. A path given to an operation must fit into 1024
///    UTF-16 units with its terminator when translated into a JSON Pointer; otherwise the operation
///    returns -10. The paths remembered for handles have no limit.
/// 10. Threads. Use each generator from one thread at a time; different generators are independent.
///
/// \par Handles as parents
/// Operations output a handle as `uint32_t` and take a parent's as `int32_t`: the same number. A
/// handle "leads nowhere" when it was issued but nothing is at its remembered path now.
///
/// \par Encodings of bytes and files
/// 0 ASCII, everything else escaped as \\uXXXX, no byte-order mark; 1 UTF-16LE, mark FF FE;
/// 2 UTF-8, mark EF BB BF; 3 UTF-16BE, mark FE FF. Marks are written to files only.
///
/// \par What JSON or the encoding cannot represent
/// Numbers that are not finite are written as NaN, Infinity and -Infinity, except by
/// SaveToFileEx(), where they end the output. A surrogate without its other half is kept as it is
/// by GetJsonString() and ends every other output. An output that ends early still returns 1: bytes
/// are returned up to that point, and a file keeps the whole blocks of 260 bytes before it.
///
/// The order of the operations is the binary contract; new ones may only follow the last.
class IJsonGenerator {
public:
    // ---------------------------------------------------------------------------------------------
    /// \name Roots
    /// \{

    /// Discards everything, handles included, and starts again with an empty object as the root.
    /// \param[out] value receives the root's reference
    /// \return 1; 0 null output: everything is discarded, and there is no root
    virtual int ResetRootObjectValue(uint64_t* value) = 0;

    /// Discards everything, handles included, and starts again with an empty object as the root.
    /// \param[out] handle receives the root's handle, which is always 1
    /// \return 1; 0 null output: everything is discarded, and there is no root
    virtual int CreateRootObject(uint32_t* handle) = 0;

    /// Discards everything, handles included, and starts again with an empty array as the root.
    /// \param[out] value receives the root's reference
    /// \return 1; 0 null output: everything is discarded, and there is no root
    virtual int ResetRootArrayValue(uint64_t* value) = 0;

    /// Discards everything, handles included, and starts again with an empty array as the root.
    /// \param[out] handle receives the root's handle, which is always 1
    /// \return 1; 0 null output: everything is discarded, and there is no root
    virtual int CreateRootArray(uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Containers
    /// \{

    /// Adds an empty object to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueObject(uint64_t parent, const wchar_t* key, uint64_t* value) = 0;

    /// Appends an empty object to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[out] value receives the element's reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueObject(uint64_t parent, uint64_t* value) = 0;

    /// Adds an empty object to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemObjectByPath(const wchar_t* path, const wchar_t* key,
                                          uint32_t* handle) = 0;

    /// Appends an empty object to an array named by path.
    /// \param[in] path item path of the array
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemObjectByPath(const wchar_t* path, uint32_t* handle) = 0;

    /// Adds an empty object to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemObject(int32_t parent, const wchar_t* key, uint32_t* handle) = 0;

    /// Appends an empty object to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemObject(int32_t parent, uint32_t* handle) = 0;

    /// Adds an empty array to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueArray(uint64_t parent, const wchar_t* key, uint64_t* value) = 0;

    /// Appends an empty array to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[out] value receives the element's reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueArray(uint64_t parent, uint64_t* value) = 0;

    /// Adds an empty array to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemArrayByPath(const wchar_t* path, const wchar_t* key,
                                         uint32_t* handle) = 0;

    /// Appends an empty array to an array named by path.
    /// \param[in] path item path of the array
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemArrayByPath(const wchar_t* path, uint32_t* handle) = 0;

    /// Adds an empty array to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemArray(int32_t parent, const wchar_t* key, uint32_t* handle) = 0;

    /// Appends an empty array to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemArray(int32_t parent, uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Booleans
    /// \{

    /// Adds a boolean to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] flag 0 for false, anything else for true
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueBoolean(uint64_t parent, const wchar_t* key, uint32_t flag,
                                      uint64_t* value) = 0;

    /// Appends a boolean to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[in] flag 0 for false, anything else for true
    /// \param[out] value receives the address of the array plus 16 for each element before the new
    ///     one, which is not a reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueBoolean(uint64_t parent, uint32_t flag, uint64_t* value) = 0;

    /// Adds a boolean to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] flag 0 for false, anything else for true
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemBooleanByPath(const wchar_t* path, const wchar_t* key, uint32_t flag,
                                           uint32_t* handle) = 0;

    /// Appends a boolean to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] flag 0 for false, anything else for true
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemBooleanByPath(const wchar_t* path, uint32_t flag, uint32_t* handle) = 0;

    /// Adds a boolean to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] flag 0 for false, anything else for true
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemBoolean(int32_t parent, const wchar_t* key, uint32_t flag,
                                     uint32_t* handle) = 0;

    /// Appends a boolean to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] flag 0 for false, anything else for true
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemBoolean(int32_t parent, uint32_t flag, uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Numbers
    /// A float keeps its exact value: 0.1f is written as the double it is. By reference and by
    /// handle, a double or float without a fraction from -2^63 to 2^63 is stored as a 64-bit
    /// integer, and so written without ".0" (2^63 itself wraps to -2^63); by path it stays a
    /// double.
    /// \{

    /// Adds a double to an object named by reference. A number without a fraction from -2^63 to
    /// 2^63 is stored as a 64-bit integer.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] number the number; NaN and the infinities are accepted too
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueDouble(uint64_t parent, const wchar_t* key, double number,
                                     uint64_t* value) = 0;

    /// Appends a double to an array named by reference. A number without a fraction from -2^63 to
    /// 2^63 is stored as a 64-bit integer.
    /// \param[in] parent reference of the array
    /// \param[in] number the number; NaN and the infinities are accepted too
    /// \param[out] value receives the address of the array plus 16 for each element before the new
    ///     one, which is not a reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueDouble(uint64_t parent, double number, uint64_t* value) = 0;

    /// Adds a float to an object named by reference. A number without a fraction from -2^63 to 2^63
    /// is stored as a 64-bit integer.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] number the number, stored as the double of the same value; NaN and the infinities
    ///     are accepted too
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueFloat(uint64_t parent, const wchar_t* key, float number,
                                    uint64_t* value) = 0;

    /// Appends a float to an array named by reference. A number without a fraction from -2^63 to
    /// 2^63 is stored as a 64-bit integer.
    /// \param[in] parent reference of the array
    /// \param[in] number the number, stored as the double of the same value; NaN and the infinities
    ///     are accepted too
    /// \param[out] value receives the address of the array plus 16 for each element before the new
    ///     one, which is not a reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueFloat(uint64_t parent, float number, uint64_t* value) = 0;

    /// Adds an unsigned 64-bit integer to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueUInt64(uint64_t parent, const wchar_t* key, uint64_t number,
                                     uint64_t* value) = 0;

    /// Appends an unsigned 64-bit integer to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[in] number the number
    /// \param[out] value receives the address of the array plus 16 for each element before the new
    ///     one, which is not a reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueUInt64(uint64_t parent, uint64_t number, uint64_t* value) = 0;

    /// Adds a signed 64-bit integer to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueInt64(uint64_t parent, const wchar_t* key, int64_t number,
                                    uint64_t* value) = 0;

    /// Appends a signed 64-bit integer to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[in] number the number
    /// \param[out] value receives the address of the array plus 16 for each element before the new
    ///     one, which is not a reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueInt64(uint64_t parent, int64_t number, uint64_t* value) = 0;

    /// Adds an unsigned 32-bit integer to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueUInt(uint64_t parent, const wchar_t* key, uint32_t number,
                                   uint64_t* value) = 0;

    /// Appends an unsigned 32-bit integer to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[in] number the number
    /// \param[out] value receives the address of the array plus 16 for each element before the new
    ///     one, which is not a reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueUInt(uint64_t parent, uint32_t number, uint64_t* value) = 0;

    /// Adds a signed 32-bit integer to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueInt(uint64_t parent, const wchar_t* key, int32_t number,
                                  uint64_t* value) = 0;

    /// Appends a signed 32-bit integer to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[in] number the number
    /// \param[out] value receives the address of the array plus 16 for each element before the new
    ///     one, which is not a reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueInt(uint64_t parent, int32_t number, uint64_t* value) = 0;

    /// Adds a special number to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] selector a JsonNumberClass: 0 the integer 0, 1 NaN, 2 Infinity, 3 -Infinity
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 unknown selector or null output, -3 the parent is
    ///     not an object
    virtual int AddObjectItemSpecialNumberByPath(const wchar_t* path, const wchar_t* key,
                                                 uint32_t selector, uint32_t* handle) = 0;

    /// Appends a special number to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] selector a JsonNumberClass: 0 the integer 0, 1 NaN, 2 Infinity, 3 -Infinity
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 unknown selector or null output, -3 the parent is not an array
    virtual int AddArrayItemSpecialNumberByPath(const wchar_t* path, uint32_t selector,
                                                uint32_t* handle) = 0;

    /// Adds a special number to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] selector a JsonNumberClass: 0 the integer 0, 1 NaN, 2 Infinity, 3 -Infinity
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 unknown selector
    ///     or null output, -3 the parent is not an object
    virtual int AddObjectItemSpecialNumber(int32_t parent, const wchar_t* key, uint32_t selector,
                                           uint32_t* handle) = 0;

    /// Appends a special number to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] selector a JsonNumberClass: 0 the integer 0, 1 NaN, 2 Infinity, 3 -Infinity
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle, -2 handle that leads nowhere, 0 unknown selector or null
    ///     output, -3 the parent is not an array
    virtual int AddArrayItemSpecialNumber(int32_t parent, uint32_t selector, uint32_t* handle) = 0;

    /// Adds a double to an object named by path. A number without a fraction stays a double.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] number the number; NaN and the infinities are accepted too
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemDoubleByPath(const wchar_t* path, const wchar_t* key, double number,
                                          uint32_t* handle) = 0;

    /// Appends a double to an array named by path. A number without a fraction stays a double.
    /// \param[in] path item path of the array
    /// \param[in] number the number; NaN and the infinities are accepted too
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemDoubleByPath(const wchar_t* path, double number, uint32_t* handle) = 0;

    /// Adds a float to an object named by path. A number without a fraction stays a double.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] number the number, stored as the double of the same value; NaN and the infinities
    ///     are accepted too
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemFloatByPath(const wchar_t* path, const wchar_t* key, float number,
                                         uint32_t* handle) = 0;

    /// Appends a float to an array named by path. A number without a fraction stays a double.
    /// \param[in] path item path of the array
    /// \param[in] number the number, stored as the double of the same value; NaN and the infinities
    ///     are accepted too
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemFloatByPath(const wchar_t* path, float number, uint32_t* handle) = 0;

    /// Adds an unsigned 64-bit integer to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemUInt64ByPath(const wchar_t* path, const wchar_t* key, uint64_t number,
                                          uint32_t* handle) = 0;

    /// Appends an unsigned 64-bit integer to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] number the number
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemUInt64ByPath(const wchar_t* path, uint64_t number,
                                         uint32_t* handle) = 0;

    /// Adds a signed 64-bit integer to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemInt64ByPath(const wchar_t* path, const wchar_t* key, int64_t number,
                                         uint32_t* handle) = 0;

    /// Appends a signed 64-bit integer to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] number the number
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemInt64ByPath(const wchar_t* path, int64_t number, uint32_t* handle) = 0;

    /// Adds an unsigned 32-bit integer to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemUIntByPath(const wchar_t* path, const wchar_t* key, uint32_t number,
                                        uint32_t* handle) = 0;

    /// Appends an unsigned 32-bit integer to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] number the number
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemUIntByPath(const wchar_t* path, uint32_t number, uint32_t* handle) = 0;

    /// Adds a signed 32-bit integer to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemIntByPath(const wchar_t* path, const wchar_t* key, int32_t number,
                                       uint32_t* handle) = 0;

    /// Appends a signed 32-bit integer to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] number the number
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemIntByPath(const wchar_t* path, int32_t number, uint32_t* handle) = 0;

    /// Adds a double to an object named by handle. A number without a fraction from -2^63 to 2^63
    /// is stored as a 64-bit integer.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] number the number; NaN and the infinities are accepted too
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemDouble(int32_t parent, const wchar_t* key, double number,
                                    uint32_t* handle) = 0;

    /// Appends a double to an array named by handle. A number without a fraction from -2^63 to 2^63
    /// is stored as a 64-bit integer.
    /// \param[in] parent handle of the array
    /// \param[in] number the number; NaN and the infinities are accepted too
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemDouble(int32_t parent, double number, uint32_t* handle) = 0;

    /// Adds a float to an object named by handle. A number without a fraction from -2^63 to 2^63 is
    /// stored as a 64-bit integer.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] number the number, stored as the double of the same value; NaN and the infinities
    ///     are accepted too
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemFloat(int32_t parent, const wchar_t* key, float number,
                                   uint32_t* handle) = 0;

    /// Appends a float to an array named by handle. A number without a fraction from -2^63 to 2^63
    /// is stored as a 64-bit integer.
    /// \param[in] parent handle of the array
    /// \param[in] number the number, stored as the double of the same value; NaN and the infinities
    ///     are accepted too
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemFloat(int32_t parent, float number, uint32_t* handle) = 0;

    /// Adds an unsigned 64-bit integer to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemUInt64(int32_t parent, const wchar_t* key, uint64_t number,
                                    uint32_t* handle) = 0;

    /// Appends an unsigned 64-bit integer to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] number the number
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemUInt64(int32_t parent, uint64_t number, uint32_t* handle) = 0;

    /// Adds a signed 64-bit integer to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemInt64(int32_t parent, const wchar_t* key, int64_t number,
                                   uint32_t* handle) = 0;

    /// Appends a signed 64-bit integer to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] number the number
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemInt64(int32_t parent, int64_t number, uint32_t* handle) = 0;

    /// Adds an unsigned 32-bit integer to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemUInt(int32_t parent, const wchar_t* key, uint32_t number,
                                  uint32_t* handle) = 0;

    /// Appends an unsigned 32-bit integer to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] number the number
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemUInt(int32_t parent, uint32_t number, uint32_t* handle) = 0;

    /// Adds a signed 32-bit integer to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] number the number
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemInt(int32_t parent, const wchar_t* key, int32_t number,
                                 uint32_t* handle) = 0;

    /// Appends a signed 32-bit integer to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] number the number
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemInt(int32_t parent, int32_t number, uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Blobs
    /// Bytes are stored as a string that holds their base64, in one line. The system decides what
    /// zero bytes become: an empty string, or none, which is treated as a null text (-4, and -5
    /// over a child that has a handle).
    /// \{

    /// Adds bytes, as a string that holds their base64, to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] data the bytes; null adds nothing
    /// \param[in] length their count
    /// \param[out] value receives the member's reference
    /// \return 1; 0 null data, -2 null reference, -1 null key, -4 bytes that the system cannot
    ///     encode as base64, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueBlob(uint64_t parent, const wchar_t* key, const uint8_t* data,
                                   uint32_t length, uint64_t* value) = 0;

    /// Appends bytes, as a string that holds their base64, to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[in] data the bytes; null adds nothing
    /// \param[in] length their count
    /// \param[out] value receives the element's reference
    /// \return 1; 0 null data, -2 null reference, -4 bytes that the system cannot encode as base64,
    ///     0 null output, -3 the parent is not an array
    virtual int AddArrayValueBlob(uint64_t parent, const uint8_t* data, uint32_t length,
                                  uint64_t* value) = 0;

    /// Adds bytes, as a string that holds their base64, to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] data the bytes; null adds nothing
    /// \param[in] length their count
    /// \param[out] handle receives the member's handle
    /// \return 1; 0 null data, -10 bad path, -5 null key, -4 bytes that the system cannot encode as
    ///     base64, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemBlobByPath(const wchar_t* path, const wchar_t* key,
                                        const uint8_t* data, uint32_t length, uint32_t* handle) = 0;

    /// Appends bytes, as a string that holds their base64, to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] data the bytes; null adds nothing
    /// \param[in] length their count
    /// \param[out] handle receives the element's handle
    /// \return 1; 0 null data, -10 bad path, -4 bytes that the system cannot encode as base64,
    ///     0 null output, -3 the parent is not an array
    virtual int AddArrayItemBlobByPath(const wchar_t* path, const uint8_t* data, uint32_t length,
                                       uint32_t* handle) = 0;

    /// Adds bytes, as a string that holds their base64, to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] data the bytes; null adds nothing
    /// \param[in] length their count
    /// \param[out] handle receives the member's handle
    /// \return 1; 0 null data, -2 unknown handle, -5 null key, -2 handle that leads nowhere,
    ///     -4 bytes that the system cannot encode as base64, 0 null output, -3 the parent is not an
    ///     object
    virtual int AddObjectItemBlob(int32_t parent, const wchar_t* key, const uint8_t* data,
                                  uint32_t length, uint32_t* handle) = 0;

    /// Appends bytes, as a string that holds their base64, to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] data the bytes; null adds nothing
    /// \param[in] length their count
    /// \param[out] handle receives the element's handle
    /// \return 1; 0 null data, -2 unknown handle or one that leads nowhere, -4 bytes that the
    ///     system cannot encode as base64, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemBlob(int32_t parent, const uint8_t* data, uint32_t length,
                                 uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Strings
    /// A null text under a key that already has a handle faults (-5).
    /// \{

    /// Adds a string to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[in] text zero-terminated text, copied
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, -4 null text, 0 null output, -3 the parent is not
    ///     an object
    virtual int AddObjectValueString(uint64_t parent, const wchar_t* key, const wchar_t* text,
                                     uint64_t* value) = 0;

    /// Appends a string to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[in] text zero-terminated text, copied
    /// \param[out] value receives the element's reference
    /// \return 1; -2 null reference, -4 null text, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueString(uint64_t parent, const wchar_t* text, uint64_t* value) = 0;

    /// Adds a string to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] text zero-terminated text, copied
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, -4 null text, 0 null output, -3 the parent is not an
    ///     object
    virtual int AddObjectItemStringByPath(const wchar_t* path, const wchar_t* key,
                                          const wchar_t* text, uint32_t* handle) = 0;

    /// Appends a string to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] text zero-terminated text, copied
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, -4 null text, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemStringByPath(const wchar_t* path, const wchar_t* text,
                                         uint32_t* handle) = 0;

    /// Adds a string to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] text zero-terminated text, copied
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, -4 null text,
    ///     0 null output, -3 the parent is not an object
    virtual int AddObjectItemString(int32_t parent, const wchar_t* key, const wchar_t* text,
                                    uint32_t* handle) = 0;

    /// Appends a string to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] text zero-terminated text, copied
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, -4 null text, 0 null output, -3 the
    ///     parent is not an array
    virtual int AddArrayItemString(int32_t parent, const wchar_t* text, uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Nulls
    /// \{

    /// Adds a null to an object named by reference.
    /// \param[in] parent reference of the object
    /// \param[in] key key of the member
    /// \param[out] value receives the member's reference
    /// \return 1; -2 null reference, -1 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectValueNull(uint64_t parent, const wchar_t* key, uint64_t* value) = 0;

    /// Appends a null to an array named by reference.
    /// \param[in] parent reference of the array
    /// \param[out] value receives the element's reference
    /// \return 1; -2 null reference, 0 null output, -3 the parent is not an array
    virtual int AddArrayValueNull(uint64_t parent, uint64_t* value) = 0;

    /// Adds a null to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path, -5 null key, 0 null output, -3 the parent is not an object
    virtual int AddObjectItemNullByPath(const wchar_t* path, const wchar_t* key,
                                        uint32_t* handle) = 0;

    /// Appends a null to an array named by path.
    /// \param[in] path item path of the array
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path, 0 null output, -3 the parent is not an array
    virtual int AddArrayItemNullByPath(const wchar_t* path, uint32_t* handle) = 0;

    /// Adds a null to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle, -5 null key, -2 handle that leads nowhere, 0 null output,
    ///     -3 the parent is not an object
    virtual int AddObjectItemNull(int32_t parent, const wchar_t* key, uint32_t* handle) = 0;

    /// Appends a null to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle or one that leads nowhere, 0 null output, -3 the parent is not
    ///     an array
    virtual int AddArrayItemNull(int32_t parent, uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Variants
    /// These do what the Int64 or String operation of the same family does: under a key, or
    /// appended where the key is null.
    /// \{

    /// Adds a variant's number as a signed 64-bit integer, or its text as a string, to an object or
    /// array named by reference.
    /// \param[in] parent reference of the object, or of the array where the key is null
    /// \param[in] key key of the member; null to append an element
    /// \param[in] variant tag 20 with the number, or tag 16384 with the text, which is copied
    /// \param[out] value receives what the operation for the integer or string outputs
    /// \return 1; 0 unknown tag, -2 null reference, -4 null text, 0 null output, -3 the parent is
    ///     not an object (with a key) or not an array (without)
    virtual int AddValueVariant(uint64_t parent, const wchar_t* key, JsonVariant variant,
                                uint64_t* value) = 0;

    /// Adds a variant's number as a signed 64-bit integer, or its text as a string, to an object or
    /// array named by path.
    /// \param[in] path item path of the object, or of the array where the key is null
    /// \param[in] key key of the member; null to append an element
    /// \param[in] variant tag 20 with the number, or tag 16384 with the text, which is copied
    /// \param[out] handle receives the new item's handle
    /// \return 1; 0 unknown tag, -10 bad path, -4 null text, 0 null output, -3 the parent is not an
    ///     object (with a key) or not an array (without)
    virtual int AddItemVariantByPath(const wchar_t* path, const wchar_t* key, JsonVariant variant,
                                     uint32_t* handle) = 0;

    /// Adds a variant's number as a signed 64-bit integer, or its text as a string, to an object or
    /// array named by handle.
    /// \param[in] parent handle of the object, or of the array where the key is null
    /// \param[in] key key of the member; null to append an element
    /// \param[in] variant tag 20 with the number, or tag 16384 with the text, which is copied
    /// \param[out] handle receives the new item's handle
    /// \return 1; 0 unknown tag, -2 unknown handle or one that leads nowhere, -4 null text, 0 null
    ///     output, -3 the parent is not an object (with a key) or not an array (without)
    virtual int AddItemVariant(int32_t parent, const wchar_t* key, JsonVariant variant,
                               uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Output
    /// Documents are written at any depth.
    /// \{

    /// Writes the document to a file as compact text, after the byte-order mark of its encoding.
    /// What the file held is replaced.
    /// \param[in] fileName zero-terminated name of the file
    /// \param[in] encoding a JsonOutputEncoding, 0 to 3; any other leaves the file empty
    /// \return 1, also when the root is not an object or array, which leaves the file empty, and
    ///     when the text could not be written to its end; 0 for a name that is null, empty or not
    ///     readable, and for a file that cannot be used: an existing one must open for reading, a
    ///     new one must be creatable, and either must open for writing. A lack of memory (-5)
    ///     leaves the file as it was
    virtual int SaveToFile(const wchar_t* fileName, int32_t encoding) = 0;

    /// As SaveToFile(), indented by four spaces a level. A number that is not finite ends the
    /// output: the file keeps the whole blocks of 260 bytes before it, and the result is 1.
    /// \param[in] fileName zero-terminated name of the file
    /// \param[in] encoding a JsonOutputEncoding, 0 to 3; any other leaves the file empty
    /// \param[in] style 0 or 1, which mean the same; any other leaves the file empty
    /// \return as SaveToFile()
    virtual int SaveToFileEx(const wchar_t* fileName, int32_t encoding, int32_t style) = 0;

    /// Writes the document as compact UTF-16 text.
    /// \param[out] text receives the text, "" where the root is not an object or array; it lives
    ///     until the next call of this operation, root creation or Release(); null with -5
    /// \return 1; 0 null output
    virtual int GetJsonString(const wchar_t** text) = 0;

    /// Writes the document as compact text in an encoding, without byte-order mark.
    /// \param[out] data receives the bytes, without terminator, which live until the next call of
    ///     this operation, root creation or Release(); null for an unknown encoding, where the root
    ///     is not an object or array, and with -5
    /// \param[out] length receives the count of bytes; untouched where the data is null
    /// \param[in] encoding a JsonOutputEncoding, 0 to 3
    /// \return 1, also for an unknown encoding; 0 null output, or a root that is not an object or
    ///     array
    virtual int GetJsonBytes(const uint8_t** data, uint64_t* length, int32_t encoding) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name End of life
    /// \{

    /// Ends the generator's life; the pointer and all that it returned are invalid afterwards. Not
    /// guarded.
    /// \return 1
    virtual int Release() = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Parsed JSON
    /// Text is zero-terminated UTF-16; files are in UTF-8, UTF-16 or UTF-32, recognised by a
    /// byte-order mark or else by the zero bytes among the first four, or in the system's ANSI code
    /// page. NaN, Inf and Infinity are accepted as numbers. The root must be an object or array.
    /// All return -5 where the nesting is too deep for the stack. A file is opened only once the
    /// parent is found to fit; text is parsed before that where the parent is named by handle. The
    /// text of this generator's own GetJsonString() may be loaded and grafted.
    /// \{

    /// Replaces the document with that of a file. Success ends all earlier handles.
    /// \param[in] fileName zero-terminated name of the file
    /// \param[out] handle receives the root's handle, which is always 1
    /// \return 1; 0 null output, -3 a null name, a file that does not open or parse, or a root that
    ///     is neither object nor array
    virtual int LoadJsonFile(const wchar_t* fileName, uint32_t* handle) = 0;

    /// Adds a copy of a file's root to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] fileName zero-terminated name of the file
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path; 0 null output, or a parent that is not an object; -3 a null name, a
    ///     file that does not open or parse, or a root that is neither object nor array; -5 null
    ///     key
    virtual int AddObjectItemJsonFileByPath(const wchar_t* path, const wchar_t* key,
                                            const wchar_t* fileName, uint32_t* handle) = 0;

    /// Appends a copy of a file's root to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] fileName zero-terminated name of the file
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path; 0 null output, or a parent that is not an array; -3 a null name, a
    ///     file that does not open or parse, or a root that is neither object nor array
    virtual int AddArrayItemJsonFileByPath(const wchar_t* path, const wchar_t* fileName,
                                           uint32_t* handle) = 0;

    /// Adds a copy of a file's root to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] fileName zero-terminated name of the file
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle; 0 null output, or a parent that is not an object or is gone;
    ///     -3 a null name, a file that does not open or parse, or a root that is neither object nor
    ///     array; -5 null key
    virtual int AddObjectItemJsonFile(int32_t parent, const wchar_t* key, const wchar_t* fileName,
                                      uint32_t* handle) = 0;

    /// Appends a copy of a file's root to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] fileName zero-terminated name of the file
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle; 0 null output, or a parent that is not an array or is gone;
    ///     -3 a null name, a file that does not open or parse, or a root that is neither object nor
    ///     array
    virtual int AddArrayItemJsonFile(int32_t parent, const wchar_t* fileName, uint32_t* handle) = 0;

    /// Replaces the document with that of a text. Success ends all earlier handles.
    /// \param[in] text zero-terminated UTF-16 text
    /// \param[out] handle receives the root's handle, which is always 1
    /// \return 1; 0 null output, or text that does not parse, null included; -3 a root that is
    ///     neither object nor array
    virtual int LoadJsonString(const wchar_t* text, uint32_t* handle) = 0;

    /// Adds a copy of a text's root to an object named by path.
    /// \param[in] path item path of the object
    /// \param[in] key key of the member
    /// \param[in] text zero-terminated UTF-16 text
    /// \param[out] handle receives the member's handle
    /// \return 1; -10 bad path; 0 null output, a parent that is not an object, or text that does
    ///     not parse; -3 a root that is neither object nor array; -5 null key
    virtual int AddObjectItemJsonStringByPath(const wchar_t* path, const wchar_t* key,
                                              const wchar_t* text, uint32_t* handle) = 0;

    /// Appends a copy of a text's root to an array named by path.
    /// \param[in] path item path of the array
    /// \param[in] text zero-terminated UTF-16 text
    /// \param[out] handle receives the element's handle
    /// \return 1; -10 bad path; 0 null output, a parent that is not an array, or text that does not
    ///     parse; -3 a root that is neither object nor array
    virtual int AddArrayItemJsonStringByPath(const wchar_t* path, const wchar_t* text,
                                             uint32_t* handle) = 0;

    /// Adds a copy of a text's root to an object named by handle.
    /// \param[in] parent handle of the object
    /// \param[in] key key of the member
    /// \param[in] text zero-terminated UTF-16 text
    /// \param[out] handle receives the member's handle
    /// \return 1; -2 unknown handle; 0 null output, or text that does not parse; -3 a root that is
    ///     neither object nor array; 0 a parent that is not an object or is gone; -5 null key
    virtual int AddObjectItemJsonString(int32_t parent, const wchar_t* key, const wchar_t* text,
                                        uint32_t* handle) = 0;

    /// Appends a copy of a text's root to an array named by handle.
    /// \param[in] parent handle of the array
    /// \param[in] text zero-terminated UTF-16 text
    /// \param[out] handle receives the element's handle
    /// \return 1; -2 unknown handle; 0 null output, or text that does not parse; -3 a root that is
    ///     neither object nor array; 0 a parent that is not an array or is gone
    virtual int AddArrayItemJsonString(int32_t parent, const wchar_t* text, uint32_t* handle) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name Handles and paths
    /// \{

    /// Writes the item path of an item.
    /// \param[in] handle handle of the item
    /// \param[out] path receives the path, zero-terminated; the caller's buffer must have room for
    ///     1024 UTF-16 units
    /// \return 1; -2 unknown handle, 0 null output or a path that needs more room: nothing is
    ///     written
    virtual int GetItemPath(int32_t handle, wchar_t* path) = 0;

    /// Gets the handle of an item, which is issued on the first request.
    /// \param[in] path item path of the item
    /// \param[out] handle receives the handle
    /// \return 1; -10 bad path, 0 null output
    virtual int GetItemHandleByPath(const wchar_t* path, uint32_t* handle) = 0;

    /// \}

protected:
    /// A generator is ended by Release() alone.
    ~IJsonGenerator() = default;
};

}  // namespace QXJSON
