#pragma once

#include <memory>
#include <string>

#include "GeneratorOperationList.h"
#include "TempFile.h"

namespace support {

/// The ways in which parsed JSON gets into a generator: the two loads, as the whole document, and
/// the eight grafts, as a new child. All of them; the grafts alone.
const Operations& AllGraftRoutes();
const Operations& GraftsOnly();
/// Those of all that read a file, and those that read text.
const Operations& FileRoutes();
const Operations& TextRoutes();

bool ReadsFile(const Operation& route);
/// The result where the source does not parse.
int BadSourceResult(const Operation& route);

/// JSON to be taken in, ready for a route: as text, or in a file of its own.
class GraftSource {
public:
    /// JSON text; a file holds it in UTF-8.
    GraftSource(const Operation& route, const std::wstring& json);
    /// The bytes of a file, or of UTF-16 units of text with the lower byte first. The units end at
    /// the first that is zero.
    GraftSource(const Operation& route, const std::string& bytes);

    const wchar_t* Argument() const;
    /// Whether nobody has the file open; true for text.
    bool IsClosed() const;

private:
    std::wstring text;
    std::unique_ptr<TempFile> file;
};

}  // namespace support
