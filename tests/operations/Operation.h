#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "Answer.h"
#include "Arguments.h"

namespace QXJSON {
class IJsonGenerator;
class IJsonPackage;
class IJsonParser;
}  // namespace QXJSON

namespace support {

/// How an operation names the value that it works on, or the parent of what it adds.
enum class NamedBy { kNone, kHandle, kReference, kPath };

inline constexpr NamedBy kAllNamings[] = {NamedBy::kReference, NamedBy::kHandle, NamedBy::kPath};

/// The name of a way of naming, for test messages.
const char* NameOf(NamedBy naming);

/// What an operation is asked for; operations that differ only in NamedBy ask for the same.
enum class Asks {
    // in every family
    kLoad,
    kState,
    kRelease,
    // values, and what there is to be known of one
    kRoot,
    kMember,
    kChild,
    kName,
    kCount,
    kValueType,
    kItemType,
    kBoolean,
    kDouble,
    kFloat,
    kUInt64,
    kInt64,
    kUInt,
    kInt,
    kBlob,
    kString,
    kObject,
    kArray,
    kItem,
    kObjectText,
    kArrayText,
    kNumberClass,
    kExistence,
    kVariant,
    kTextVariant,  ///< a variant of a text only
    kAnyText,      ///< the characters of a string, the JSON of an object or array
    // changes
    kNewRoot,
    kStore,  ///< adds or sets what Kind says
    kGraft,
    kRemove,
    // output, and settings
    kPath,
    kWhole,
    kSave,
    kSetting,
    // the delegate of a package
    kDelegate,
    kExport,
    kImport,
    kSetExported,
    kGiveToImport,
};

/// What an operation adds to a document, or sets a key to.
enum class Kind {
    kNone,
    kObject,
    kArray,
    kBoolean,
    kDouble,
    kFloat,
    kUInt64,
    kInt64,
    kUInt,
    kInt,
    kSpecialNumber,
    kBlob,
    kString,
    kNull,
    kVariant,
};

/// The kinds of parameters. Those that name a value come first in every operation that has them.
namespace parameters {
enum Parameter {
    kHandle,
    kReference,
    kPath,
    kKey,
    kIndex,
    kText,
    kFileName,
    kBytes,
    kLength,
    kNumber,  ///< a flag, number or selector of the payload
    kEncoding,
    kStyle,
    kVariant,        ///< by value
    kVariantRecord,  ///< by its address
    kObject,
    kDelegate,
    kPassedOn,
    kOutHandle,
    kOutReference,
    kOutType,
    kOutNumber,
    kOutText,
    kOutBytes,  ///< followed by
    kOutLength,
    kOutVariant,
    kOutPath,  ///< a buffer of kPathUnits
};
}  // namespace parameters
using parameters::Parameter;

/// The name of a parameter, for test messages.
const char* NameOf(Parameter parameter);

constexpr bool IsOutput(Parameter parameter) { return parameter >= parameters::kOutHandle; }

/// How long a path that GetItemPath writes may be, with its terminator.
inline constexpr size_t kPathUnits = 1024;

/// An object of any family, for the time of a call.
class Subject {
public:
    Subject(QXJSON::IJsonParser& parser) : subject(&parser) {}
    Subject(QXJSON::IJsonGenerator& generator) : subject(&generator) {}
    Subject(QXJSON::IJsonPackage& package) : subject(&package) {}

    /// Throws where the object is of another family. A package is also a delegate.
    template <class Interface>
    Interface& As() const {
        using QXJSON::IJsonPackage;
        constexpr bool kIsPackage = std::is_base_of_v<Interface, IJsonPackage>;
        return *std::get<std::conditional_t<kIsPackage, IJsonPackage, Interface>*>(subject);
    }

private:
    std::variant<QXJSON::IJsonParser*, QXJSON::IJsonGenerator*, QXJSON::IJsonPackage*> subject;
};

/// One operation of an interface, ready to be called with whatever it takes.
struct Operation {
    std::string name;
    size_t slot;  ///< where the compiler has put it in the table of virtual operations
    Asks asks;
    Kind kind;  ///< with Asks::kStore
    std::vector<Parameter> parameters;
    bool returnsBool;
    std::function<Answer(Subject, const Arguments&)> call;
    // Of the parameters:
    NamedBy naming;
    bool hasKey;
    bool hasIndex;
    size_t outputs;

    bool Takes(Parameter parameter) const;
};

std::ostream& operator<<(std::ostream& out, const Operation& operation);

using Operations = std::vector<Operation>;

/// The operation with a name; throws where none has it.
const Operation& OperationNamed(const Operations& operations, const std::string& name);

/// Several lists as one.
Operations Joined(std::initializer_list<Operations> lists);

/// Those that meet a condition, in their order.
template <class Condition>
Operations OperationsIf(const Operations& operations, Condition condition) {
    Operations some;
    for (const Operation& operation : operations)
        if (condition(operation)) some.push_back(operation);
    return some;
}

}  // namespace support
