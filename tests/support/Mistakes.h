#pragma once

#include <string>
#include <vector>

#include "ParserOperationList.h"
#include "Sites.h"

namespace support {

/// A document with a value of every kind, and a member `spare` that no call of this header asks
/// for: the handle that it gets shows how many were issued before.
extern const wchar_t kEveryKind[];
inline constexpr const wchar_t* kSparePath = L"/spare";

/// The member of kEveryKind that an operation succeeds with.
const wchar_t* GoodKey(const Operation& operation);

/// What can be wrong with a call, in the order in which it is found out; the first that is wrong
/// decides the result.
enum class Mistake {
    kBadPlace,    ///< nothing is where the operation looks
    kNullKey,     ///< no key
    kNullOutput,  ///< no variable for an output
    kNoObject,    ///< a key, but the value is not an object
    kNoMember,    ///< a key that no member has
    kWrongType,   ///< a value that the operation is not made for
    kBadIndex,    ///< an index that is not below the count
};

inline constexpr Mistake kAllMistakes[] = {
    Mistake::kBadPlace, Mistake::kNullKey,   Mistake::kNullOutput, Mistake::kNoObject,
    Mistake::kNoMember, Mistake::kWrongType, Mistake::kBadIndex};

const char* NameOf(Mistake mistake);

/// The part of the arguments that a mistake spoils. Two mistakes in the same part exclude each
/// other.
enum class Part { kPlace, kKey, kOutput, kIndex };
Part PartOf(Mistake mistake, const Operation& operation);

/// Calls on a parser that holds kEveryKind: arguments with which an operation succeeds, and ones
/// that are wrong in chosen ways.
class Calls {
public:
    explicit Calls(QXJSON::IJsonParser& parser);

    Arguments Good(const Operation& operation) const;
    void Make(Mistake mistake, const Operation& operation, Arguments& arguments) const;

private:
    const Site& SiteOf(const wchar_t* key) const;

    Site root, object, array, flag, number, text;
};

/// Whether an operation's arguments leave room for a mistake.
bool CanMake(Mistake mistake, const Operation& operation);

/// The result of a call with only this mistake.
int ResultOf(Mistake mistake, const Operation& operation);

/// Whether `operation` finds `first` out before `second`.
bool IsFoundBefore(Mistake first, Mistake second, const Operation& operation);

}  // namespace support
