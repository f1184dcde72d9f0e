#pragma once

#include <memory>
#include <string>

#include "Operation.h"

namespace support {

/// A fresh, well-filled object of one family, to try operations out on.
///
/// Its objects and arrays have 16 members and elements, RapidJSON's first capacity: what is added
/// moves them.
class Specimen {
public:
    virtual ~Specimen() = default;

    virtual Subject Object() = 0;

    /// Arguments with which the operation returns what IsGood asks. Where it stores something under
    /// a key, one is new and the other has a value, and a handle, already.
    virtual Arguments Good(const Operation& operation, bool overwrites) = 0;

    /// All that can be seen of the object, but for the handle that is issued next.
    virtual std::wstring Seen() = 0;

    /// Expects that no handle was issued since the last call of Good, and issues one.
    virtual void ExpectNoNewHandle() = 0;

    /// Fills the object again after an operation that replaced its document.
    virtual void Refill() = 0;

    /// Leaves the object no memory in reserve: what is added next makes it allocate.
    virtual void UseUpReserve() = 0;

    /// Ten operations more, by every kind of name, each with the right result, and what they add is
    /// there.
    virtual void ExpectUsable() = 0;

    /// Ends the object's life.
    virtual int Release() = 0;
};

/// One of the three families: its operations, and new specimens.
struct SpecimenFamily {
    const char* name;
    const Operations& (*operations)();
    std::unique_ptr<Specimen> (*make)();
};

inline std::ostream& operator<<(std::ostream& out, const SpecimenFamily& family) {
    return out << family.name;
}

std::unique_ptr<Specimen> NewParserSpecimen();
std::unique_ptr<Specimen> NewGeneratorSpecimen();
std::unique_ptr<Specimen> NewPackageSpecimen();

extern const SpecimenFamily kSpecimenFamilies[3];

/// Whether the operation has two kinds of good arguments: for a new key, and for one that is there.
bool CanOverwrite(const Operation& operation);

/// Visits all operations of a family, each with every kind of good arguments; but not Release,
/// which ends the object.
template <class Visit>
void ForEachGoodCall(const SpecimenFamily& family, const Visit& visit) {
    for (const Operation& operation : family.operations()) {
        if (operation.name == "Release") continue;
        for (const bool overwrites : {false, true})
            if (!overwrites || CanOverwrite(operation)) visit(operation, overwrites);
    }
}

/// Whether the result is that of a good call: 1, but 0 for the two operations that then return it.
bool IsGood(const Operation& operation, const Answer& answer);

/// Expects two texts to be the same, and shows only where they begin to differ.
void ExpectSame(const std::wstring& expected, const std::wstring& actual, const char* what);

/// Expects of the object after a call that it is as before if the call failed, goes on either way,
/// and survives its Release.
///
/// The parser's and the package's loads and the generator's new roots start with a new object: they
/// leave nothing of the document even where they fail.
void ExpectWhole(Specimen& specimen, const Operation& operation, bool succeeded,
                 const std::wstring& before);

/// A text that takes more memory than objects get in one piece, which leaves nothing of that piece.
const wchar_t* LongText();

/// A file with JSON, and the name of another to write to.
const wchar_t* FileToLoad();
const wchar_t* FileToSave();
/// Whether nobody has them open.
bool AreFilesClosed();

}  // namespace support
