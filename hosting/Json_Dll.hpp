#pragma once

// An older compiler gets one message instead of hundreds: the rest of the file is not for it.
#if (defined(_MSVC_LANG) ? _MSVC_LANG : __cplusplus) < 201703L
#error "Json_Dll.hpp needs C++17; the interfaces in Json_Dll.h need C++11"
#else

#include <stdint.h>
#include <windows.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "Json_Dll.h"

/// A thin C++ layer for hosts of Json_Dll, in one header: it loads the library, owns its objects,
/// and gives its operations types. It is a host like any other: only calls of the interfaces cross
/// the boundary of the DLL, never an exception or an object of the C++ library. It hides nothing:
/// `->` and Raw() give access to the interface of each object, and everything that Json_Dll.h and
/// the interfaces say about results, lifetimes and threads holds here too.
namespace QXJSON::hosting {

// ---- Results -----------------------------------------------------------------------------------

/// @cond for this header alone
namespace detail {

/// Valid only where T is a view and the text is a temporary string.
template <class T, class Text>
using IfViewOfTemporary = std::enable_if_t<std::is_same_v<T, std::wstring_view> &&
                                           std::is_same_v<std::remove_const_t<Text>, std::wstring>>;

}  // namespace detail
/// @endcond

/// The result code of this layer where there is no library to ask: the DLL was not found, or lacks
/// what this layer needs from it. No operation returns it.
constexpr int kNoLibrary = -1000;

/// What a result code means, in a few words, for the host's own messages.
inline const char* Describe(int code) noexcept {
    switch (code) {
        case kSuccess:
            return "success";
        case kPlainFailure:
            return "the operation failed";
        case kNoMember:
            return "there is no such member";
        case kNoValue:
            return "there is no such value";
        case kWrongKind:
            return "the value is of another kind";
        case kNoText:
            return "there is no text to be stored";
        case kEscapedFailure:
            return "an exception or fault ended the operation";
        case kBadPath:
            return "the item path is malformed, or nothing exists at it";
        case kNoLibrary:
            return "Json_Dll.dll was not found, or is not the DLL that it should be";
        default:
            return "unknown result";
    }
}

/// A result other than success, for hosts that prefer exceptions. It is thrown by this header's
/// code inside the host, never by the library.
class Error : public std::runtime_error {
public:
    /// The error of a result code.
    explicit Error(int failure) : std::runtime_error(Describe(failure)), code(failure) {}
    /// The result code of the operation.
    int Code() const noexcept { return code; }

private:
    int code;
};

/// A result code and, after success, the output. The host chooses: look at the result
/// (`if (result)`, `*result`), name a value to use instead (`Or`), or have failures thrown (`Get`).
template <class T>
class [[nodiscard]] Result {
public:
    /// A failure.
    explicit Result(int failure) : code(failure) {}
    /// The result of an operation, with its output.
    Result(int result, T output) : code(result), value(std::move(output)) {}

    /// Whether the operation succeeded.
    explicit operator bool() const noexcept { return code == kSuccess; }
    /// The result code.
    int Code() const noexcept { return code; }
    /// The output; unspecified after a failure.
    T& operator*() noexcept { return value; }
    /// The output; unspecified after a failure.
    const T& operator*() const noexcept { return value; }
    /// A member of the output.
    T* operator->() noexcept { return &value; }
    /// A member of the output.
    const T* operator->() const noexcept { return &value; }
    /// The output; throws Error after a failure.
    T Get() && {
        if (code != kSuccess) throw Error(code);
        return std::move(value);
    }
    /// The output; throws Error after a failure.
    const T& Get() const& {
        if (code != kSuccess) throw Error(code);
        return value;
    }
    /// The output, or after a failure this value instead.
    T Or(T otherwise) const { return code == kSuccess ? value : std::move(otherwise); }
    /// Refused: the view would dangle once the temporary string is gone.
    template <class Text, class = detail::IfViewOfTemporary<T, Text>>
    T Or(Text&& otherwise) const = delete;

private:
    int code;
    T value{};
};

/// The result of an operation without output.
template <>
class [[nodiscard]] Result<void> {
public:
    /// The result of an operation.
    explicit Result(int result) : code(result) {}
    /// Whether the operation succeeded.
    explicit operator bool() const noexcept { return code == kSuccess; }
    /// The result code.
    int Code() const noexcept { return code; }
    /// Throws Error after a failure.
    void Get() const {
        if (code != kSuccess) throw Error(code);
    }

private:
    int code;
};

// ---- What goes in and out ----------------------------------------------------------------------

/// A text as an argument. The interfaces take zero-terminated UTF-16: pointers and strings are
/// passed on as they are; only a view, which need not be zero-terminated, is copied. Whatever
/// follows a U+0000 inside a text is ignored. It is meant for parameters. Do not construct a named
/// TextArgument from a temporary string: it would dangle.
class TextArgument {
public:
    /// Zero-terminated text; null is passed on, and refused by the operation.
    TextArgument(const wchar_t* zeroTerminated) : text(zeroTerminated) {}
    /// A string.
    TextArgument(const std::wstring& string) : text(string.c_str()) {}
    /// A view, copied.
    TextArgument(std::wstring_view view) : text(copy) {
        if (view.size() < kShort) {
            copy[view.copy(copy, kShort - 1)] = 0;
        } else {
            longCopy = std::make_unique<wchar_t[]>(view.size() + 1);
            view.copy(longCopy.get(), view.size());
            text = longCopy.get();
        }
    }
    TextArgument(const TextArgument&) = delete;
    TextArgument& operator=(const TextArgument&) = delete;

