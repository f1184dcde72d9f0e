#pragma once

#include <string>
#include <vector>

#include "BuildDocument.h"
#include "BuildOperations.h"

namespace building {

/// Something that can be added.
struct Item {
    std::string name;
    Kind kind;
    Payload payload = {};
};

Item ObjectItem();
Item ArrayItem();
Item NullItem();
Item BooleanItem(uint32_t flag);
Item DoubleItem(double number);
Item FloatItem(float number);
Item UInt64Item(uint64_t number);
Item Int64Item(int64_t number);
Item UIntItem(uint32_t number);
Item IntItem(int32_t number);
Item SpecialNumberItem(uint32_t selector);
/// The bytes must outlive the item, and so must the texts.
Item BlobItem(const std::string& bytes);
Item StringItem(const wchar_t* text);
Item NumberVariant(int64_t number);
Item TextVariant(const wchar_t* text);

/// Items of every kind, with numbers at the limits of every width.
const std::vector<Item>& Items();

/// The first of them that is of a kind.
const Item& SomeItem(Kind kind);

/// Whether the item is stored as a text: a string, a blob and a variant that carries a text.
bool IsText(const Item& item);

/// The value that an operation of the family stores for the item.
Value Stored(const Item& item, Family family, Allocator& allocator);

/// The same, as a plain writer writes it.
std::wstring StoredText(const Item& item, Family family);

/// Arguments with the item's payload and nothing else.
Arguments With(const Item& item);

/// Whether the family has operations that add the item.
bool IsAddedBy(Family family, const Item& item);

/// The name of a family, for test messages.
const char* NameOf(Family family);

}  // namespace building
