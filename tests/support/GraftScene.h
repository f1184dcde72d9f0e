#pragma once

#include <stdint.h>

#include <ostream>
#include <string>
#include <vector>

#include "GraftRoute.h"
#include "JsonDll.h"

namespace support {

/// All that can be seen of a generator: the document's text, and the paths of its handles from 1
/// on.
struct GeneratorState {
    std::wstring text;
    std::vector<std::wstring> paths;
};

bool operator==(const GeneratorState& a, const GeneratorState& b);
std::ostream& operator<<(std::ostream& out, const GeneratorState& state);

GeneratorState StateOf(QXJSON::IJsonGenerator& generator);

/// The item path of a handle; empty when the generator does not know the handle.
std::wstring PathOf(QXJSON::IJsonGenerator& generator, uint32_t handle);

/// The handle of the item at a path, issued now if there is none yet; 0 when there is no item.
uint32_t HandleAt(QXJSON::IJsonGenerator& generator, const wchar_t* path);

/// A generator whose document has a place for every route, with handles from 1 to 4.
class GraftScene {
public:
    static constexpr int32_t kRoot = 1;
    static constexpr int32_t kObject = 2;  ///< holds one member, "old"
    static constexpr int32_t kArray = 3;   ///< holds two elements
    static constexpr int32_t kText = 4;    ///< is neither object nor array
    static constexpr uint32_t kNext = 5;   ///< what the first graft gets

    GraftScene();

    QXJSON::IJsonGenerator& operator*() const { return *generator; }
    QXJSON::IJsonGenerator* operator->() const { return generator.get(); }

    /// Arguments with which a route succeeds, but for the source: a member goes under "new" into
    /// the object, an element into the array.
    static Arguments Good(const Operation& route);
    static Arguments Good(const Operation& route, const GraftSource& source);

    /// What the first call with such arguments returned, and the document then, when it took `tree`
    /// in.
    static Answer AnswerOf(const Operation& route);
    static std::wstring DocumentWith(const Operation& route, const std::wstring& tree);

    /// Expects of a call that it returns `result`, writes no handle and changes nothing.
    void ExpectFailure(int result, const Operation& route, const Arguments& arguments);

    /// Expects that `next` is the handle that is issued next. It is, to an item made for it.
    void ExpectNextHandle(uint32_t next);

private:
    Generator generator;
    int spares = 0;
};

/// Takes a source in through a route, in a scene of its own, and expects what the model does: the
/// tree in its place, or the result of the failure and nothing changed. Returns whether it was a
/// tree.
bool ExpectAsReference(const Operation& route, const GraftSource& source);

}  // namespace support