    /// The zero-terminated text; it lives as long as the argument.
    operator const wchar_t*() const noexcept { return text; }

private:
    static constexpr size_t kShort = 64;
    const wchar_t* text;
    std::unique_ptr<wchar_t[]> longCopy;
    wchar_t copy[kShort];
};

/// Bytes that somebody else owns.
struct Bytes {
    const uint8_t* data = nullptr;  ///< the first one
    size_t size = 0;                ///< how many

    const uint8_t* begin() const noexcept { return data; }       ///< the first byte
    const uint8_t* end() const noexcept { return data + size; }  ///< past the last byte
};

/// The kinds of values: the item types of the interfaces.
enum class ValueKind : uint32_t {
    kString = kItemString,
    kNumber = kItemNumber,
    kBoolean = kItemBoolean,
    kNull = kItemNull,
    kObject = kItemObject,
    kArray = kItemArray,
};

/// The kind of an item type or a value type: value types from 6 on are kinds of numbers.
constexpr ValueKind KindOf(uint32_t type) noexcept {
    return type < kValueInt32 ? static_cast<ValueKind>(type) : ValueKind::kNumber;
}

/// The classes of numbers.
enum class NumberClass : uint32_t {
    kFinite = kNumberFinite,
    kNotANumber = kNumberNan,
    kInfinity = kNumberInfinity,
    kMinusInfinity = kNumberMinusInfinity,
};

/// The encodings of output. Bytes have no byte-order mark; files begin with that of their encoding.
enum class Encoding : int32_t {
    kAscii = kEncodingAscii,
    kUtf16Le = kEncodingUtf16Le,
    kUtf8 = kEncodingUtf8,
    kUtf16Be = kEncodingUtf16Be,
};

/// @cond the rest of this section is for this header alone
namespace detail {

template <class Interface>
struct Releaser {
    void operator()(Interface* object) const noexcept { object->Release(); }
};

/// A view of a text that an operation returned.
inline std::wstring_view View(const wchar_t* text) {
    return text ? std::wstring_view(text) : std::wstring_view();
}

template <class>
inline constexpr bool kNever = false;

template <class T, class... Others>
inline constexpr bool kIsOneOf = (std::is_same_v<T, Others> || ...);

/// Character types: integers to C++, but not to hosts.
template <class T>
inline constexpr bool kIsCharacter =
    kIsOneOf<T, char, wchar_t, char16_t, char32_t, decltype(u8' ')>;

template <class T>
inline constexpr bool kIsInteger =
    std::is_integral_v<T> && !std::is_same_v<T, bool> && !kIsCharacter<T>;

/// The type with which the operations pass a T: for an integer type, whatever its name, the type of
/// 32 or 64 bits that holds it.
template <class T>
using Carrier = std::conditional_t<
    !kIsInteger<T>, T,
    std::conditional_t<std::is_signed_v<T>, std::conditional_t<(sizeof(T) > 4), int64_t, int32_t>,
                       std::conditional_t<(sizeof(T) > 4), uint64_t, uint32_t>>>;

/// Which operation serves which carrier of a number: ChooseNumber<T, operation for int32_t, ...>.
template <class T, auto int32, auto uint32, auto int64, auto uint64, auto real, auto single>
constexpr auto ChooseNumber() {
    if constexpr (std::is_same_v<T, int32_t>) {
        return int32;
    } else if constexpr (std::is_same_v<T, uint32_t>) {
        return uint32;
    } else if constexpr (std::is_same_v<T, int64_t>) {
        return int64;
    } else if constexpr (std::is_same_v<T, uint64_t>) {
        return uint64;
    } else if constexpr (std::is_same_v<T, double>) {
        return real;
    } else if constexpr (std::is_same_v<T, float>) {
        return single;
    } else {
        static_assert(kNever<T>, "bool, an integer, double, float, std::wstring_view or Bytes");
    }
}

/// The same for every carrier: Choose<T, operation for bool, int32_t, ...>.
template <class T, auto flag, auto int32, auto uint32, auto int64, auto uint64, auto real,
          auto single, auto text, auto blob>
constexpr auto Choose() {
    if constexpr (std::is_same_v<T, bool>) {
        return flag;
    } else if constexpr (std::is_same_v<T, std::wstring_view>) {
        return text;
    } else if constexpr (std::is_same_v<T, Bytes>) {
        return blob;
    } else {
        return ChooseNumber<T, int32, uint32, int64, uint64, real, single>();
    }
}

/// Calls a getter with its outputs after the other arguments, and converts the outputs to T.
template <class T, class Interface, class Operation, class... Arguments>
Result<T> Read(Interface& object, Operation operation, const Arguments&... arguments) {
    if constexpr (std::is_same_v<T, bool>) {
        uint32_t output = 0;
        const int result = (object.*operation)(arguments..., &output);
        return {result, output != 0};
    } else if constexpr (std::is_same_v<T, std::wstring_view>) {
        const wchar_t* output = nullptr;
        const int result = (object.*operation)(arguments..., &output);
        return {result, View(output)};
    } else if constexpr (std::is_same_v<T, Bytes>) {
        const uint8_t* data = nullptr;
        uint32_t size = 0;
        const int result = (object.*operation)(arguments..., &data, &size);
        return {result, {data, size}};
    } else {
        Carrier<T> output{};
        const int result = (object.*operation)(arguments..., &output);
        const T value = static_cast<T>(output);
        // A narrower integer type refuses what it cannot hold, as the operations do.
        const bool fits = !kIsInteger<T> || static_cast<Carrier<T>>(value) == output;
        return {result == kSuccess && !fits ? kWrongKind : result, value};
    }
}

using P = IJsonParser;

/// The parser's operations that name a value by its handle.
struct HandleWay {
    using Place = uint32_t;
    static constexpr auto kMember = &P::GetMemberItem;
    static constexpr auto kChild = &P::GetChildItem;
    static constexpr auto kName = &P::GetMemberName;
    static constexpr auto kCount = &P::GetChildCount;
    template <class T>
    static constexpr auto Getter() {
        return Choose<T, &P::GetItemBoolean, &P::GetItemInt, &P::GetItemUInt, &P::GetItemInt64,
                      &P::GetItemUInt64, &P::GetItemDouble, &P::GetItemFloat, &P::GetItemString,
                      &P::GetItemBlob>();
    }
    template <class T>
    static constexpr auto MemberGetter() {
        return Choose<T, &P::GetMemberBoolean, &P::GetMemberInt, &P::GetMemberUInt,
                      &P::GetMemberInt64, &P::GetMemberUInt64, &P::GetMemberDouble,
                      &P::GetMemberFloat, &P::GetMemberString, &P::GetMemberBlob>();
    }
};

/// Those that name it by its reference.
struct ReferenceWay {
    using Place = uint64_t;
    static constexpr auto kMember = &P::GetMemberValue;
    static constexpr auto kChild = &P::GetChildValue;
    static constexpr auto kName = &P::GetMemberNameOfValue;
    static constexpr auto kCount = &P::GetChildCountOfValue;
    template <class T>
    static constexpr auto Getter() {
        return Choose<T, &P::GetValueBoolean, &P::GetValueInt, &P::GetValueUInt, &P::GetValueInt64,
                      &P::GetValueUInt64, &P::GetValueDouble, &P::GetValueFloat, &P::GetValueString,
                      &P::GetValueBlob>();
    }
    template <class T>
    static constexpr auto MemberGetter() {
        return Choose<
            T, &P::GetMemberBooleanOfValue, &P::GetMemberIntOfValue, &P::GetMemberUIntOfValue,
            &P::GetMemberInt64OfValue, &P::GetMemberUInt64OfValue, &P::GetMemberDoubleOfValue,
            &P::GetMemberFloatOfValue, &P::GetMemberStringOfValue, &P::GetMemberBlobOfValue>();
    }
};

}  // namespace detail
/// @endcond

// ---- Reading -----------------------------------------------------------------------------------

/// A place in a parser's document, named by a handle (Item) or a reference (Value). It is valid
/// until the next load of its parser, which it does not own.
template <class Way>
class Node {
public:
    /// The handle or reference.
    using Place = typename Way::Place;

