#include "BuildItems.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>

#include "Base64.h"

namespace building {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kTwoTo63 = 9223372036854775808.0;

/// By reference and handle, whole numbers that 64 bits hold, and 2^63, become integers.
Value StoredReal(double number, NamedBy naming) {
    const bool isWhole = std::trunc(number) == number && std::fabs(number) <= kTwoTo63;
    if (naming == NamedBy::kPath || !isWhole) return Value(number);
    return Value(number == kTwoTo63 ? INT64_MIN : static_cast<int64_t>(number));
}

Value StoredSpecialNumber(uint32_t selector) {
    switch (selector) {
        case 0:
            return Value(0);
        case 1:
            return Value(kNaN);
        case 2:
            return Value(kInfinity);
        default:
            return Value(-kInfinity);
    }
}

std::string BytesOf(const Item& item) {
    return {reinterpret_cast<const char*>(item.payload.bytes), item.payload.word};
}

std::vector<Item> Numbers() {
    std::vector<Item> items = {
        UIntItem(7),
        UIntItem(0),
        UIntItem(UINT_MAX),
        IntItem(-7),
        IntItem(INT_MIN),
        IntItem(INT_MAX),
        UInt64Item(1ull << 32),
        UInt64Item(0),
        Int64Item(-5),
        Int64Item(0),
        UInt64Item(INT64_MAX),
        UInt64Item(UINT64_MAX),
        NumberVariant(42),
        Int64Item(INT64_MIN),
        NumberVariant(INT64_MAX),
        Int64Item(INT64_MAX),
        NumberVariant(INT64_MIN),
    };
    for (const double number : {1.5,
                                3.0,
                                -3.0,
                                0.0,
                                -0.0,
                                0.1,
                                -0.5,
                                1e300,
                                -1e300,
                                5e-324,
                                -1e-300,
                                DBL_MAX,
                                kTwoTo63,
                                -kTwoTo63,
                                9223372036854774784.0,
                                9223372036854777856.0,
                                -9223372036854777856.0,
                                4503599627370495.5,
                                kNaN,
                                kInfinity,
                                -kInfinity})
        items.push_back(DoubleItem(number));
    for (const float number :
         {1.5f, 3.0f, -0.0f, 0.1f, 16777216.0f, 9223371487098961920.0f, 9223372036854775808.0f,
          -9223372036854775808.0f, 9223373136366403584.0f, 1e-45f, FLT_MAX,
          static_cast<float>(kNaN), static_cast<float>(kInfinity), -static_cast<float>(kInfinity)})
        items.push_back(FloatItem(number));
    for (const uint32_t selector : {0u, 1u, 2u, 3u}) items.push_back(SpecialNumberItem(selector));
    return items;
}

std::vector<Item> Texts() {
    static const std::string kBlobs[] = {"\x01\x02\x03", "\x01", std::string("\x00\xFF", 2), "four",
                                         std::string(100, '\xA5')};
    std::vector<Item> items = {
        StringItem(L"text"),
        StringItem(L""),
        StringItem(L"\"\\/\b\f\n\r\t\x1F\x7F"),
        StringItem(L"\x00E9\x4E2D\x212A"),
        StringItem(L"\xD83D\xDE00 beyond"),
        TextVariant(L"text"),
        TextVariant(L""),
        TextVariant(L"\xD83D\xDE00"),
    };
    for (const std::string& bytes : kBlobs) items.push_back(BlobItem(bytes));
    return items;
}

}  // namespace

Item ObjectItem() { return {"an object", Kind::kObject}; }

Item ArrayItem() { return {"an array", Kind::kArray}; }

Item NullItem() { return {"null", Kind::kNull}; }

Item BooleanItem(uint32_t flag) {
    Item item = {"the flag " + std::to_string(flag), Kind::kBoolean};
    item.payload.word = flag;
    return item;
}

Item DoubleItem(double number) {
    Item item = {"the double " + std::to_string(number), Kind::kDouble};
    item.payload.real = number;
    return item;
}

Item FloatItem(float number) {
    Item item = {"the float " + std::to_string(number), Kind::kFloat};
    item.payload.single = number;
    return item;
}

Item UInt64Item(uint64_t number) {
    Item item = {"the uint64 " + std::to_string(number), Kind::kUInt64};
    item.payload.uint64 = number;
    return item;
}

