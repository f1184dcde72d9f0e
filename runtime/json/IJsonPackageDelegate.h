#pragma once

#include <stdint.h>

/// \file
/// The host's side of a package.

namespace QXJSON {

/// What a package calls to turn the runtime's own objects into JSON text and back. The runtime
/// implements it and passes it to IJsonPackage::SetDelegate().
///
/// The object is an opaque pointer that the package only passes on. So are the small arguments;
/// what they mean is agreed between the caller of the package and the delegate. A text that an
/// export returns is zero-terminated UTF-16 JSON with an object or array as its root; the delegate
/// owns it, and it must live until the calling operation of the package returns. Every operation
/// returns 1 for success; any other number becomes the result of the package's operation.
///
/// The package calls a delegate outside its guard: a C++ exception or processor fault inside the
/// delegate reaches the caller of the package.
class IJsonPackageDelegate {
public:
    // ---------------------------------------------------------------------------------------------
    /// \name Exports
    /// \{

    /// Makes JSON from an object, for IJsonPackage::SetValueFromDelegate0().
    /// \param[in] object the object
    /// \param[in] a,b,c,d,e,f the caller's arguments
    /// \param[out] text receives the JSON text; the package sets it to null before the call
    /// \return 1 for success; any other number stores nothing and is passed on
    virtual int DelegateExport0(void* object, uint16_t a, uint32_t b, uint32_t c, uint32_t d,
                                uint32_t e, uint8_t f, const wchar_t** text) = 0;

    /// Makes JSON from an object, for IJsonPackage::SetValueFromDelegate1().
    /// \param[in] object the object
    /// \param[in] a,b,c,d,e the caller's arguments
    /// \param[out] text receives the JSON text; the package sets it to null before the call
    /// \return 1 for success; any other number stores nothing and is passed on
    virtual int DelegateExport1(void* object, uint8_t a, uint8_t b, uint8_t c, uint8_t d, uint8_t e,
                                const wchar_t** text) = 0;

    /// Makes JSON from an object, for IJsonPackage::SetValueFromDelegate2().
    /// \param[in] object the object
    /// \param[in] a,b,c the caller's arguments
    /// \param[out] text receives the JSON text; the package sets it to null before the call
    /// \return 1 for success; any other number stores nothing and is passed on
    virtual int DelegateExport2(void* object, uint16_t a, uint8_t b, uint8_t c,
                                const wchar_t** text) = 0;

    /// Makes JSON from an object, for IJsonPackage::SetValueFromDelegate3().
    /// \param[in] object the object
    /// \param[in] a,b the caller's arguments
    /// \param[out] text receives the JSON text; the package sets it to null before the call
    /// \return 1 for success; any other number stores nothing and is passed on
    virtual int DelegateExport3(void* object, uint8_t a, uint8_t b, const wchar_t** text) = 0;

    /// Makes JSON from an object, for IJsonPackage::SetValueFromDelegate4().
    /// \param[in] object the object
    /// \param[in] a the caller's argument
    /// \param[out] text receives the JSON text; the package sets it to null before the call
    /// \return 1 for success; any other number stores nothing and is passed on
    virtual int DelegateExport4(void* object, uint8_t a, const wchar_t** text) = 0;

    /// Makes JSON from an object, for IJsonPackage::SetValueFromDelegate5().
    /// \param[in] object the object
    /// \param[in] a the caller's argument
    /// \param[out] text receives the JSON text; the package sets it to null before the call
    /// \return 1 for success; any other number stores nothing and is passed on
    virtual int DelegateExport5(void* object, uint32_t a, const wchar_t** text) = 0;

    /// \}

    // ---------------------------------------------------------------------------------------------
    /// \name The import
    /// \{

    /// Fills an object from a text, for IJsonPackage::GetValueToDelegate().
    /// \param[in] object the object
    /// \param[in] text the characters of a string, or the JSON of an object or array; it lives
    ///     until the call returns
    /// \param[in] a,b,c,d,e the caller's arguments
    /// \return 1 for success; the number is passed on
    virtual int DelegateImport(void* object, const wchar_t* text, uint8_t a, uint64_t b, uint16_t c,
                               uint32_t d, uint32_t e) = 0;

    /// \}

protected:
    /// Whoever implements a delegate also destroys it.
    ~IJsonPackageDelegate() = default;
};

}  // namespace QXJSON