    /// No place: assign one before calling anything.
    Node() = default;
    /// A place that an operation of the interface returned, with its item type or value type.
    Node(IJsonParser& owner, Place raw, uint32_t rawType)
        : parser(&owner), place(raw), type(rawType) {}

    /// The kind of the value.
    ValueKind Kind() const noexcept { return KindOf(type); }
    /// The item type (by handle) or value type (by reference) as the interface gave it.
    uint32_t Type() const noexcept { return type; }
    /// The handle or reference, for calls of the interface.
    Place Raw() const noexcept { return place; }

    /// A member of an object.
    Result<Node> Member(const TextArgument& key) const {
        return Hand(Way::kMember, static_cast<const wchar_t*>(key));
    }
    /// The member or element at an index from 0.
    Result<Node> At(uint32_t index) const { return Hand(Way::kChild, index); }
    /// Whether there is such a member. It is the same search as Member().
    bool Has(const TextArgument& key) const { return static_cast<bool>(Member(key)); }
    /// How many members or elements there are.
    Result<uint32_t> Count() const { return detail::Read<uint32_t>(*parser, Way::kCount, place); }
    /// The key of the member at an index from 0.
    Result<std::wstring_view> NameAt(uint32_t index) const {
        return detail::Read<std::wstring_view>(*parser, Way::kName, place, index);
    }

    /// The value as a bool, any integer type that holds it, double, float, the std::wstring_view of
    /// a string, or the Bytes that its base64 stands for. Views and bytes belong to the parser;
    /// Bytes live until its next blob or message (Failure()), views until its next load.
    template <class T>
    Result<T> As() const {
        return detail::Read<T>(*parser, Way::template Getter<detail::Carrier<T>>(), place);
    }
    /// A member of an object in the same way, in one call.
    template <class T>
    Result<T> MemberAs(const TextArgument& key) const {
        return detail::Read<T>(*parser, Way::template MemberGetter<detail::Carrier<T>>(), place,
                               static_cast<const wchar_t*>(key));
    }

    /// The compact JSON text of an object or array; by handle only. It lives until the next such
    /// text.
    Result<std::wstring_view> Json() const {
        static_assert(std::is_same_v<Way, detail::HandleWay>, "there is no such operation");
        return detail::Read<std::wstring_view>(
            *parser,
            Kind() == ValueKind::kArray ? &IJsonParser::GetArrayJson : &IJsonParser::GetObjectJson,
            place);
    }

    /// The class of a number; by handle only.
    Result<NumberClass> Class() const {
        static_assert(std::is_same_v<Way, detail::HandleWay>, "there is no such operation");
        const auto number = detail::Read<uint32_t>(*parser, &IJsonParser::GetNumberClass, place);
        return {number.Code(), static_cast<NumberClass>(*number)};
    }

    class Iterator;
    class Range;
    /// The members or elements in document order, for a loop; none where the value is not an object
    /// or array. Each is a Child.
    Range Children() const { return Range(*this, Count().Or(0)); }

private:
    template <class Operation, class Argument>
    Result<Node> Hand(Operation operation, const Argument& argument) const {
        Place child = 0;
        uint32_t childType = 0;
        const int result = (parser->*operation)(place, argument, &child, &childType);
        return {result, Node(*parser, child, childType)};
    }

