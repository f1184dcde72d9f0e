#pragma once

#include <string>
#include <vector>

#include "BuildDocument.h"
#include "GeneratorOperationList.h"

namespace building {

using support::AddingOperation;
using support::AddingOperations;
using support::Answer;
using support::Arguments;
using support::kAllNamings;
using support::Kind;
using support::kMissing;
using support::kWild;
using support::NamedBy;
using support::NameOf;
using support::Operation;
using support::Payload;

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

/// The value that an operation of this naming stores for the item.
Value Stored(const Item& item, NamedBy naming, Allocator& allocator);

/// The same, as a plain writer writes it.
std::wstring StoredText(const Item& item, NamedBy naming);

/// Arguments with the item's payload and nothing else.
Arguments With(const Item& item);

/// The answer of GetItemHandleByPath.
Answer ItemHandleByPath(QXJSON::IJsonGenerator& generator, const wchar_t* path);

/// Whether there are operations of this naming that add the item.
bool IsAddedBy(NamedBy naming, const Item& item);

}  // namespace building
