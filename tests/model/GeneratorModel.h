#pragma once

#include <map>
#include <string>

#include "BuildDocument.h"
#include "BuildItems.h"
#include "GeneratorOperationList.h"
#include "GraftReference.h"

namespace model {

using building::Answer;

/// What a generator must do, written out plainly: a document, and two maps between handles and the
/// paths under which they are remembered.
///
/// Blobs must not be empty, outputs must be given, and paths must fit into the caller's buffers.
class GeneratorModel {
public:
    /// An empty root, and no handles.
    void Reset(rapidjson::Type root);

    /// The answer of an operation that adds an item. In the family of references the parent is the
    /// value at `target`, a JSON Pointer, unless the arguments' reference is 0; what is returned
    /// is not foretold.
    Answer Add(const building::Operation& operation, const building::Item& item,
               const building::Arguments& arguments, const std::wstring& target);

    /// The answer of a load or graft whose source is read as `taken`.
    Answer Graft(const support::Operation& route, const support::Arguments& arguments,
                 const Taken& taken);

    Answer ItemHandleByPath(const std::wstring& path);
    /// The result, and the path if there is one.
    int ItemPath(int32_t handle, std::wstring& path);

    Value& Root() { return document; }
    std::wstring Text() const { return building::TextOf(document); }
    uint32_t LastHandle() const { return lastHandle; }

private:
    /// The parent of a new item: its remembered path, and what is there now; or why it is not
    /// known.
    struct Parent {
        int result;
        std::wstring path;
        Value* value;
    };

    Answer AddByReference(const building::Operation& operation, const building::Item& item,
                          const building::Arguments& arguments, const std::wstring& target);
    Answer AddBelow(const Parent& parent, const building::Operation& operation,
                    const building::Item& item, const building::Arguments& arguments);
    Answer Overwrite(const std::wstring& path, Value& made, bool needsTarget);
    Answer Append(const Parent& parent, const wchar_t* key, Value& made);
    Parent ByHandle(int32_t handle);
    Parent ByPath(const std::wstring& path);
    uint32_t HandleOf(const std::wstring& path);
    void Forget();

    Document document;
    std::map<int32_t, std::wstring> handleToPath;
    std::map<std::wstring, uint32_t> pathToHandle;
    uint32_t lastHandle = 0;
};

}  // namespace model