    IJsonParser* parser = nullptr;
    Place place = 0;
    uint32_t type = 0;
};

/// A member or element in a loop over Children().
template <class Way>
struct Child {
    std::wstring_view name;  ///< the key of a member; empty for an element
    Node<Way> value;         ///< the value
};

/// Goes through the members or elements of a container. A child that cannot be read throws Error.
template <class Way>
class Node<Way>::Iterator {
public:
    /// @cond what the standard library asks for
    using iterator_category = std::input_iterator_tag;
    using value_type = Child<Way>;
    using difference_type = std::ptrdiff_t;
    using reference = value_type;
    /// Keeps a child while one of its members is used.
    struct pointer {
        value_type child;
        const value_type* operator->() const noexcept { return &child; }
    };
    /// @endcond

    /// The iterator at an index of a container.
    Iterator(const Node& parent, uint32_t at) : container(parent), index(at) {}
    /// The child.
    Child<Way> operator*() const {
        const bool named = container.Kind() == ValueKind::kObject;
        return {named ? container.NameAt(index).Get() : std::wstring_view(),
                container.At(index).Get()};
    }
    /// A member of the child.
    pointer operator->() const { return {**this}; }
    /// Goes on to the next one.
    Iterator& operator++() {
        ++index;
        return *this;
    }
    /// Goes on to the next one, and returns the iterator before.
    Iterator operator++(int) {
        const Iterator before = *this;
        ++index;
        return before;
    }
    /// Whether both are at the same index.
    bool operator==(const Iterator& other) const noexcept { return index == other.index; }
    /// Whether they are not.
    bool operator!=(const Iterator& other) const noexcept { return index != other.index; }

private:
    Node container;
    uint32_t index;
};

/// The children of a container.
template <class Way>
class Node<Way>::Range {
public:
    /// That many children of a container.
    Range(const Node& parent, uint32_t children) : container(parent), count(children) {}
    /// The first one.
    Iterator begin() const { return {container, 0}; }
    /// Past the last one.
    Iterator end() const { return {container, count}; }

private:
    Node container;
    uint32_t count;
};

/// A value by its handle.
using Item = Node<detail::HandleWay>;
/// A value by its reference, which is unchecked and the fastest.
using Value = Node<detail::ReferenceWay>;

/// Owns an object of the library, and releases it. `->` gives access to the interface.
template <class Interface>
class Owner {
public:
    /// No object.
    Owner() = default;
    /// Takes over an object that a factory returned; null for none.
    explicit Owner(Interface* object) : owned(object) {}
    /// Whether there is an object.
    explicit operator bool() const noexcept { return owned != nullptr; }
    /// The interface, for everything that this layer does not wrap.
    Interface* operator->() const noexcept { return owned.get(); }
    /// The interface.
    Interface& Raw() const noexcept { return *owned; }
    /// Gives up the object: whoever takes the pointer releases it.
    Interface* Detach() noexcept { return owned.release(); }

private:
    std::unique_ptr<Interface, detail::Releaser<Interface>> owned;
};

/// Why a load failed.
struct LoadFailure {
    uint64_t offset = 0;        ///< where: see GetErrorOffset() of the interface
    std::wstring_view message;  ///< the library's sentence; a parser's lives as long as the process
};

/// A parser. A load invalidates everything that came from the document before.
class Parser : public Owner<IJsonParser> {
public:
    using Owner::Owner;

    /// Loads a text.
    Result<void> Load(const TextArgument& text) const {
        return Result<void>(Raw().LoadJsonString(text));
    }
    /// Loads bytes in any of the encodings of input.
    Result<void> LoadBytes(const void* data, size_t size) const {
        if (size > UINT32_MAX) return Result<void>(kPlainFailure);
        return Result<void>(
            Raw().LoadJsonBytes(static_cast<const char*>(data), static_cast<uint32_t>(size)));
    }
    /// Loads a file.
    Result<void> LoadFile(const TextArgument& fileName) const {
        return Result<void>(Raw().LoadJsonFile(fileName));
    }
    /// Why the last load failed. This fetches a message, which ends the life of the last Bytes.
    LoadFailure Failure() const {
        LoadFailure failure;
        const wchar_t* text = nullptr;
        Raw().GetErrorOffset(&failure.offset);
        Raw().GetErrorMessage(&text);
        failure.message = detail::View(text);
        return failure;
    }

