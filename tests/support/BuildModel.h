#pragma once

#include <map>
#include <string>

#include "BuildDocument.h"
#include "BuildItems.h"
#include "GeneratorOperationList.h"

namespace building {

/// What a generator is to do, written out plainly: a document and the two maps between handles and
/// the paths under which they are remembered.
///
/// Blobs must not be empty, outputs must be given, and paths must fit into the caller's buffers.
class Model {
public:
    /// A generator with an empty object or array as its root, and no handles.
    explicit Model(rapidjson::Type root);

    /// The answer of an operation. In the family of references the parent is the value at `target`,
    /// a JSON Pointer, unless the arguments' reference is 0; what is handed out is not foretold.
    Answer Add(const Operation& operation, const Item& item, const Arguments& arguments,
               const std::wstring& target);

    Answer ItemHandleByPath(const std::wstring& path);
    /// The result, and the path if there is one.
    int ItemPath(int32_t handle, std::wstring& path);

    std::wstring Text() const { return TextOf(document); }
    /// Whether something is at a JSON Pointer.
    bool Has(const std::wstring& pointer) { return Resolve(document, pointer) != nullptr; }
    uint32_t LastHandle() const { return lastHandle; }

private:
    Answer AddByReference(const Operation& operation, const Item& item, const Arguments& arguments,
                          const std::wstring& target);
    Answer AddBelow(const std::wstring& parentPath, const Operation& operation, const Item& item,
                    const Arguments& arguments);
    Answer Overwrite(const std::wstring& path, const Operation& operation, const Item& item);
    void Append(Value& parent, const Operation& operation, const Item& item, const wchar_t* key);
    int Translate(const std::wstring& path, std::wstring& pointer);
    uint32_t HandleOf(const std::wstring& path);

    Document document;
    std::map<int32_t, std::wstring> handleToPath;
    std::map<std::wstring, uint32_t> pathToHandle;
    uint32_t lastHandle = 0;
};

}  // namespace building
