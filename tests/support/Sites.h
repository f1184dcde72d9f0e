#pragma once

#include <string>

#include "IJsonParser.h"
#include "ParserOperationList.h"

namespace support {

/// One value of a document under the three kinds of names that operations take.
struct Site {
    uint32_t handle = 0;
    uint64_t reference = 0;
    std::wstring path;
};

/// The root (handle 1 from now on, if none was issued before) and one of its members.
Site SiteOfRoot(QXJSON::IJsonParser& parser);
Site SiteOfMember(QXJSON::IJsonParser& parser, const wchar_t* key);

/// Arguments that name the value at a site; `site` must outlive them.
Arguments At(const Site& site);

/// Arguments that ask `operation` about the member `key` of the root: through the root and the key
/// if the operation takes a key, else through the member's own site.
Arguments AtMember(const Operation& operation, const Site& root, const Site& member,
                   const wchar_t* key);

/// The handle that the parser has not issued yet and will issue next. `freshPath` must name a value
/// that has none; it has one afterwards.
uint32_t NextHandle(QXJSON::IJsonParser& parser, const wchar_t* freshPath);

}  // namespace support