    /// The root by its handle.
    Result<Item> Root() const {
        uint32_t handle = 0, type = 0;
        const int result = Raw().GetRootItem(&handle, &type);
        return {result, Item(Raw(), handle, type)};
    }
    /// The root by its reference.
    Result<Value> RootValue() const {
        uint64_t value = 0;
        uint32_t type = 0;
        const int result = Raw().GetRootValue(&value, &type);
        return {result, Value(Raw(), value, type)};
    }
    /// The value at an item path. It takes two calls: the second one asks for the item type.
    Result<Item> At(const TextArgument& path) const {
        uint32_t handle = 0, type = 0;
        int result = Raw().GetItemByPath(path, &handle);
        if (result == kSuccess) result = Raw().GetItemType(handle, &type);
        return {result, Item(Raw(), handle, type)};
    }
    /// The value at an item path as one of the types of Node::As. Bytes live until the next blob or
    /// message of the parser.
    template <class T>
    Result<T> As(const TextArgument& path) const {
        using P = IJsonParser;
        constexpr auto kGetter =
            detail::Choose<detail::Carrier<T>, &P::GetItemBooleanByPath, &P::GetItemIntByPath,
                           &P::GetItemUIntByPath, &P::GetItemInt64ByPath, &P::GetItemUInt64ByPath,
                           &P::GetItemDoubleByPath, &P::GetItemFloatByPath, &P::GetItemStringByPath,
                           &P::GetItemBlobByPath>();
        return detail::Read<T>(Raw(), kGetter, static_cast<const wchar_t*>(path));
    }
    /// Whether there is a value at an item path. Unlike ExistsItemByPath() of the interface, this
    /// does not fault for a path below a missing parent.
    bool Exists(const TextArgument& path) const {
        uint32_t type = 0;
        return Raw().GetItemTypeByPath(path, &type) == kSuccess;
    }
};

// ---- Building ----------------------------------------------------------------------------------

/// @cond for this header alone
namespace detail {

using G = IJsonGenerator;

/// The generator's operations that name a parent by its handle.
struct HandleBuild {
    using Place = uint32_t;
    using Parent = int32_t;
    struct Member {
        static constexpr auto kObject = &G::AddObjectItemObject;
        static constexpr auto kArray = &G::AddObjectItemArray;
        static constexpr auto kBoolean = &G::AddObjectItemBoolean;
        static constexpr auto kBlob = &G::AddObjectItemBlob;
        static constexpr auto kString = &G::AddObjectItemString;
        static constexpr auto kNull = &G::AddObjectItemNull;
        template <class T>
        static constexpr auto Number() {
            return ChooseNumber<T, &G::AddObjectItemInt, &G::AddObjectItemUInt,
                                &G::AddObjectItemInt64, &G::AddObjectItemUInt64,
                                &G::AddObjectItemDouble, &G::AddObjectItemFloat>();
        }
        static constexpr auto kJson = &G::AddObjectItemJsonString;
        static constexpr auto kJsonFile = &G::AddObjectItemJsonFile;
    };
    struct Element {
        static constexpr auto kObject = &G::AddArrayItemObject;
        static constexpr auto kArray = &G::AddArrayItemArray;
        static constexpr auto kBoolean = &G::AddArrayItemBoolean;
        static constexpr auto kBlob = &G::AddArrayItemBlob;
        static constexpr auto kString = &G::AddArrayItemString;
        static constexpr auto kNull = &G::AddArrayItemNull;
        template <class T>
        static constexpr auto Number() {
            return ChooseNumber<T, &G::AddArrayItemInt, &G::AddArrayItemUInt, &G::AddArrayItemInt64,
                                &G::AddArrayItemUInt64, &G::AddArrayItemDouble,
                                &G::AddArrayItemFloat>();
        }
        static constexpr auto kJson = &G::AddArrayItemJsonString;
        static constexpr auto kJsonFile = &G::AddArrayItemJsonFile;
    };
};

/// Those that name it by its reference; there are no grafts.
struct ReferenceBuild {
    using Place = uint64_t;
    using Parent = uint64_t;
    struct Member {
        static constexpr auto kObject = &G::AddObjectValueObject;
        static constexpr auto kArray = &G::AddObjectValueArray;
        static constexpr auto kBoolean = &G::AddObjectValueBoolean;
        static constexpr auto kBlob = &G::AddObjectValueBlob;
        static constexpr auto kString = &G::AddObjectValueString;
        static constexpr auto kNull = &G::AddObjectValueNull;
        template <class T>
        static constexpr auto Number() {
            return ChooseNumber<T, &G::AddObjectValueInt, &G::AddObjectValueUInt,
                                &G::AddObjectValueInt64, &G::AddObjectValueUInt64,
                                &G::AddObjectValueDouble, &G::AddObjectValueFloat>();
        }
    };
    struct Element {
        static constexpr auto kObject = &G::AddArrayValueObject;
        static constexpr auto kArray = &G::AddArrayValueArray;
        static constexpr auto kBoolean = &G::AddArrayValueBoolean;
        static constexpr auto kBlob = &G::AddArrayValueBlob;
        static constexpr auto kString = &G::AddArrayValueString;
        static constexpr auto kNull = &G::AddArrayValueNull;
        template <class T>
        static constexpr auto Number() {
            return ChooseNumber<T, &G::AddArrayValueInt, &G::AddArrayValueUInt,
                                &G::AddArrayValueInt64, &G::AddArrayValueUInt64,
                                &G::AddArrayValueDouble, &G::AddArrayValueFloat>();
        }
    };
};

}  // namespace detail
/// @endcond

/// An object or array under construction, named by a handle (Container) or a reference
/// (ValueContainer) of its generator, which it does not own. `Add...` adds a member to an object,
/// `Append...` an element to an array. Values are bool, integers, double, float, nullptr, texts and
/// Bytes; adding one returns the handle or reference of the new value.
template <class Way>
class Builder {
public:
    /// The handle or reference.
    using Place = typename Way::Place;

    /// No container: assign one before calling anything.
    Builder() = default;
    /// A container that an operation of the interface returned.
    Builder(IJsonGenerator& owner, Place raw) : generator(&owner), place(raw) {}

    /// The handle or reference, for calls of the interface.
    Place Raw() const noexcept { return place; }

    /// Adds a value under a key.
    template <class T>
    Result<Place> Add(const TextArgument& key, const T& value) const {
        return Put<Member>(value, static_cast<const wchar_t*>(key));
    }
    /// Appends a value.
    template <class T>
    Result<Place> Append(const T& value) const {
        return Put<Element>(value);
    }

