#pragma once

#include <stdint.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "IJsonGenerator.h"
#include "TempFile.h"

namespace support {

/// What a load or a graft is given. An operation uses those that it takes.
struct GraftArguments {
    int32_t parent = 0;
    const wchar_t* path = nullptr;
    const wchar_t* key = nullptr;
    const wchar_t* source = nullptr;  ///< the text or the file name
    bool hasOutput = true;
};

/// One way in which parsed JSON gets into a generator: as the whole document, or as a new child of
/// a parent that is named by its handle or by its path.
struct GraftRoute {
    enum Parent { kNoParent, kByHandle, kByPath };
    enum Place { kRoot, kMember, kElement };

    const char* name;
    Parent parent;
    Place place;
    bool fromFile;
    std::function<int(QXJSON::IJsonGenerator&, const GraftArguments&, uint32_t* handle)> call;

    bool IsGraft() const { return place != kRoot; }
    bool TakesKey() const { return place == kMember; }
    /// The result where the source does not parse.
    int BadSourceResult() const { return fromFile ? -3 : 0; }
};

std::ostream& operator<<(std::ostream& out, const GraftRoute& route);

/// The two loads and the eight grafts; the grafts alone.
const std::vector<GraftRoute>& AllGraftRoutes();
const std::vector<GraftRoute>& GraftsOnly();
/// Those of all that read a file, and those that read text.
const std::vector<GraftRoute>& FileRoutes();
const std::vector<GraftRoute>& TextRoutes();

/// The handle that an operation did not write.
inline constexpr uint32_t kUnwrittenHandle = 4711;

/// What a load or graft answered.
struct Grafted {
    int result = 0;
    uint32_t handle = kUnwrittenHandle;
};

bool operator==(const Grafted& a, const Grafted& b);
std::ostream& operator<<(std::ostream& out, const Grafted& grafted);

Grafted Graft(const GraftRoute& route, QXJSON::IJsonGenerator& generator,
              const GraftArguments& arguments);

/// JSON to be taken in, ready for a route: as text, or in a file of its own.
class GraftSource {
public:
    /// JSON text; a file holds it in UTF-8.
    GraftSource(const GraftRoute& route, const std::wstring& json);
    /// The bytes of a file, or of UTF-16 units of text with the lower byte first. The units end at
    /// the first that is zero.
    GraftSource(const GraftRoute& route, const std::string& bytes);

    const wchar_t* Argument() const;
    /// Whether nobody has the file open; true for text.
    bool IsClosed() const;

private:
    std::wstring text;
    std::unique_ptr<TempFile> file;
};

}  // namespace support