Item Int64Item(int64_t number) {
    Item item = {"the int64 " + std::to_string(number), Kind::kInt64};
    item.payload.int64 = number;
    return item;
}

Item UIntItem(uint32_t number) {
    Item item = {"the uint " + std::to_string(number), Kind::kUInt};
    item.payload.word = number;
    return item;
}

Item IntItem(int32_t number) {
    Item item = {"the int " + std::to_string(number), Kind::kInt};
    item.payload.int32 = number;
    return item;
}

Item SpecialNumberItem(uint32_t selector) {
    Item item = {"the special number " + std::to_string(selector), Kind::kSpecialNumber};
    item.payload.word = selector;
    return item;
}

Item BlobItem(const std::string& bytes) {
    Item item = {"a blob of " + std::to_string(bytes.size()), Kind::kBlob};
    item.payload.bytes = reinterpret_cast<const uint8_t*>(bytes.data());
    item.payload.word = static_cast<uint32_t>(bytes.size());
    return item;
}

Item StringItem(const wchar_t* text) {
    Item item = {"a string", Kind::kString};
    item.payload.text = text;
    return item;
}

Item NumberVariant(int64_t number) {
    Item item = {"the variant " + std::to_string(number), Kind::kVariant};
    item.payload.variant.tag = QXJSON::kVariantInt64;
    item.payload.variant.number = number;
    return item;
}

Item TextVariant(const wchar_t* text) {
    Item item = {"a variant with a text", Kind::kVariant};
    item.payload.variant.tag = QXJSON::kVariantText;
    item.payload.variant.text = text;
    return item;
}

const std::vector<Item>& Items() {
    static const std::vector<Item> items = [] {
        std::vector<Item> all = {ObjectItem(), ArrayItem(), NullItem()};
        for (const uint32_t flag : {1u, 0u, 2u, 0x80000000u, 0xFFFFFFFFu})
            all.push_back(BooleanItem(flag));
        for (const Item& item : Numbers()) all.push_back(item);
        for (const Item& item : Texts()) all.push_back(item);
        return all;
    }();
    return items;
}

const Item& SomeItem(Kind kind) {
    return *std::find_if(Items().begin(), Items().end(),
                         [kind](const Item& item) { return item.kind == kind; });
}

bool IsText(const Item& item) {
    return item.kind == Kind::kString || item.kind == Kind::kBlob ||
           (item.kind == Kind::kVariant && item.payload.variant.tag == QXJSON::kVariantText);
}

Value Stored(const Item& item, NamedBy naming, Allocator& allocator) {
    const Payload& payload = item.payload;
    switch (item.kind) {
        case Kind::kObject:
            return Value(rapidjson::kObjectType);
        case Kind::kArray:
            return Value(rapidjson::kArrayType);
        case Kind::kBoolean:
            return Value(payload.word != 0);
        case Kind::kDouble:
            return StoredReal(payload.real, naming);
        case Kind::kFloat:
            return StoredReal(static_cast<double>(payload.single), naming);
        case Kind::kUInt64:
            return Value(payload.uint64);
        case Kind::kInt64:
            return Value(payload.int64);
        case Kind::kUInt:
            return Value(payload.word);
        case Kind::kInt:
            return Value(payload.int32);
        case Kind::kSpecialNumber:
            return StoredSpecialNumber(payload.word);
        case Kind::kBlob:
            return NewString(support::EncodeBase64(BytesOf(item)), allocator);
        case Kind::kString:
            return NewString(payload.text, allocator);
        case Kind::kVariant:
            if (IsText(item)) return NewString(payload.variant.text, allocator);
            return Value(payload.variant.number);
        default:
            return Value();
    }
}

std::wstring StoredText(const Item& item, NamedBy naming) {
    Allocator allocator;
    return TextOf(Stored(item, naming, allocator));
}

Arguments With(const Item& item) {
    Arguments arguments;
    arguments.payload = item.payload;
    return arguments;
}

Answer ItemHandleByPath(QXJSON::IJsonGenerator& generator, const wchar_t* path) {
    static const Operation& operation =
        OperationNamed(support::GeneratorOperations(), "GetItemHandleByPath");
    Arguments arguments;
    arguments.path = path;
    return operation.call(generator, arguments);
}

bool IsAddedBy(NamedBy naming, const Item& item) {
    return naming != NamedBy::kReference || item.kind != Kind::kSpecialNumber;
}

}  // namespace building