    /// Adds an empty object under a key.
    Result<Builder> AddObject(const TextArgument& key) const { return Open(Member::kObject, key); }
    /// Adds an empty array under a key.
    Result<Builder> AddArray(const TextArgument& key) const { return Open(Member::kArray, key); }
    /// Appends an empty object.
    Result<Builder> AppendObject() const { return Open(Element::kObject); }
    /// Appends an empty array.
    Result<Builder> AppendArray() const { return Open(Element::kArray); }

    /// Adds the object or array that a text holds as JSON; this and the following by handle only.
    Result<Builder> AddJson(const TextArgument& key, const TextArgument& json) const {
        return Open(Member::kJson, key, json);
    }
    /// Adds the object or array of a file.
    Result<Builder> AddJsonFile(const TextArgument& key, const TextArgument& fileName) const {
        return Open(Member::kJsonFile, key, fileName);
    }
    /// Appends the object or array that a text holds as JSON.
    Result<Builder> AppendJson(const TextArgument& json) const {
        return Open(Element::kJson, json);
    }
    /// Appends the object or array of a file.
    Result<Builder> AppendJsonFile(const TextArgument& fileName) const {
        return Open(Element::kJsonFile, fileName);
    }

private:
    using Member = typename Way::Member;
    using Element = typename Way::Element;

    template <class Operation, class... Arguments>
    Result<Place> Call(Operation operation, const Arguments&... arguments) const {
        Place added = 0;
        const int result =
            (generator->*operation)(static_cast<typename Way::Parent>(place), arguments..., &added);
        return {result, added};
    }

    template <class Operation, class... Texts>
    Result<Builder> Open(Operation operation, const Texts&... texts) const {
        const Result<Place> added = Call(operation, static_cast<const wchar_t*>(texts)...);
        return {added.Code(), Builder(*generator, *added)};
    }

    template <class Row, class T, class... Key>
    Result<Place> Put(const T& value, const Key&... key) const {
        if constexpr (std::is_null_pointer_v<T>) {
            return Call(Row::kNull, key...);
        } else if constexpr (std::is_same_v<T, bool>) {
            return Call(Row::kBoolean, key..., uint32_t{value});
        } else if constexpr (std::is_same_v<T, Bytes>) {
            if (value.size > UINT32_MAX) return Result<Place>(kPlainFailure);
            return Call(Row::kBlob, key..., value.data, static_cast<uint32_t>(value.size));
        } else if constexpr (std::is_convertible_v<const T&, TextArgument>) {
            const TextArgument text(value);
            return Call(Row::kString, key..., static_cast<const wchar_t*>(text));
        } else {
            using Carrier = detail::Carrier<T>;
            return Call(Row::template Number<Carrier>(), key..., static_cast<Carrier>(value));
        }
    }

    IJsonGenerator* generator = nullptr;
    Place place = 0;
};

/// A container by its handle.
using Container = Builder<detail::HandleBuild>;
/// A container by its reference, which is unchecked and the fastest.
using ValueContainer = Builder<detail::ReferenceBuild>;

/// A generator.
class Generator : public Owner<IJsonGenerator> {
public:
    using Owner::Owner;

    /// Starts again with an empty object as the root.
    Result<Container> NewObject() const { return Root(&IJsonGenerator::CreateRootObject); }
    /// Starts again with an empty array as the root.
    Result<Container> NewArray() const { return Root(&IJsonGenerator::CreateRootArray); }
    /// As NewObject(), to continue by reference.
    Result<ValueContainer> NewObjectValue() const {
        return RootValue(&IJsonGenerator::ResetRootObjectValue);
    }
    /// As NewArray(), to continue by reference.
    Result<ValueContainer> NewArrayValue() const {
        return RootValue(&IJsonGenerator::ResetRootArrayValue);
    }
    /// Replaces the document with that of a text.
    Result<Container> Load(const TextArgument& json) const {
        return Root(&IJsonGenerator::LoadJsonString, static_cast<const wchar_t*>(json));
    }
    /// Replaces the document with that of a file.
    Result<Container> LoadFile(const TextArgument& fileName) const {
        return Root(&IJsonGenerator::LoadJsonFile, static_cast<const wchar_t*>(fileName));
    }

    /// The value at an item path.
    Result<Container> At(const TextArgument& path) const {
        return Root(&IJsonGenerator::GetItemHandleByPath, static_cast<const wchar_t*>(path));
    }
    /// The item path of a handle.
    Result<std::wstring> PathOf(uint32_t handle) const {
        wchar_t path[1024];
        const int result = Raw().GetItemPath(static_cast<int32_t>(handle), path);
        return {result, result == kSuccess ? path : std::wstring()};
    }

    /// The document as compact text, which lives until the next one.
    Result<std::wstring_view> Text() const {
        return detail::Read<std::wstring_view>(Raw(), &IJsonGenerator::GetJsonString);
    }
    /// The document as compact text in an encoding. The bytes live until the next ones.
    Result<Bytes> Encoded(Encoding encoding) const {
        const uint8_t* data = nullptr;
        uint64_t size = 0;
        const int result = Raw().GetJsonBytes(&data, &size, static_cast<int32_t>(encoding));
        return {result, {data, static_cast<size_t>(size)}};
    }
    /// Writes the document to a file as compact text.
    Result<void> Save(const TextArgument& fileName, Encoding encoding) const {
        return Result<void>(Raw().SaveToFile(fileName, static_cast<int32_t>(encoding)));
    }
    /// Writes the document to a file, indented.
    Result<void> SaveIndented(const TextArgument& fileName, Encoding encoding) const {
        return Result<void>(Raw().SaveToFileEx(fileName, static_cast<int32_t>(encoding), 0));
    }

private:
    template <class Operation, class... Arguments>
    Result<Container> Root(Operation operation, const Arguments&... arguments) const {
        uint32_t handle = 0;
        const int result = (Raw().*operation)(arguments..., &handle);
        return {result, Container(Raw(), handle)};
    }
    template <class Operation>
    Result<ValueContainer> RootValue(Operation operation) const {
        uint64_t value = 0;
        const int result = (Raw().*operation)(&value);
        return {result, ValueContainer(Raw(), value)};
    }
};

// ---- The keyed store ---------------------------------------------------------------------------

/// A package.
class Package : public Owner<IJsonPackage> {
public:
    using Owner::Owner;

