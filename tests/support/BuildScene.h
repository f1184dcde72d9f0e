#pragma once

#include <map>
#include <string>
#include <vector>

#include "BuildDocument.h"
#include "BuildItems.h"
#include "GeneratorOperationList.h"
#include "JsonDll.h"

namespace building {

/// A generator with a value of every kind as members of its root, each with a handle:
///
///     {"object":{},"array":[],"text":"t","number":7,"flag":true,"nothing":null,
///      "emptied":{},"spare":[0,...]}
///
/// `emptied` once held the object `inside`, whose handle leads nowhere any more.
class Scene {
public:
    Scene();

    QXJSON::IJsonGenerator& Generator() const { return *generator; }

    /// Arguments that name a member of the root, or with "" the root, in all three families. They
    /// live as long as the scene.
    Arguments Naming(const std::wstring& member);
    /// The handle of what `emptied` no longer holds.
    uint32_t LostHandle() const { return lost; }
    /// A handle that was not issued.
    uint32_t UnknownHandle() const { return 1000000; }

    /// Issues the next handle, to a value that nothing else uses.
    uint32_t NextHandle();

    std::wstring Text() const { return TextOf(*generator); }
    /// A copy of the document.
    Document Copy() const;

private:
    struct Site {
        std::wstring path;
        uint32_t handle;
    };

    void Add(const wchar_t* member, const Item& item);
    void AddSpare();

    support::Generator generator;
    uint64_t root = 0;
    std::map<std::wstring, Site> sites;
    uint32_t lost = 0;
    int spares = 0;
};

/// A path that names nothing in the scene, and what an operation that is given it returns.
struct BadPath {
    const wchar_t* path;
    int result;
};

/// A digit below an array is a position, so that the parent of a segment with a digit is looked at
/// while the path is read; where there is none, that ends in a fault.
const std::vector<BadPath>& BadPaths();

}  // namespace building