    /// The value of a key as a bool, a double, the std::wstring_view of a string or the Bytes that
    /// its base64 stands for. Bytes live until the next blob, set or read, or message of the
    /// package.
    template <class T>
    Result<T> As(const TextArgument& key) const {
        if constexpr (std::is_same_v<T, bool>) {
            bool flag = false;
            const int result = Raw().GetValueBoolean(key, &flag);
            return {result, flag};
        } else if constexpr (std::is_same_v<T, Bytes>) {
            const void* data = nullptr;
            uint32_t size = 0;
            const int result = Raw().GetValueBlob(key, &data, &size);
            return {result, {static_cast<const uint8_t*>(data), size}};
        } else if constexpr (std::is_same_v<T, double>) {
            return detail::Read<T>(Raw(), &IJsonPackage::GetValueNumber,
                                   static_cast<const wchar_t*>(key));
        } else {
            static_assert(std::is_same_v<T, std::wstring_view>,
                          "bool, double, std::wstring_view or Bytes");
            return detail::Read<T>(Raw(), &IJsonPackage::GetValueString,
                                   static_cast<const wchar_t*>(key));
        }
    }
    /// A string's characters or the JSON of an object or array.
    Result<std::wstring_view> Text(const TextArgument& key) const {
        return detail::Read<std::wstring_view>(Raw(), &IJsonPackage::GetValue,
                                               static_cast<const wchar_t*>(key));
    }
    /// The kind of a value.
    Result<ValueKind> Kind(const TextArgument& key) const {
        uint32_t type = 0;
        const int result = Raw().GetValueType(key, &type);
        return {result, KindOf(type)};
    }

    /// Sets a key to a bool, a text, Bytes or a number; a single character is refused. A package
    /// takes every number as a double: whole numbers beyond 2^53 are rounded.
    template <class T, class = std::enable_if_t<!detail::kIsCharacter<T>>>
    Result<void> Set(const TextArgument& key, const T& value) const {
        if constexpr (std::is_same_v<T, bool>) {
            return Result<void>(Raw().SetValueBoolean(key, value));
        } else if constexpr (std::is_same_v<T, Bytes>) {
            if (value.size > UINT32_MAX) return Result<void>(kPlainFailure);
            return Result<void>(
                Raw().SetValueBlob(key, value.data, static_cast<uint32_t>(value.size)));
        } else if constexpr (std::is_arithmetic_v<T>) {
            return Result<void>(Raw().SetValueNumber(key, static_cast<double>(value)));
        } else {
            return Result<void>(Raw().SetValueString(key, TextArgument(value)));
        }
    }
    /// Sets a key to the object or array that a text holds as JSON.
    Result<void> SetJson(const TextArgument& key, const TextArgument& json) const {
        return Result<void>(Raw().SetValue(key, json, true));
    }

    /// How many keys there are.
    Result<uint32_t> Count() const {
        return detail::Read<uint32_t>(Raw(), &IJsonPackage::GetKeyCount);
    }
    /// The key at an index from 0.
    Result<std::wstring_view> NameAt(uint32_t index) const {
        return detail::Read<std::wstring_view>(Raw(), &IJsonPackage::GetKeyName, index);
    }
    /// Whether a key exists.
    bool Contains(const TextArgument& key) const {
        bool found = false;
        return Raw().ContainsKey(key, &found) == kSuccess && found;
    }
    /// Removes a key.
    Result<void> Remove(const TextArgument& key) const {
        return Result<void>(Raw().RemoveKey(key));
    }
    /// Removes all keys.
    Result<void> Clear() const { return Result<void>(Raw().RemoveAll()); }
    /// Sets whether the case of ASCII letters in keys is ignored, as it is in a new package.
    Result<void> IgnoreCase(bool ignored) const {
        return Result<void>(Raw().SetIgnoreCase(ignored ? 1 : 0));
    }

    /// Replaces the package with a text. An array succeeds and leaves no keys: see HasError().
    Result<void> Load(const TextArgument& json) const {
        return Result<void>(Raw().LoadString(json));
    }
    /// Replaces the package with a file, in the same way.
    Result<void> LoadFile(const TextArgument& fileName) const {
        return Result<void>(Raw().LoadFile(fileName));
    }
    /// Whether the last load left a message code: it failed, or its root was an array.
    bool HasError() const { return Raw().HasError() != 0; }
    /// What was wrong with such a load; the message lives until the next blob or message.
    LoadFailure Failure() const {
        size_t offset = 0;
        const wchar_t* text = nullptr;
        Raw().GetErrorOffset(&offset);
        Raw().GetErrorMessage(&text);
        return {offset, detail::View(text)};
    }

    /// The package as compact text, which lives until the next text.
    Result<std::wstring_view> Text() const {
        return detail::Read<std::wstring_view>(Raw(), &IJsonPackage::GetText);
    }
    /// The package as compact text in an encoding. The bytes live until the next ones.
    Result<Bytes> Encoded(Encoding encoding) const {
        const void* data = nullptr;
        size_t size = 0;
        const int result = Raw().GetBytes(&data, &size, static_cast<int32_t>(encoding));
        return {result, {static_cast<const uint8_t*>(data), size}};
    }
    /// Writes the package to a file as compact text.
    Result<void> Save(const TextArgument& fileName, Encoding encoding) const {
        return Result<void>(Raw().SaveToFile(fileName, static_cast<int32_t>(encoding)));
    }
};

// ---- The library -------------------------------------------------------------------------------

/// The version of a DLL. Operations are only ever added: a host may call what the version in which
/// an operation came, or a later one with the same major number, offers.
struct Version {
    uint32_t major = 0;  ///< changes when the contract does
    uint32_t minor = 0;  ///< changes when something is added
    uint32_t patch = 0;  ///< changes with every other release

    /// Whether a host that was written for that version can use this one.
    constexpr bool Offers(const Version& wanted) const noexcept {
        if (major != wanted.major) return false;
        return minor != wanted.minor ? minor > wanted.minor : patch >= wanted.patch;
    }
};

/// @cond for this header alone
namespace detail {

/// The fixed part of a module's version resource, after its own length, that of the part, a type,
/// and the title with its padding; null without one.
inline const VS_FIXEDFILEINFO* FixedVersion(HMODULE module) noexcept {
    constexpr DWORD kHead = 3 * sizeof(WORD) + sizeof(L"VS_VERSION_INFO") + sizeof(WORD);
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(16));
    if (!found || SizeofResource(module, found) < kHead + sizeof(VS_FIXEDFILEINFO)) return nullptr;
    const HGLOBAL loaded = LoadResource(module, found);
    const auto* const bytes = static_cast<const uint8_t*>(loaded ? LockResource(loaded) : nullptr);
    if (!bytes) return nullptr;
    const auto* const part = reinterpret_cast<const VS_FIXEDFILEINFO*>(bytes + kHead);
    return part->dwSignature == 0xFEEF04BD ? part : nullptr;
}

}  // namespace detail
/// @endcond

/// The version of a loaded DLL, from its resources; kNoLibrary where it is not loaded.
inline Result<Version> LibraryVersion(HMODULE module = GetModuleHandleW(L"Json_Dll.dll")) {
    // Null would mean the program itself.
    const VS_FIXEDFILEINFO* const found = module ? detail::FixedVersion(module) : nullptr;
    if (!found) return Result<Version>(kNoLibrary);
    const DWORD high = found->dwFileVersionMS, low = found->dwFileVersionLS;
    return {kSuccess, {HIWORD(high), LOWORD(high), HIWORD(low)}};
}

/// The loaded library. It must outlive the objects that it created.
class Library {
public:
    /// Loads the DLL by its file name, as LoadLibrary finds it; see `operator bool`.
    explicit Library(const wchar_t* fileName = L"Json_Dll.dll")
        : module(LoadLibraryW(fileName)),
          createParser(Find<IJsonParser*()>("CreateJsonParser")),
          createGenerator(Find<IJsonGenerator*()>("CreateJsonGenerator")),
          createPackage(Find<IJsonPackage*()>("CreateJsonPackageInterface")) {}
    /// Uses the factories of a host that is linked with the import library.
    Library(IJsonParser* (*parser)(), IJsonGenerator* (*generator)(), IJsonPackage* (*package)())
        : createParser(parser), createGenerator(generator), createPackage(package) {}

    /// Takes over a library; the other one is left as if it had not been found.
    Library(Library&& other) noexcept
        : module(std::move(other.module)),
          createParser(std::exchange(other.createParser, nullptr)),
          createGenerator(std::exchange(other.createGenerator, nullptr)),
          createPackage(std::exchange(other.createPackage, nullptr)) {}
    /// The same; the library held before is unloaded.
    Library& operator=(Library&& other) noexcept {
        Library taken(std::move(other));
        std::swap(module, taken.module);
        std::swap(createParser, taken.createParser);
        std::swap(createGenerator, taken.createGenerator);
        std::swap(createPackage, taken.createPackage);
        return *this;
    }

    /// Whether the DLL was found, with everything that this layer needs from it.
    explicit operator bool() const noexcept {
        return createParser && createGenerator && createPackage;
    }

    /// The DLL, for whatever else a host may need from it; null where the host is linked with it.
    HMODULE Module() const noexcept { return module.get(); }

    /// A new parser; kNoLibrary without the library, kPlainFailure without memory.
    Result<Parser> NewParser() const { return New<Parser>(createParser); }
    /// A new generator, in the same way.
    Result<Generator> NewGenerator() const { return New<Generator>(createGenerator); }
    /// A new package, in the same way.
    Result<Package> NewPackage() const { return New<Package>(createPackage); }

private:
    /// @cond
    struct Unloader {
        void operator()(HMODULE loaded) const noexcept { FreeLibrary(loaded); }
    };
    /// @endcond

    template <class Function>
    Function* Find(const char* name) const {
        if (!module) return nullptr;
        return reinterpret_cast<Function*>(
            reinterpret_cast<void*>(GetProcAddress(module.get(), name)));
    }

    template <class Object, class Function>
    Result<Object> New(Function create) const {
        if (!*this) return Result<Object>(kNoLibrary);
        Object object(create());
        const int result = object ? kSuccess : kPlainFailure;
        return {result, std::move(object)};
    }

    std::unique_ptr<std::remove_pointer_t<HMODULE>, Unloader> module;
    IJsonParser* (*createParser)() = nullptr;
    IJsonGenerator* (*createGenerator)() = nullptr;
    IJsonPackage* (*createPackage)() = nullptr;
};

}  // namespace QXJSON::hosting

#endif  // C++17
